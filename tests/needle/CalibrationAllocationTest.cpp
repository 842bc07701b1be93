// A program of its own, since it counts every allocation.
#include "NeedleRig.h"
#include "support/CountedAllocations.h"

namespace travo::test {
namespace {

class CalibrationAllocationTest : public NeedleRig {
protected:
    CalibrationAllocationTest() {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            CalibrateFromPoints(needle, needle % 2 == 0 ? TiltedNeedle : ReversedNeedle, {100, -200, 0});
        }
    }
};

TEST_F(CalibrationAllocationTest, TheCounterCounts) {
    const long before = Allocations();
    const auto something = std::make_unique<int>(1);
    EXPECT_EQ(Allocations(), before + 1);
    EXPECT_EQ(*something, 1);
}

TEST_F(CalibrationAllocationTest, CalibrationAndInverseCalibrationAllocateNothing) {
    const long before = Allocations();
    std::int64_t sum = 0;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            sum += needles.Calibration(needle, axis, {11000, 21000, 5100});
            sum += needles.InverseCalibration(needle, axis, {1100, -1200, 100});
        }
    }
    EXPECT_EQ(Allocations(), before);
    EXPECT_NE(sum, 0);
}

TEST_F(CalibrationAllocationTest, TheContactCheckAllocatesNothing) {
    const long before = Allocations();
    const bool clear = needles.ContactEvasion(0, -1, {1100, -1200, 100});
    bool all = clear;
    for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
        all = needles.ContactEvasion(needle, 3, {1100, -1200, 100}) || all;
    }
    EXPECT_EQ(Allocations(), before);
    EXPECT_TRUE(clear);
    EXPECT_TRUE(all);
}

}  // namespace
}  // namespace travo::test
