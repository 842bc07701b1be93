// Who hears what and in which order: each announcement is told to listeners that write down their names.
#include "core/owner/Announcements.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "support/FakeMachine.h"

namespace travo::test {

namespace {

std::string Words(const PositionXYZ& place) {
    return std::to_string(place[0]) + "," + std::to_string(place[1]) + "," + std::to_string(place[2]);
}

// Hears all there is, under one name.
class Ears : public HearsMagnification,
             public HearsView,
             public HearsTick,
             public HearsTotalManipulatorNumber,
             public HearsManipulatorChange,
             public HearsNeedle,
             public HearsZeroPosition,
             public HearsCell,
             public HearsCalibTime,
             public HearsMirror,
             public HearsMirrorMotors,
             public HearsFocusMotor,
             public HearsPortLost,
             public HearsLineDropped,
             public HearsStill,
             public HearsCameraHidden,
             public HearsCameraGone,
             public HearsFormClose {
public:
    Ears(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}

    bool fails = false;  // it raises, once it has heard

    void ChangeMagnification(std::int16_t Magnification) override {
        Hear("ChangeMagnification", std::to_string(Magnification));
    }
    void ChangeViewXYZ(const PositionXYZ& CurrentXYZ) override { Hear("ChangeViewXYZ", Words(CurrentXYZ)); }
    void ChangeCurrentXYZ(const PositionXYZ& CurrentXYZ) override {
        Hear("ChangeCurrentXYZ", Words(CurrentXYZ));
    }
    void TotalManipulatorNumber(std::int16_t ManipulatorNumber) override {
        Hear("TotalManipulatorNumber", std::to_string(ManipulatorNumber));
    }
    void ManipulatorChange(std::int16_t ManipulatorNumber) override {
        Hear("ManipulatorChange", std::to_string(ManipulatorNumber));
    }
    void ChangeNeedleXYZ(std::int16_t ManipulatorNumber,
                         const std::array<PositionXYZ, NeedleCount>& NeedleXYZ, const PositionXYZ& CurrentXYZ,
                         const PositionXYZ& OriNeedle) override {
        Hear("ChangeNeedleXYZ", std::to_string(ManipulatorNumber) + " of " + Words(NeedleXYZ[0]) + " to " +
                                    Words(NeedleXYZ[3]) + " view " + Words(CurrentXYZ) + " root " +
                                    Words(OriNeedle));
    }
    void ChangeZeroPosition() override { Hear("ChangeZeroPosition"); }
    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) override {
        Hear("ChangeCellXYZ", std::to_string(Index) + " " + Words(CellXYZ));
    }
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override {
        Hear("SetCalibTime",
             std::to_string(ManiNo) + " " + CalibTime.toStdString() + " " + std::to_string(CalibOrRe));
    }
    void chkMirror(bool isConnected) override { Hear("chkMirror", std::to_string(isConnected ? 1 : 0)); }
    void checkMotor(std::int16_t ONOFF) override { Hear("checkMotor", std::to_string(ONOFF)); }
    void ControlONOFF(bool bONOFF) override { Hear("ControlONOFF", std::to_string(bONOFF ? 1 : 0)); }
    void PortLost(Instrument instrument) override {
        Hear("PortLost", std::to_string(static_cast<int>(instrument)));
    }
    void LineDropped(Instrument instrument) override {
        Hear("LineDropped", std::to_string(static_cast<int>(instrument)));
    }
    void NewStill() override { Hear("NewStill"); }
    void LiveFromHide() override { Hear("LiveFromHide"); }
    void CameraGone() override { Hear("CameraGone"); }
    void FormClose(std::int32_t Index) override { Hear("FormClose", std::to_string(Index)); }

private:
    void Hear(const char* call, const std::string& news = {}) {
        journal_.push_back(name_ + "." + call + (news.empty() ? "" : " ") + news);
        if (fails) {
            throw std::runtime_error(name_ + " fails");
        }
    }

    Journal& journal_;
    std::string name_;
};

// One for each name of the table, and each hears everything: the table alone decides what it is told.
struct Everyone {
    explicit Everyone(Journal& journal) : journal_(journal) {}

    Journal& journal_;
    Ears CtlExperiment1{journal_, "CtlExperiment1"};
    Ears CtlCalibration1{journal_, "CtlCalibration1"};
    Ears CtlCellPosition1{journal_, "CtlCellPosition1"};
    Ears CtlEscape1{journal_, "CtlEscape1"};
    Ears CtlConnection1{journal_, "CtlConnection1"};
    Ears CtlUser1{journal_, "CtlUser1"};
    Ears BirdView{journal_, "BirdView"};
    Ears ManiInfo{journal_, "ManiInfo"};
    Ears MirrorCtl{journal_, "MirrorCtl"};
    Ears MirrorCtl2{journal_, "MirrorCtl2"};
    Ears Live{journal_, "Live"};
    Ears cEscape{journal_, "cEscape"};
    Ears Still{journal_, "Still"};
    Ears Details{journal_, "Details"};
};

class AnnouncementsTest : public testing::Test {
protected:
    AnnouncementsTest() { news_.Listen(WhoHearsWhat(to_)); }

    Journal journal_;
    Everyone to_{journal_};
    Announcements news_{&state_};
    SharedState state_{news_};
};

TEST_F(AnnouncementsTest,
       AMagnificationIsToldToMagnificationWindowPadBirdsEyeViewExperimentCameraAndCalibration) {
    state_.CurrentMagnification(2);
    EXPECT_EQ(journal_, (Journal{"MirrorCtl2.ChangeMagnification 2", "MirrorCtl.ChangeMagnification 2",
                                 "BirdView.ChangeMagnification 2", "CtlExperiment1.ChangeMagnification 2",
                                 "Live.ChangeMagnification 2", "CtlCalibration1.ChangeMagnification 2"}));
}

TEST_F(AnnouncementsTest, AViewIsToldToTheBirdsEyeViewAndThenToTheEscape) {
    state_.CurrentXY(11, 12);
    EXPECT_EQ(journal_,
              (Journal{"BirdView.ChangeViewXYZ 11,12,-100000", "cEscape.ChangeViewXYZ 11,12,-100000"}));
}

TEST_F(AnnouncementsTest, TheViewOfATickIsToldToTheExperimentPanel) {
    news_.ChangeCurrentXYZ({4, 5, 6});
    EXPECT_EQ(journal_, Journal{"CtlExperiment1.ChangeCurrentXYZ 4,5,6"});
}

TEST_F(AnnouncementsTest, ANumberOfManipulatorsIsToldToConnectionCalibrationExperimentAndTheWindowOfNeedles) {
    news_.TotalManipulatorNumber(-1);
    EXPECT_EQ(
        journal_,
        (Journal{"CtlConnection1.TotalManipulatorNumber -1", "CtlCalibration1.TotalManipulatorNumber -1",
                 "CtlExperiment1.TotalManipulatorNumber -1", "ManiInfo.TotalManipulatorNumber -1"}));
}

TEST_F(AnnouncementsTest, ANeedleSelectedAtTheHardwareIsToldToCalibrationAndThenToExperiment) {
    news_.ManipulatorChange(3);
    EXPECT_EQ(journal_,
              (Journal{"CtlCalibration1.ManipulatorChange 3", "CtlExperiment1.ManipulatorChange 3"}));
}

TEST_F(AnnouncementsTest, ANeedleThatWasReadIsToldToTheBirdsEyeViewWithAllNeedlesTheViewAndItsRoot) {
    state_.Needle(0, 1, 7);
    state_.Needle(3, 2, 9);
    state_.CurrentXY(11, 12);
    journal_.clear();
    news_.ChangeNeedleXYZ(3, {1, 2, 3});
    EXPECT_EQ(journal_,
              Journal{"BirdView.ChangeNeedleXYZ 3 of 0,7,0 to 0,0,9 view 11,12,-100000 root 1,2,3"});
}

TEST_F(AnnouncementsTest, AZeroPointIsToldToTheCellsAndThenToTheEscapeHeights) {
    news_.ChangeZeroPosition();
    EXPECT_EQ(journal_, (Journal{"CtlCellPosition1.ChangeZeroPosition", "CtlEscape1.ChangeZeroPosition"}));
}

TEST_F(AnnouncementsTest, AStoredCellIsToldToTheBirdsEyeView) {
    news_.ChangeCellXYZ(7, {1, 2, 3});
    EXPECT_EQ(journal_, Journal{"BirdView.ChangeCellXYZ 7 1,2,3"});
}

TEST_F(AnnouncementsTest, ATimeOfACalibrationIsToldToTheWindowOfNeedles) {
    news_.SetCalibTime(2, QStringLiteral("08/07/03"), 1);
    EXPECT_EQ(journal_, Journal{"ManiInfo.SetCalibTime 2 08/07/03 1"});
}

TEST_F(AnnouncementsTest, AMirrorThatAnswersOrNotIsToldToTheBirdsEyeView) {
    news_.chkMirror(true);
    news_.chkMirror(false);
    EXPECT_EQ(journal_, (Journal{"BirdView.chkMirror 1", "BirdView.chkMirror 0"}));
}

TEST_F(AnnouncementsTest, TheMirrorsMotorsAreToldToExperimentPadAndMagnificationWindow) {
    news_.checkMotor(2);
    EXPECT_EQ(journal_,
              (Journal{"CtlExperiment1.checkMotor 2", "MirrorCtl.checkMotor 2", "MirrorCtl2.checkMotor 2"}));
}

TEST_F(AnnouncementsTest, CommandsAndAnswersOfTheFocusMotorAreToldToTheConnectionPanel) {
    news_.ControlONOFF(false);
    news_.ControlONOFF(true);
    EXPECT_EQ(journal_, (Journal{"CtlConnection1.ControlONOFF 0", "CtlConnection1.ControlONOFF 1"}));
}

TEST_F(AnnouncementsTest, ALostPortIsToldToTheConnectionPanel) {
    news_.PortLost(Instrument::Motor);
    EXPECT_EQ(journal_, Journal{"CtlConnection1.PortLost 2"});
}

TEST_F(AnnouncementsTest, ADroppedLineIsNotedAndNoPanelIsTold) {
    news_.LineDropped(Instrument::Magnescale);
    EXPECT_EQ(journal_, Journal{"Details.LineDropped 1"});
}

TEST_F(AnnouncementsTest, APictureOfTheCameraIsToldToWhoLoadsIt) {
    news_.Live_BirdViewSave();
    EXPECT_EQ(journal_, Journal{"Still.NewStill"});
}

TEST_F(AnnouncementsTest, ACameraHiddenFromItsSideIsToldToTheUserPanel) {
    news_.Live_WindowHide();
    EXPECT_EQ(journal_, Journal{"CtlUser1.LiveFromHide"});
}

TEST_F(AnnouncementsTest, ACameraThatWasClosedOrDiedIsToldToTheUserPanelAndThenToTheConnectionPanel) {
    const Journal gone{"CtlUser1.CameraGone", "CtlConnection1.CameraGone"};
    news_.Live_WindowClose();
    EXPECT_EQ(journal_, gone);
    journal_.clear();
    news_.LiveDied();
    EXPECT_EQ(journal_, gone);
}

TEST_F(AnnouncementsTest, ASmallWindowClosedByItsButtonIsToldToTheUserPanel) {
    news_.FormClose(4);
    EXPECT_EQ(journal_, Journal{"CtlUser1.FormClose 4"});
}

TEST_F(AnnouncementsTest, AListenerThatFailsKeepsTheNewsFromThoseBehindItAndItsFailureGoesToWhoeverTold) {
    to_.MirrorCtl.fails = true;
    EXPECT_THROW(state_.CurrentMagnification(3), std::runtime_error);
    EXPECT_EQ(journal_, (Journal{"MirrorCtl2.ChangeMagnification 3", "MirrorCtl.ChangeMagnification 3"}));
    EXPECT_EQ(state_.intMagnification(), 3);
}

TEST_F(AnnouncementsTest, NobodyHearsAnythingOfAnEmptyTable) {
    news_.Listen({});
    state_.CurrentMagnification(2);
    state_.CurrentXY(1, 2);
    news_.TotalManipulatorNumber(3);
    news_.LiveDied();
    EXPECT_TRUE(journal_.empty());
}

}  // namespace

}  // namespace travo::test
