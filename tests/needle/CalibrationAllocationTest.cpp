// A program of its own, since it counts every allocation.
#include <atomic>
#include <cstdlib>
#include <new>

#include "NeedleFixture.h"

namespace {

std::atomic<long> allocations{0};

void* Counted(std::size_t size) {
    ++allocations;
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Counted(size); }
void* operator new[](std::size_t size) { return Counted(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace travo::test {
namespace {

class CalibrationAllocation : public NeedleTest {
protected:
    CalibrationAllocation() {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            CalibrateFromPoints(needle, needle % 2 == 0 ? TiltedNeedle : ReversedNeedle, {100, -200, 0});
        }
    }
};

TEST_F(CalibrationAllocation, TheCounterCounts) {
    const long before = allocations;
    const auto something = std::make_unique<int>(1);
    EXPECT_EQ(allocations, before + 1);
    EXPECT_EQ(*something, 1);
}

TEST_F(CalibrationAllocation, CalibrationAndInverseCalibrationAllocateNothing) {
    const long before = allocations;
    std::int64_t sum = 0;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            sum += needles.Calibration(needle, axis, {11000, 21000, 5100});
            sum += needles.InverseCalibration(needle, axis, {1100, -1200, 100});
        }
    }
    EXPECT_EQ(allocations, before);
    EXPECT_NE(sum, 0);
}

TEST_F(CalibrationAllocation, TheContactCheckAllocatesNothing) {
    const long before = allocations;
    const bool clear = needles.ContactEvasion(0, -1, {1100, -1200, 100});
    bool all = clear;
    for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
        all = needles.ContactEvasion(needle, 3, {1100, -1200, 100}) || all;
    }
    EXPECT_EQ(allocations, before);
    EXPECT_TRUE(clear);
    EXPECT_TRUE(all);
}

}  // namespace
}  // namespace travo::test
