#include "core/owner/PositionLoop.h"

#include "core/owner/OwnerRig.h"

namespace travo::test {

namespace {

constexpr const char* Question = "box Manipulator was disconnected. Reconnect Manipulator?";

class PositionLoopTest : public OwnerRig {
protected:
    void SetUp() override {
        WriteSettings(CalibrationText(0) + CalibrationText(1) + CalibrationText(2) + CalibrationText(3));
        ASSERT_TRUE(Begin());
        journal_.clear();
    }
    void ManipulatorChange(std::int16_t number) override {
        if (throwsNumbers_) {
            throw 42;
        }
        OwnerRig::ManipulatorChange(number);
    }
    void ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) override {
        if (throwsNumbers_) {
            throw 42;
        }
        OwnerRig::ChangeNeedleXYZ(index, root);
    }
    bool throwsNumbers_ = false;  // whoever is told of needles raises what is no std::exception
    FakeTimer& Timer1() { return *timers_.created.at(0); }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            Timer1().Fire();
        }
    }
    // From now on every read of the driver gives a position out of range, which nobody is told.
    void FailReadsSilently() {
        for (auto& xyz : driver_.position) {
            xyz = {-1, 0, 0};
        }
    }
    void Answer(const char* reading) { GaugePort().Receive(reading, platform::ClearToSendEvent); }
    void MendReads() {
        for (auto& xyz : driver_.position) {
            xyz = {1000, 1000, 1000};
        }
    }
};

TEST_F(PositionLoopTest, ATickReadsTheSelectedNeedleTellsTheChangeAndStepsTheView) {
    Tick();
    EXPECT_EQ(journal_, (Journal{"DriverGetPosition", "manipulator 0", "needle 0", "view step"}));
    journal_.clear();
    Tick();
    EXPECT_EQ(journal_, (Journal{"DriverGetPosition", "needle 0", "view step"}));
}

TEST_F(PositionLoopTest, ANeedleSelectedAtTheHardwareIsNoticedAtTheNextTick) {
    Tick();
    journal_.clear();
    driver_.selected = 3;
    Tick();
    EXPECT_EQ(journal_, (Journal{"DriverGetPosition", "manipulator 2", "needle 2", "view step"}));
    EXPECT_EQ(state_->intManipulatorNumber, 2);
}

TEST_F(PositionLoopTest, TheRootIsThePlaceOfTheTipWithTheManipulatorsXAtZero) {
    driver_.position[0] = {11000, 21000, 5100};
    Tick();
    EXPECT_EQ(state_->Needle(0, 0), 1100);
    EXPECT_EQ(state_->Needle(0, 1), -1200);
    EXPECT_EQ(state_->Needle(0, 2), 100);
    EXPECT_EQ(lastRoot_, (PositionXYZ{-9900, -1200, 100}));
}

TEST_F(PositionLoopTest, TheTenthFailedReadRaisesNoDialogAndTheTickAfterItDoes) {
    FailReadsSilently();
    // A reading out of range leaves the guard taken: the next call frees it and counts as failed too.
    Tick(10);
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_EQ(CountOf("view step"), 10) << "the view steps after a failed read too";
    Tick();
    EXPECT_EQ(CountOf(Question), 1);
}

TEST_F(PositionLoopTest, AReadThatSucceedsAfterNineFailuresSetsTheCountBackToZero) {
    driver_.failing = {"DriverGetPosition"};
    Tick(9);
    driver_.failing = {};
    Tick();
    EXPECT_EQ(CountOf("needle 0"), 1);
    driver_.failing = {"DriverGetPosition"};
    Tick(10);
    EXPECT_EQ(CountOf(Question), 0);
    Tick();
    EXPECT_EQ(CountOf(Question), 1);
}

TEST_F(PositionLoopTest, TheReadAfterAnOddNumberOfReadingsOutOfRangeFailsTooForTheGuardIsStillTaken) {
    FailReadsSilently();
    Tick(9);
    MendReads();
    Tick();
    EXPECT_EQ(CountOf("needle 0"), 0);
    boxes_.answers = {platform::BoxAnswer::Cancel};
    Tick();
    EXPECT_EQ(CountOf(Question), 1);
}

TEST_F(PositionLoopTest, TenFailedReadsOfAFailingDriverShowTheLinksOwnBoxesOnly) {
    driver_.failing = {"DriverGetPosition"};
    Tick(10);
    EXPECT_EQ(boxes_.shown.size(), 10U);
    EXPECT_EQ(CountOf("box Manipulator : Communication failed"), 10);
    boxes_.answers = {platform::BoxAnswer::Cancel};
    Tick();
    EXPECT_EQ(CountOf(Question), 1);
    EXPECT_EQ(boxes_.shown.back().buttons, platform::BoxButtons::OKCancel);
}

TEST_F(PositionLoopTest, AfterCancelNothingReconnectsAndTheNextConnectionReportsAChange) {
    Tick();
    FailReadsSilently();
    boxes_.answers = {platform::BoxAnswer::Cancel};
    Tick(11);
    EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
    EXPECT_EQ(state_->intManipulatorNumber, -1);
    EXPECT_EQ(CountOf("DriverReconnect"), 0);
    EXPECT_EQ(CountOf("total -1"), 1);
    journal_.clear();
    Tick(5);
    EXPECT_TRUE(journal_.empty());
    MendReads();
    loop_->Connect();
    Tick(2);
    EXPECT_EQ(CountOf("manipulator 0"), 1);
}

TEST_F(PositionLoopTest, AfterOkTheLoopReconnectsReadsAllAndTellsTheTotalInThisOrder) {
    Tick();
    FailReadsSilently();
    Tick(10);
    MendReads();
    driver_.count = 2;
    journal_.clear();
    Tick();
    EXPECT_EQ(journal_, (Journal{Question, "DriverReconnect", "DriverGetCount", "DriverSelect 1",
                                 "DriverGetPosition", "needle 0", "DriverSelect 2", "DriverGetPosition",
                                 "needle 1", "DriverSelect 1", "total 1", "view step"}));
    EXPECT_TRUE(Timer1().Enabled());
}

TEST_F(PositionLoopTest, ACountOutsideTheRangeAtReconnectionIsNone) {
    FailReadsSilently();
    Tick(10);
    driver_.count = 6;
    Tick();
    EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
    EXPECT_EQ(CountOf("total -1"), 1);
}

TEST_F(PositionLoopTest, AFailureInATickIsSilentAndTheNextTickComesInTheOrdinaryWay) {
    failViewStep_ = true;
    Tick();
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_TRUE(Timer1().Enabled());
    EXPECT_EQ(ReadLog(), "07-03-2008\r\n");
}

TEST_F(PositionLoopTest, WhateverIsThrownInATickOrAReadIsAFailureOfThatTickOrRead) {
    throwsNumbers_ = true;
    EXPECT_NO_THROW(EXPECT_FALSE(loop_->ManipulatorReload()));
    EXPECT_NO_THROW(EXPECT_FALSE(loop_->AllManipulatorReload()));
    FailReadsSilently();
    Tick(10);
    driver_.throwsNumbers = true;
    driver_.failing = {"DriverReconnect"};
    EXPECT_NO_THROW(Tick());
    EXPECT_TRUE(Timer1().Enabled());
}

TEST_F(PositionLoopTest, AReconnectionThatFailsIsToldOnLikeACountOfNoneAndTheTickGoesOn) {
    for (const char* const failing : {"DriverReconnect", "DriverGetCount"}) {
        state_->intTotalManipulatorNumber = 3;
        FailReadsSilently();
        Tick(10);
        driver_.failing = {failing};
        journal_.clear();
        Tick();
        EXPECT_EQ(state_->intTotalManipulatorNumber, -1);
        EXPECT_EQ(state_->intManipulatorNumber, -1);
        EXPECT_EQ(CountOf("total -1"), 1) << failing;
        EXPECT_EQ(Last(), "view step");
        EXPECT_TRUE(Timer1().Enabled());
        driver_.failing = {};
    }
    EXPECT_EQ(boxes_.shown.size(), 2U) << "only the questions";
    EXPECT_EQ(ReadLog(), "07-03-2008\r\n");
}

TEST_F(PositionLoopTest, TheTimerIsOffDuringATickAndItsBoxes) {
    FailReadsSilently();
    Tick(10);
    int inside = 0;
    boxes_.whileShown = [&] {
        EXPECT_FALSE(Timer1().Enabled());
        Tick();
        ++inside;
    };
    Tick();
    EXPECT_EQ(inside, 1);
    EXPECT_TRUE(Timer1().Enabled());
}

TEST_F(PositionLoopTest, AReadingOutOfRangeLeavesTheGuardTakenAndTheNextReadFreesIt) {
    driver_.position[0] = {25001, 0, 0};
    Tick();
    driver_.position[0] = {25000, 0, 0};
    journal_.clear();
    Tick();
    EXPECT_EQ(journal_, Journal{"view step"}) << "the driver is not called";
    Tick();
    EXPECT_EQ(CountOf("DriverGetPosition"), 1);
    EXPECT_EQ(CountOf("needle 0"), 1);
}

TEST_F(PositionLoopTest, AFifthManipulatorIsToldAndThenFailsItsRead) {
    driver_.count = 5;
    driver_.selected = 5;
    driver_.position[4] = {1, 2, 3};
    EXPECT_FALSE(loop_->ManipulatorReload());
    EXPECT_EQ(journal_, (Journal{"DriverGetPosition", "manipulator 4"}));
}

TEST_F(PositionLoopTest, AllManipulatorReloadStopsAtTheFirstThatCannotBeReadAndLeavesItSelected) {
    driver_.position[1] = {0, 0, 25001};
    EXPECT_FALSE(loop_->AllManipulatorReload());
    EXPECT_EQ(driver_.selected, 2);
    EXPECT_EQ(CountOf("needle 0"), 1);
    EXPECT_EQ(CountOf("needle 1"), 0);
}

TEST_F(PositionLoopTest, AllManipulatorReloadSelectsTheFirstAndAnnouncesNoChange) {
    EXPECT_TRUE(loop_->AllManipulatorReload());
    EXPECT_EQ(driver_.selected, 1);
    EXPECT_EQ(state_->intManipulatorNumber, -1);
    EXPECT_EQ(CountOf("manipulator 0"), 0);
}

TEST_F(PositionLoopTest, AMapThatOverflowsIsAFailedReadAndShowsNothing) {
    objects_->cNeedleMove->PosZero(0, 0, 2147483647);
    driver_.position[0] = {25000, 22000, 5000};
    EXPECT_FALSE(loop_->ManipulatorReload());
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(PositionLoopTest, TheGaugeIsPolledOnEveryTickAlsoWithNoNeedle) {
    objects_->cCommunication->MagnescalePortOpen(2);
    GaugePort().TakeOutput();
    Tick();
    EXPECT_EQ(GaugePort().TakeOutput(), "Ar\r\n");
    EXPECT_EQ(Last(), "port 2 > Ar\r\n") << "after the needle and the step of the view";
    state_->intTotalManipulatorNumber = -1;
    journal_.clear();
    Tick();
    EXPECT_EQ(journal_, Journal{"port 2 > Ar\r\n"});
}

TEST_F(PositionLoopTest, AFailureInATickLosesTheRequestToTheGauge) {
    objects_->cCommunication->MagnescalePortOpen(2);
    GaugePort().TakeOutput();
    failViewStep_ = true;
    Tick();
    EXPECT_EQ(GaugePort().TakeOutput(), "");
    failViewStep_ = false;
    Tick();
    EXPECT_EQ(GaugePort().TakeOutput(), "Ar\r\n");
}

TEST_F(PositionLoopTest, ZeroPointResetWithoutAnOpenGaugePortChangesNothing) {
    state_->CurrentXYZ(2, 500);
    const QByteArray settings = ReadSettings();
    journal_.clear();
    loop_->ZeroPointReset();
    EXPECT_TRUE(journal_.empty());
    EXPECT_EQ(state_->ZeroXYZ(2), 0);
    EXPECT_EQ(ReadSettings(), settings);
}

TEST_F(PositionLoopTest, ZeroPointResetTakesThePresentZAndReachesAllInTheirOrderWithNoRefresh) {
    driver_.count = 2;
    loop_->Connect();
    objects_->cCommunication->MagnescalePortOpen(2);
    objects_->cCommunication->MotorPortOpen(3);
    state_->CurrentXYZ(2, 500);
    journal_.clear();
    loop_->ZeroPointReset();
    EXPECT_EQ(state_->ZeroXYZ(2), 500);
    EXPECT_EQ(objects_->cNeedleMove->PosZero(0, 2), -500);
    EXPECT_EQ(objects_->cNeedleMove->PosZero(2, 2), 0) << "not connected";
    Journal expected{"zero position"};
    for (int needle = 0; needle < 2; ++needle) {
        for (int axis = 0; axis < 3; ++axis) {
            expected.push_back("write Manipulator Calibration:" + std::to_string(needle) +
                               "|ZERO,XYZ:" + std::to_string(axis));
        }
    }
    expected.insert(expected.end(), {"port 2 > ARES\r\n", "port 3 > ZERO\r", "ControlONOFF 0"});
    EXPECT_EQ(journal_, expected);
    EXPECT_TRUE(ReadSettings().contains("ZERO,XYZ:2=-500\r\n"));
}

TEST_F(PositionLoopTest, WithAFifthManipulatorZeroPointResetStoresTheFourZerosAndReachesAll) {
    driver_.count = 5;
    loop_->Connect();
    objects_->cCommunication->MagnescalePortOpen(2);
    state_->CurrentXYZ(2, 500);
    journal_.clear();
    loop_->ZeroPointReset();
    EXPECT_EQ(objects_->cNeedleMove->PosZero(3, 2), -500);
    EXPECT_EQ(CountOf("write Manipulator Calibration:3|ZERO,XYZ:2"), 1);
    EXPECT_EQ(Last(), "port 2 > ARES\r\n");
}

TEST_F(PositionLoopTest, ZeroPointResetWithTheMotorPortClosedResetsTheGaugeAlone) {
    objects_->cCommunication->MagnescalePortOpen(2);
    state_->CurrentXYZ(2, 500);
    journal_.clear();
    loop_->ZeroPointReset();
    EXPECT_EQ(Last(), "port 2 > ARES\r\n");
}

TEST_F(PositionLoopTest, ZeroPointResetBeforeTheGaugeHasSpokenChangesNothing) {
    objects_->cCommunication->MagnescalePortOpen(2);
    objects_->cCommunication->MotorPortOpen(3);
    const QByteArray settings = ReadSettings();
    journal_.clear();
    loop_->ZeroPointReset();
    EXPECT_TRUE(journal_.empty());
    EXPECT_EQ(state_->ZeroXYZ(2), 0);
    EXPECT_EQ(ReadSettings(), settings);
    Answer("A+00.500\r\n");
    loop_->ZeroPointReset();
    EXPECT_EQ(state_->ZeroXYZ(2), 500);
}

TEST_F(PositionLoopTest,
       ASecondZeroPointResetChangesNothingUntilTheGaugeHasAnsweredARequestSentAfterTheFirst) {
    objects_->cCommunication->MagnescalePortOpen(2);
    Answer("A+00.500\r\n");
    objects_->cCommunication->RequestMagnescaleData();
    loop_->ZeroPointReset();
    ASSERT_EQ(objects_->cNeedleMove->PosZero(0, 2), -500);
    const QByteArray settings = ReadSettings();
    const auto again = [&] {
        journal_.clear();
        loop_->ZeroPointReset();
        return std::pair(journal_.size(), objects_->cNeedleMove->PosZero(0, 2));
    };
    const std::pair<std::size_t, std::int32_t> nothing{0, -500};
    EXPECT_EQ(again(), nothing);
    objects_->cCommunication->RequestMagnescaleData();
    EXPECT_EQ(again(), nothing) << "not answered";
    Answer("A+00.500\r\n");
    EXPECT_EQ(again(), nothing) << "the answer to the request before the zero point";
    EXPECT_EQ(ReadSettings(), settings);
    Answer("A+00.500\r\n");
    loop_->ZeroPointReset();
    EXPECT_EQ(objects_->cNeedleMove->PosZero(0, 2), -1000) << "the same height once more, but fresh";
}

TEST_F(PositionLoopTest, AfterStopNoTickMovesOrReadsAnything) {
    loop_->Stop();
    Tick();
    EXPECT_TRUE(journal_.empty());
    EXPECT_FALSE(Timer1().Enabled());
}

TEST_F(PositionLoopTest, AStopInsideATicksBoxHoldsAfterTheTick) {
    FailReadsSilently();
    Tick(10);
    boxes_.whileShown = [&] { loop_->Stop(); };
    Tick();
    EXPECT_FALSE(Timer1().Enabled());
}

}  // namespace

}  // namespace travo::test
