#include "core/owner/Closing.h"

#include "core/owner/OwnerRig.h"

namespace travo::test {

namespace {

class ClosingTest : public OwnerRig {
protected:
    void SetUp() override {
        ASSERT_TRUE(Begin());
        journal_.clear();
    }
};

TEST_F(ClosingTest, TheQuestionStandsToTheLetterWithOkAndCancel) {
    boxes_.answers = {platform::BoxAnswer::OK};
    EXPECT_TRUE(closing_->Ask());
    EXPECT_EQ(boxes_.shown.at(0).text,
              QStringLiteral("Do you want to end? This will clear all saved cell and escape positions."));
    EXPECT_EQ(boxes_.shown.at(0).buttons, platform::BoxButtons::OKCancel);
}

TEST_F(ClosingTest, CancelHasTheFocusInTheQuestion) {
    closing_->Ask();
    EXPECT_TRUE(boxes_.shown.at(0).opening.isFocusOnCancel);
}

TEST_F(ClosingTest, CancelRefusesTheCloseAndDoesNothingElse) {
    boxes_.answers = {platform::BoxAnswer::Cancel};
    EXPECT_FALSE(closing_->Ask());
    EXPECT_EQ(journal_.size(), 1U);
    EXPECT_TRUE(timers_.created.at(0)->Enabled());
}

TEST_F(ClosingTest, CloseWritesInItsExactOrder) {
    closing_->Close();
    Journal expected{"write FormBirdView_Shift|X", "write FormBirdView_Shift|Y"};
    for (const char* const window :
         {"FormMain", "FormBirdView", "FormManiInfo", "FormMirror", "FormMirror2"}) {
        for (const char* const key : {"Top", "Left", "Height", "Width"}) {
            expected.push_back(std::string("write ") + window + "_Position|" + key);
        }
    }
    for (const char* const key : {"XYOffset", "ZOffset", "OffsetOFF", "ContactOFF", "LineOFF", "BirdOPEN"}) {
        expected.push_back(std::string("write User_Value|") + key);
    }
    for (const char* const entry : {"save open windows", "written together", "close windows"}) {
        expected.emplace_back(entry);
    }
    EXPECT_EQ(journal_, expected);
}

TEST_F(ClosingTest, WhatIsSavedComesBackAtTheNextStart) {
    offsetOFF_ = 1;
    lineOFF_ = 1;
    birdOPEN_ = 1;
    state_->ShiftX = 0.1;
    state_->ShiftY = -1e-7;
    objects_->cNeedleMove->lngXYOffset = 40;
    objects_->cObjectiveUpDown->lngOffset = 2147483647;
    closing_->Close();
    EXPECT_EQ(ReadSettings().toStdString(),
              "[FormBirdView_Shift]\r\nX=0.1\r\nY=-1e-07\r\n"
              "[FormMain_Position]\r\nTop=300\r\nLeft=450\r\nHeight=9360\r\nWidth=7800\r\n"
              "[FormBirdView_Position]\r\nTop=15\r\nLeft=30\r\nHeight=7245\r\nWidth=6150\r\n"
              "[FormManiInfo_Position]\r\nTop=45\r\nLeft=60\r\nHeight=4500\r\nWidth=5100\r\n"
              "[FormMirror_Position]\r\nTop=75\r\nLeft=90\r\nHeight=3345\r\nWidth=4140\r\n"
              "[FormMirror2_Position]\r\nTop=105\r\nLeft=120\r\nHeight=2880\r\nWidth=4140\r\n"
              "[User_Value]\r\nXYOffset=40\r\nZOffset=2147483647\r\nOffsetOFF=1\r\nContactOFF=0\r\n"
              "LineOFF=1\r\nBirdOPEN=1\r\n");
    lineOFF_ = 0;
    birdOPEN_ = 0;
    Restart();
    EXPECT_TRUE(Begin());
    EXPECT_EQ(state_->ShiftX, 0.1);
    EXPECT_EQ(state_->ShiftY, -1e-7);
    EXPECT_EQ(lineOFF_, 1);
    EXPECT_EQ(birdOPEN_, 1);
    EXPECT_EQ(place_->Top, 300);
    EXPECT_EQ(place_->Left, 450);
    EXPECT_EQ(objects_->cNeedleMove->lngXYOffset, 40);
    EXPECT_EQ(objects_->cObjectiveUpDown->lngOffset, 2147483647);
}

TEST_F(ClosingTest, APlaceBeyondSixteenBitsIsBoundedSoThatTheNextStartCanReadIt) {
    measured_ = {40000.0F, -15.0F, 9360.0F, 7800.0F};
    closing_->Close();
    Restart();
    EXPECT_TRUE(Begin());
    EXPECT_EQ(place_->Top, 32767);
    EXPECT_EQ(place_->Left, 0);
}

TEST_F(ClosingTest, AFailureIsReportedTheRestIsSkippedAndNothingMovesAfterwards) {
    profile_.failWrite = true;
    closing_->Close();
    EXPECT_EQ(journal_, (Journal{"write FormBirdView_Shift|X", "written together", "box Error : Unload"}));
    EXPECT_FALSE(timers_.created.at(0)->Enabled());
}

TEST_F(ClosingTest, ASettingsFileThatCannotBeWrittenDoesNotDisturbTheClose) {
    ASSERT_TRUE(QDir().mkpath(SettingsPath()));
    closing_->Close();
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(ClosingTest, TheGaugesKeysAreEnabledAndThePortsClosedInTheOrderGaugeMirrorMotor) {
    objects_->cCommunication->MirrorPortOpen(1);
    objects_->cCommunication->MagnescalePortOpen(2);
    objects_->cCommunication->MotorPortOpen(3);
    journal_.clear();
    closing_->Close();
    const Journal ports(journal_.end() - 4, journal_.end());
    EXPECT_EQ(ports, (Journal{"port 2 > KEYON\r\n", "port 2 close", "port 1 close", "port 3 close"}));
    EXPECT_EQ(journal_.at(journal_.size() - 5), "close windows");
}

TEST_F(ClosingTest, CancelLeavesEveryOpenPortAsItWas) {
    objects_->cCommunication->MirrorPortOpen(1);
    boxes_.answers = {platform::BoxAnswer::Cancel};
    EXPECT_FALSE(closing_->Ask());
    EXPECT_TRUE(objects_->cCommunication->MirrorPortOpenCheck());
}

TEST_F(ClosingTest, AnOpenCameraIsHiddenBeforeThePortsCloseAndReleasedLast) {
    objects_->Live->Create();
    state_->LiveOpen = true;
    objects_->cCommunication->MirrorPortOpen(1);
    journal_.clear();
    closing_->Close();
    EXPECT_LT(PlaceOf("close windows"), PlaceOf("LiveHideWindow"));
    EXPECT_LT(PlaceOf("LiveHideWindow"), PlaceOf("port 1 close"));
    objects_->Release();
    EXPECT_LT(PlaceOf("driver released"), PlaceOf("live released"));
    EXPECT_EQ(Last(), "live released");
}

TEST_F(ClosingTest, AnIllCameraDoesNotDisturbTheClose) {
    objects_->Live->Create();
    state_->LiveOpen = true;
    liveCamera_.failing = {"LiveHideWindow"};
    objects_->cCommunication->MirrorPortOpen(1);
    closing_->Close();
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_FALSE(objects_->cCommunication->MirrorPortOpenCheck());
}

TEST_F(ClosingTest, NothingTicksAfterClosing) {
    closing_->Close();
    journal_.clear();
    timers_.created.at(0)->Fire();
    EXPECT_TRUE(journal_.empty());
}

TEST_F(ClosingTest, AnUnchangedRunKeepsEveryStoredCalibration) {
    WriteSettings("; mine\r\n" + CalibrationText(2));
    Restart();
    EXPECT_TRUE(Begin());
    closing_->Close();
    EXPECT_TRUE(ReadSettings().startsWith("; mine\r\n" + CalibrationText(2)));
}

}  // namespace

}  // namespace travo::test
