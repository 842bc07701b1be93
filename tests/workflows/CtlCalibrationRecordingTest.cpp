// The positions that a step of a calibration records, without a panel.
#include "workflows/CtlCalibrationRecording.h"

#include <gmock/gmock.h>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"
#include "support/PanelRig.h"

namespace travo::test {
namespace {

using Tip = CtlCalibrationRecording::Tip;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CalibrationRecordingTest : public ::testing::Test {
protected:
    CalibrationRecordingTest() {
        rig.OpenPorts();
        rig.OpenCamera();
        rig.state.intTotalManipulatorNumber = 3;
        rig.state.CurrentXY(10, -5);
        rig.state.CurrentXYZ(2, 300);
        rig.driver.selected = 3;
        rig.driver.position.at(2) = {100, 200, 300};
        rig.journal.clear();
    }

    Journal Take() { return std::exchange(rig.journal, {}); }
    // What has been kept of needle 3, as a full calibration would take it over.
    std::int32_t Kept(std::int32_t axis, std::int32_t point) {
        values.KeepFullCalibration(2);
        return rig.needleMove.ManipulatorCalibrationPosXYZ(2, axis, point);
    }
    PositionXYZ KeptZero() {
        values.KeepFullCalibration(2);
        return {rig.needleMove.PosZero(2, 0), rig.needleMove.PosZero(2, 1), rig.needleMove.PosZero(2, 2)};
    }

    PanelRig rig;
    CtlCalibrationValues values{{rig.needleMove, rig.ini, rig.clock}};
    CtlCalibrationRecording recording{{rig.state, rig.communication, rig.live}, values};
};

TEST_F(CalibrationRecordingTest, ReadsTheSelectedTipInsideAnActionOfTheCameraBehindTheRequests) {
    const Tip tip = recording.Read(0);
    EXPECT_THAT(Take(), ElementsAre("LiveActionStart", "port 2 > Ar\r\n", "port 1 > rD2R\r",
                                    "port 1 > rD1R\r", "DriverGetPosition"));
    EXPECT_EQ(tip.needle, 2);
    EXPECT_EQ(tip.counts, (PositionXYZ{100, 200, 300}));
}

TEST_F(CalibrationRecordingTest, WithoutACameraNobodyIsTold) {
    rig.state.LiveOpen = false;
    recording.Keep(0, recording.Read(0));
    EXPECT_THAT(Take(),
                ElementsAre("port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r", "DriverGetPosition"));
}

TEST_F(CalibrationRecordingTest, APointCountsAsCapturedEvenWhereNothingCouldBeReadUntilItIsFreed) {
    rig.driver.failing = {"DriverGetPosition"};
    EXPECT_FALSE(recording.IsCaptured(1));
    EXPECT_THROW(recording.Read(1), Failure);
    EXPECT_TRUE(recording.IsCaptured(1));
    EXPECT_FALSE(recording.IsCaptured(0));
    recording.Free(1);
    EXPECT_FALSE(recording.IsCaptured(1));
}

TEST_F(CalibrationRecordingTest, TheMarksStandWhenAllThreeAreCapturedInWhateverOrder) {
    recording.Read(3);
    recording.Read(2);
    recording.Read(0);
    EXPECT_FALSE(recording.MarksStand());
    recording.Read(1);
    EXPECT_TRUE(recording.MarksStand());
    recording.Free(0);
    EXPECT_FALSE(recording.MarksStand());
}

TEST_F(CalibrationRecordingTest, AStepBeginsWithNothingCaptured) {
    for (std::size_t point = 0; point < CtlCalibrationRecording::PointCount; ++point) {
        recording.Read(point);
    }
    recording.Begin();
    for (std::size_t point = 0; point < CtlCalibrationRecording::PointCount; ++point) {
        EXPECT_FALSE(recording.IsCaptured(point)) << point;
    }
}

TEST_F(CalibrationRecordingTest, EachPointIsKeptAsItsOwnOfThatNeedle) {
    for (std::size_t point = 0; point < 4; ++point) {
        const auto value = static_cast<std::int32_t>(point);
        recording.Keep(point, {2, {10 + value, 20 + value, 30 + value}});
    }
    for (std::int32_t point = 0; point < 4; ++point) {
        EXPECT_EQ(Kept(0, point), 10 + point);
        EXPECT_EQ(Kept(1, point), 20 + point);
        EXPECT_EQ(Kept(2, point), 30 + point);
    }
}

TEST_F(CalibrationRecordingTest, TheCentreIsKeptAsNoPointOfTheFullCalibration) {
    recording.Keep(4, {2, {7, 8, 9}});
    EXPECT_EQ(Kept(0, 0), 0);
    values.KeepReCalibration(2);
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        EXPECT_EQ(rig.ini.GetString(settings::CalibrationSection(2), settings::CenterKey(axis), QString()),
                  QString::number(7 + axis));
    }
}

TEST_F(CalibrationRecordingTest, EveryPointButTheRaisedOneTakesTheViewKnownNow) {
    const PositionXYZ first = MirrorToCommon({10, -5, 300});
    recording.Keep(0, {2, {1, 2, 3}});
    EXPECT_EQ(KeptZero(), first);
    rig.state.CurrentXY(40, 30);
    recording.Keep(3, {2, {1, 2, 3}});
    EXPECT_EQ(KeptZero(), first);
    for (const std::size_t point : {1, 2, 4}) {
        rig.state.CurrentXY(50 + static_cast<std::int32_t>(point), 30);
        recording.Keep(point, {2, {1, 2, 3}});
        EXPECT_EQ(KeptZero()[0], MirrorToCommon({50 + static_cast<std::int32_t>(point), 30, 300})[0]);
    }
}

TEST_F(CalibrationRecordingTest, TheCameraHearsTheEndOfTheActionAndThenWhatWasCaptured) {
    for (const std::size_t point : {0, 1, 2, 3}) {
        recording.Keep(point, {2, {1, 2, 3}});
        EXPECT_THAT(Take(), ElementsAre("LiveActionEnd", "LiveCalibPoints")) << point;
    }
    recording.Keep(4, {2, {1, 2, 3}});
    EXPECT_THAT(Take(), ElementsAre("LiveActionEnd", "LiveCalibCenter"));
}

TEST_F(CalibrationRecordingTest, ANeedleOutsideTheTablesIsRefusedAndTheCameraNotToldOfIt) {
    EXPECT_THROW(recording.Keep(0, {4, {1, 2, 3}}), BoundsFailure);
    EXPECT_THAT(Take(), IsEmpty());
    EXPECT_THROW(recording.Read(5), std::out_of_range);
}

}  // namespace
}  // namespace travo::test
