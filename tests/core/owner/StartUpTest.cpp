#include "core/owner/StartUp.h"

#include "core/owner/OwnerRig.h"

namespace travo::test {

namespace {

class StartUpTest : public OwnerRig {
protected:
    // Settings that the load must refuse: it says so, ends, and leaves the file as it is.
    void ExpectRefused(const QByteArray& settings) {
        WriteSettings(settings);
        EXPECT_FALSE(Begin());
        EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Load")});
        EXPECT_TRUE(ReadLog().endsWith("14:05:33 - Error : Load\r\n"));
        EXPECT_EQ(ReadSettings(), settings);
    }
    void ConstructPanels() override {
        if (throwsNumbers_) {
            throw 42;
        }
        OwnerRig::ConstructPanels();
    }
    bool throwsNumbers_ = false;  // the window raises what is no std::exception
};

TEST_F(StartUpTest, ASecondInstanceIsRefusedBeforeAnythingIsCreated) {
    singleInstance_.alone = false;
    EXPECT_FALSE(Begin());
    EXPECT_EQ(journal_, (Journal{"claim", "box TRAVO has already started."}));
    EXPECT_EQ(boxes_.shown.at(0).buttons, platform::BoxButtons::OK);
    EXPECT_FALSE(objects_->DebugLog.Alive());
}

TEST_F(StartUpTest, InitializeCreatesTheObjectsThenTheDataFolderThenTheLog) {
    EXPECT_EQ(startUp_->Initialize(), StartUp::Outcome::GoOn);
    const std::string data = data_.path().toStdString();
    EXPECT_EQ(journal_, (Journal{"claim", "driver created", "create folder " + data + "/Zelvo",
                                 "create folder " + data + "/Zelvo/Shared",
                                 "create folder " + data + "/Zelvo/Shared/Data", "construct panels"}));
    EXPECT_EQ(objects_->DebugLog->LogFilePath(), data_.path() + "/Zelvo/Shared/Data/debugTRAVO.txt");
}

TEST_F(StartUpTest, FoldersThatExistAreNotCreated) {
    EXPECT_TRUE(Begin());
    Restart();
    journal_.clear();
    EXPECT_TRUE(Begin());
    for (const std::string& entry : journal_) {
        EXPECT_FALSE(entry.starts_with("create folder")) << entry;
    }
}

TEST_F(StartUpTest, EachStartEmptiesTheLogBeforeAnythingElseIsWritten) {
    EXPECT_TRUE(Begin());
    objects_->DebugLog->WriteString(QStringLiteral("Needle move failed"));
    Restart();
    EXPECT_TRUE(Begin());
    EXPECT_EQ(ReadLog(), "07-03-2008\r\n");
}

TEST_F(StartUpTest, AFailureInInitializeIsReportedReleasesAllAndEnds) {
    folders_.refuse = true;
    EXPECT_FALSE(Begin());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Initialize")});
    EXPECT_FALSE(objects_->cCommunication.Alive());
    EXPECT_FALSE(objects_->DebugLog.Alive());
    EXPECT_EQ(driver_.released, 1);
}

TEST_F(StartUpTest, WhateverIsThrownInInitializeIsReportedReleasesAllAndEnds) {
    throwsNumbers_ = true;
    EXPECT_NO_THROW(EXPECT_FALSE(Begin()));
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Initialize")});
    EXPECT_FALSE(objects_->DebugLog.Alive());
}

TEST_F(StartUpTest, ALogThatCannotBeWrittenEndsInitializeWithABoxAllTheSame) {
    // A folder stands where the log should.
    ASSERT_TRUE(QDir().mkpath(data_.filePath(QStringLiteral("Zelvo/Shared/Data/debugTRAVO.txt"))));
    EXPECT_FALSE(Begin());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Initialize")});
}

TEST_F(StartUpTest, ObjectsAreReleasedInTheOrderOfTheirCreation) {
    EXPECT_TRUE(Begin());
    objects_->Release();
    EXPECT_EQ(Last(), "driver released");
    EXPECT_FALSE(objects_->cCommunication.Alive());
    EXPECT_FALSE(objects_->cNeedleMove.Alive());
    EXPECT_FALSE(objects_->cIniEdit.Alive());
    EXPECT_FALSE(objects_->DebugLog.Alive());
}

// The whole order of a load on four needles and an empty settings file.
TEST_F(StartUpTest, LoadRunsInItsExactOrder) {
    startUp_->Initialize();
    journal_.clear();
    EXPECT_EQ(startUp_->Load(), StartUp::Outcome::GoOn);
    startUp_->OpenCamera();

    Journal expected{"view changed", "view changed", "view changed", "DriverGetCount"};
    for (const char* const entry :
         {"FormBirdView_Shift|X", "FormBirdView_Shift|Y", "FormMain_Position|Top", "FormMain_Position|Left",
          "FormMain_Position|Width", "FormMain_Position|Height"}) {
        expected.push_back(std::string("read ") + entry);
    }
    expected.push_back("place main window");
    for (const auto& [section, index] :
         {std::pair{"FormBirdView", "1"}, {"FormManiInfo", "3"}, {"FormMirror", "2"}, {"FormMirror2", "4"}}) {
        for (const char* const key : {"Top", "Left", "Width", "Height"}) {
            expected.push_back(std::string("read ") + section + "_Position|" + key);
        }
        expected.push_back(std::string("place window ") + index);
    }
    expected.insert(expected.end(),
                    {"read User_Value|XYOffset", "read User_Value|ZOffset", "read User_Value|OffsetOFF",
                     "read User_Value|ContactOFF", "restore safeguards", "read User_Value|LineOFF",
                     "read User_Value|BirdOPEN", "restore bird view", "read COMPort|Mirror",
                     "read COMPort|Magnescale", "read COMPort|Motor"});
    for (int needle = 0; needle < 4; ++needle) {
        const std::string section = "read Manipulator Calibration:" + std::to_string(needle) + "|";
        for (int axis = 0; axis < 3; ++axis) {
            for (int point = 0; point < 4; ++point) {
                expected.push_back(section + "Index:" + std::to_string(point) +
                                   ",XYZ:" + std::to_string(axis));
            }
            expected.push_back(section + "ZERO,XYZ:" + std::to_string(axis));
        }
        for (int axis = 0; axis < 3; ++axis) {
            expected.push_back(section + "Center,XYZ:" + std::to_string(axis));
        }
    }
    for (int needle = 0; needle < 4; ++needle) {
        expected.push_back("DriverSelect " + std::to_string(needle + 1));
        expected.push_back("DriverGetPosition");
        expected.push_back("needle " + std::to_string(needle));
    }
    expected.insert(expected.end(), {"DriverSelect 1", "total 3", "first tab", "read Window|1",
                                     "read Window|2", "read Window|3", "read Window|4", "read Window|0"});
    EXPECT_EQ(journal_, expected);
}

TEST_F(StartUpTest, WithNoManipulatorAndAnAnswerOfZeroTheProgramEndsBeforeTheSettingsFileIsOpened) {
    driver_.count = 0;
    driver_.selectAnswer = 0;
    EXPECT_FALSE(Begin());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Please connect Zelvo version micromanipulator.")});
    for (const std::string& entry : journal_) {
        EXPECT_FALSE(entry.starts_with("read ")) << entry;
    }
}

TEST_F(StartUpTest, WithNoManipulatorAndAnotherAnswerTheProgramRunsAndNeedleStaysAtZero) {
    driver_.count = 0;
    driver_.selectAnswer = 1;
    EXPECT_TRUE(Begin());
    journal_.clear();
    timers_.created.at(0)->Fire();
    EXPECT_TRUE(journal_.empty());
    EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
    EXPECT_EQ(state_->Needle(0, 0), 0);
}

TEST_F(StartUpTest, WithoutADriverLibraryTheProgramRunsOnWithoutNeedles) {
    driver_.libraryMissing = true;
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
}

TEST_F(StartUpTest, ADriverThatFailsInCountingEndsTheLoad) {
    driver_.failing = {"DriverGetCount"};
    ExpectRefused("[User_Value]\r\nXYOffset=7\r\n");
}

TEST_F(StartUpTest, ACountOfSixOrMoreManipulatorsIsStoredAsNone) {
    driver_.count = 6;
    EXPECT_TRUE(Begin());
    EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
}

TEST_F(StartUpTest, ACountOfFiveIsAcceptedAndTheFifthFailsItsRead) {
    driver_.count = 5;
    driver_.position[4] = {10, 20, 30};
    EXPECT_TRUE(Begin());
    EXPECT_EQ(state_->intTotalManipulatorNumber, 4);
    EXPECT_EQ(CountOf("needle 3"), 1);
    EXPECT_EQ(CountOf("needle 4"), 0);
    EXPECT_EQ(driver_.selected, 5) << "the one that could not be read stays selected";
}

TEST_F(StartUpTest, WithAnEmptySettingsFileNothingIsCalibratedAndBothOffsetsAreOneHundred) {
    WriteSettings("");
    EXPECT_TRUE(Begin());
    for (int needle = 0; needle < 4; ++needle) {
        EXPECT_FALSE(state_->CalibrationON(needle));
    }
    EXPECT_EQ(place_->Top, 0);
    EXPECT_EQ(place_->Left, 0);
    EXPECT_EQ(place_->Width, 7800);
    EXPECT_EQ(place_->Height, 9360);
    EXPECT_EQ(objects_->cNeedleMove->lngXYOffset, 100);
    EXPECT_EQ(objects_->cObjectiveUpDown->lngOffset, 100);
    EXPECT_EQ(state_->ShiftX, 0.0);
}

TEST_F(StartUpTest, StoredValuesComeBack) {
    WriteSettings(
        "[FormBirdView_Shift]\r\nX=12.5\r\nY=-0.25\r\n"
        "[FormMain_Position]\r\nTop=300\r\nLeft=-30\r\nWidth=9000\r\nHeight=32767\r\n"
        "[User_Value]\r\nXYOffset=0\r\nZOffset=250\r\nOffsetOFF=1\r\nContactOFF=-5\r\n"
        "LineOFF=-7\r\nBirdOPEN=2\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_EQ(offsetOFF_, 1);
    EXPECT_EQ(contactOFF_, 0);
    EXPECT_EQ(lineOFF_, 0);
    EXPECT_EQ(birdOPEN_, 2) << "any value above -1 is passed on; the window takes what is not 0 for true";
    EXPECT_EQ(state_->ShiftX, 12.5);
    EXPECT_EQ(state_->ShiftY, -0.25);
    EXPECT_EQ(place_->Top, 300);
    EXPECT_EQ(place_->Left, 0) << "a place off the left comes back at 0";
    EXPECT_EQ(place_->Width, 9000);
    EXPECT_EQ(place_->Height, 32767);
    EXPECT_EQ(objects_->cNeedleMove->lngXYOffset, 0);
    EXPECT_EQ(objects_->cObjectiveUpDown->lngOffset, 250);
}

TEST_F(StartUpTest, AStoredTopOfMinusOneOrMinusThirtyComesBackAsZero) {
    for (const char* const top : {"-1", "-30"}) {
        Restart();
        WriteSettings(QByteArray("[FormMain_Position]\r\nTop=") + top + "\r\n");
        EXPECT_TRUE(Begin());
        EXPECT_EQ(place_->Top, 0);
    }
}

TEST_F(StartUpTest, AShiftThatIsNoNumberCountsAsZero) {
    WriteSettings("[FormBirdView_Shift]\r\nX=abc\r\nY=1e999\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_EQ(state_->ShiftX, 0.0);
    EXPECT_EQ(state_->ShiftY, 0.0);
}

TEST_F(StartUpTest, AWindowValueBeyondSixteenBitsEndsTheLoadAndLeavesTheFile) {
    ExpectRefused("[FormMain_Position]\r\nTop=40000\r\n; kept\r\n");
}

TEST_F(StartUpTest, AWindowValueOf32768EndsTheLoad) {
    ExpectRefused("[FormMain_Position]\r\nHeight=32768\r\n");
}

TEST_F(StartUpTest, ABinaryOrHugeSettingsFileLoadsAsDefaults) {
    QByteArray binary;
    for (int byte = 0; byte < 4096; ++byte) {
        binary.append(static_cast<char>(byte * 37));
    }
    for (const QByteArray& text : {binary, QByteArray(10 * 1024 * 1024, 'x')}) {
        Restart();
        WriteSettings(text);
        EXPECT_TRUE(Begin());
        EXPECT_EQ(objects_->cNeedleMove->lngXYOffset, 100);
        EXPECT_EQ(ReadSettings(), text);
    }
}

TEST_F(StartUpTest, TheDefaultSizeFollowsTheDisplayRoundedToEven) {
    display_.vertical = 15.0 * 1.25;
    display_.horizontal = 15.0 / 16.0 * 7.0;
    EXPECT_TRUE(Begin());
    EXPECT_EQ(defaultSize_.Height, 11700);
    EXPECT_EQ(defaultSize_.Width, 3412) << "3412.5, to even";
}

TEST_F(StartUpTest, ADesignSizeBeyondSixteenBitsEndsTheLoad) {
    display_.vertical = 150.0;
    ExpectRefused("");
}

TEST_F(StartUpTest, APortNumberBeyondSixteenBitsEndsTheLoad) {
    ExpectRefused("[COMPort]\r\nMotor=32768\r\n");
}

TEST_F(StartUpTest, ACameraThatWasOpenIsCreatedAndShownLastWithoutAttaching) {
    WriteSettings("[Window]\r\n0=0\r\n");
    EXPECT_EQ(startUp_->Initialize(), StartUp::Outcome::GoOn);
    EXPECT_EQ(startUp_->Load(), StartUp::Outcome::GoOn);
    EXPECT_EQ(CountOf("live created"), 0) << "the window is not on show yet";
    startUp_->OpenCamera();
    EXPECT_TRUE(state_->LiveOpen);
    EXPECT_EQ(Last(), "LiveShowWindow");
    EXPECT_EQ(CountOf("LiveAttach"), 0);
    EXPECT_EQ(CountOf("raise camera button"), 0);
}

TEST_F(StartUpTest, ACameraThatHasBeenOpenedMeanwhileIsLeftAlone) {
    WriteSettings("[Window]\r\n0=0\r\n");
    ASSERT_TRUE(Begin());
    journal_.clear();
    startUp_->OpenCamera();
    EXPECT_EQ(CountOf("live created"), 0);
    EXPECT_EQ(CountOf("LiveShowWindow"), 0);
}

TEST_F(StartUpTest, WithNoCameraProgramTheProgramStartsSaysSoOnceAndRunsOn) {
    liveCamera_.absent = true;
    WriteSettings("[Window]\r\n0=0\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_FALSE(state_->LiveOpen);
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Camera Load")});
    EXPECT_TRUE(ReadLog().endsWith(" - Error : Camera Load\r\n"));
    EXPECT_LT(PlaceOf("raise camera button"), PlaceOf("box Error : Camera Load"));
}

TEST_F(StartUpTest, ACameraThatFailsToShowItsWindowLeavesLiveOpenFalse) {
    liveCamera_.failing = {"LiveShowWindow"};
    WriteSettings("[Window]\r\n0=0\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_FALSE(state_->LiveOpen);
    EXPECT_EQ(CountOf("box Error : Camera Load"), 1);
    EXPECT_LT(PlaceOf("raise camera button"), PlaceOf("box Error : Camera Load"));
}

TEST_F(StartUpTest, ACameraThatWasClosedIsNotStarted) {
    WriteSettings("[Window]\r\n0=1\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_EQ(CountOf("live created"), 0);
}

TEST_F(StartUpTest, WindowsThatWereOpenAreShownInTheOrderOfTheirKeysAndTheCameraAfterThem) {
    WriteSettings("[Window]\r\n4=0\r\n3=0\r\n2=1\r\n1=0\r\n0=0\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_LT(PlaceOf("show window 1"), PlaceOf("show window 3"));
    EXPECT_LT(PlaceOf("show window 3"), PlaceOf("show window 4"));
    EXPECT_LT(PlaceOf("show window 4"), PlaceOf("live created"));
    EXPECT_EQ(CountOf("show window 2"), 0);
}

TEST_F(StartUpTest, ASmallWindowWithoutAStoredSizeComesBackAtItsDesignSize) {
    WriteSettings("[FormManiInfo_Position]\r\nTop=150\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_EQ(smallPlaces_.at(3).Top, 150);
    EXPECT_EQ(smallPlaces_.at(3).Width, 5100);
    EXPECT_EQ(smallPlaces_.at(3).Height, 4500);
}

TEST_F(StartUpTest, TheLoopTicksEveryTwoHundredMilliseconds) {
    EXPECT_TRUE(Begin());
    EXPECT_EQ(timers_.created.at(0)->interval, 200);
    EXPECT_TRUE(timers_.created.at(0)->Enabled());
}

}  // namespace

}  // namespace travo::test
