// The calibrations that a load restores.
#include "core/owner/OwnerRig.h"

namespace travo::test {

namespace {

using StartUpCalibrationTest = OwnerRig;

TEST_F(StartUpCalibrationTest, AStoredCalibrationIsRestoredAndMapsThePosition) {
    WriteSettings(CalibrationText(0));
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(state_->CalibrationON(0));
    EXPECT_FALSE(state_->CalibrationON(1));
    EXPECT_EQ(CountOf("time 0 26/11/21    09:30 0"), 1);
    EXPECT_EQ(CountOf("time 0 -1 1"), 1);
    // The needle stands at (100, 200, 300): zero + counts - centre.
    EXPECT_EQ(state_->Needle(0, 0), 100 + 100 - 10000);
    EXPECT_EQ(state_->Needle(0, 1), -200 + 200 - 22000);
    EXPECT_EQ(state_->Needle(0, 2), 0 + 300 - 5000);
}

TEST_F(StartUpCalibrationTest, ASingleUnreadPointClearsTheCalibrationOfThatNeedleAlone) {
    QByteArray damaged = CalibrationText(1);
    damaged.replace("Index:2,XYZ:1=24000\r\n", "");
    WriteSettings(CalibrationText(0) + damaged + CalibrationText(2) + CalibrationText(3));
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(state_->CalibrationON(0));
    EXPECT_FALSE(state_->CalibrationON(1));
    EXPECT_EQ(CountOf("time 1 26/11/21    09:30 0"), 0) << "no times are shown for it";
    EXPECT_TRUE(state_->CalibrationON(2));
    EXPECT_TRUE(state_->CalibrationON(3));
}

TEST_F(StartUpCalibrationTest, AMissingZeroClearsTheCalibration) {
    QByteArray damaged = CalibrationText(0);
    damaged.replace("ZERO,XYZ:2=0\r\n", "ZERO,XYZ:2=-100000\r\n");
    WriteSettings(damaged);
    EXPECT_TRUE(Begin());
    EXPECT_FALSE(state_->CalibrationON(0));
}

TEST_F(StartUpCalibrationTest, ADamagedCalibrationValueCountsAsMeasuredAtZero) {
    QByteArray damaged = CalibrationText(0);
    damaged.replace("ZERO,XYZ:0=100", "ZERO,XYZ:0=abc");
    WriteSettings(damaged);
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(state_->CalibrationON(0));
    EXPECT_EQ(objects_->cNeedleMove->PosZero(0, 0), 0);
}

TEST_F(StartUpCalibrationTest, TheStoredCentreOverridesTheComputedOneAndIsUnsetWhenNeverWritten) {
    QByteArray withoutCentre = CalibrationText(0);
    withoutCentre.replace("Center,", "Elsewhere,");
    WriteSettings(withoutCentre);
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(state_->CalibrationON(0));
    // zero + counts - centre, with the centre at "not set".
    EXPECT_EQ(state_->Needle(0, 0), 100 + 100 + 100000);
}

TEST_F(StartUpCalibrationTest, ACalibrationBeyondThirtyTwoBitsIsReportedAndTheLoadGoesOn) {
    QByteArray damaged = CalibrationText(0);
    damaged.replace("Index:1,XYZ:0=7000", "Index:1,XYZ:0=2147483647");
    WriteSettings(damaged);
    EXPECT_TRUE(Begin());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Calibration calculation failed")});
    EXPECT_TRUE(state_->CalibrationON(0));
}

}  // namespace

}  // namespace travo::test
