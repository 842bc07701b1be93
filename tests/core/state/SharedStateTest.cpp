#include "core/state/SharedState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/ground/Arithmetic.h"

namespace travo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SharedStateTest : public testing::Test, public SharedState::Listener {
protected:
    void MagnificationChanged(std::int16_t magnification) override {
        told.push_back("magnification " + std::to_string(magnification) + " stored " +
                       std::to_string(state.CurrentMagnification()));
    }
    void ViewChanged() override {
        told.push_back("view " + std::to_string(state.CurrentXYZ(0)) + " " +
                       std::to_string(state.CurrentXYZ(1)) + " " + std::to_string(state.CurrentXYZ(2)));
    }

    SharedState state{*this};
    std::vector<std::string> told;
};

TEST_F(SharedStateTest, StartsWithoutNeedlesViewCellsOrReports) {
    EXPECT_EQ(state.intTotalManipulatorNumber, -1);
    EXPECT_EQ(state.intManipulatorNumber, -1);
    EXPECT_FALSE(state.bMotorONOFF);
    EXPECT_FALSE(state.bMirrorMotorONOFF);
    EXPECT_FALSE(state.LiveOpen);
    EXPECT_EQ(state.ShiftX, 0.0);
    EXPECT_EQ(state.ShiftY, 0.0);
    EXPECT_EQ(state.intMagnification(), 0);
    EXPECT_EQ(state.CurrentXYZ(), (PositionXYZ{-100000, -100000, -100000}));
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        EXPECT_EQ(state.ZeroXYZ(axis), 0);
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            EXPECT_EQ(state.Needle(needle, axis), 0);
            EXPECT_FALSE(state.CalibrationON(needle));
        }
        for (std::int32_t cell = 0; cell < CellCount; ++cell) {
            EXPECT_EQ(state.CellPosition(cell, axis), NoPositionValue);
        }
    }
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, CurrentXYZTellsOnlyWhenTheValueDiffers) {
    state.CurrentXYZ(2, NoPositionValue);
    EXPECT_THAT(told, IsEmpty());
    state.CurrentXYZ(2, 1500);
    state.CurrentXYZ(2, 1500);
    state.CurrentXYZ(0, 7);
    EXPECT_THAT(told, ElementsAre("view -100000 -100000 1500", "view 7 -100000 1500"));
}

TEST_F(SharedStateTest, CurrentXYTellsOnceForBothAxesAlsoWhenEqual) {
    state.CurrentXY(3, -4);
    state.CurrentXY(3, -4);
    EXPECT_THAT(told, ElementsAre("view 3 -4 -100000", "view 3 -4 -100000"));
}

TEST_F(SharedStateTest, ZeroXYZTellsAlsoWhenEqual) {
    state.ZeroXYZ(2, 250);
    state.ZeroXYZ(2, 250);
    EXPECT_EQ(state.ZeroXYZ(2), 250);
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(SharedStateTest, StoreZeroXYZTellsNobody) {
    state.StoreZeroXYZ(2, 250);
    EXPECT_EQ(state.ZeroXYZ(2), 250);
    EXPECT_EQ(state.ZeroXYZ(0), 0);
    EXPECT_EQ(state.ZeroXYZ(1), 0);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, CurrentMagnificationIsStoredAndThenToldAlsoWhenEqual) {
    state.CurrentMagnification(2);
    state.CurrentMagnification(2);
    state.CurrentMagnification(0);
    state.CurrentMagnification(3);
    EXPECT_THAT(told, ElementsAre("magnification 2 stored 2", "magnification 2 stored 2",
                                  "magnification 0 stored 0", "magnification 3 stored 3"));
}

TEST_F(SharedStateTest, AMagnificationOf4ChangesNothingAndTellsNobody) {
    state.CurrentMagnification(3);
    told.clear();
    for (const std::int16_t outside : {std::int16_t{4}, std::int16_t{-1}, std::int16_t{32767}}) {
        state.CurrentMagnification(outside);
        EXPECT_EQ(state.CurrentMagnification(), 3);
        EXPECT_EQ(state.intMagnification(), 3);
    }
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, ClearMagnificationTellsNobody) {
    state.CurrentMagnification(1);
    told.clear();
    state.ClearMagnification();
    EXPECT_EQ(state.CurrentMagnification(), 0);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, NeedleHoldsEachNeedleAndAxisByItselfAndTellsNobody) {
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            state.Needle(needle, axis, 10 * needle + axis + 1);
        }
    }
    EXPECT_EQ(state.Needle(3, 2), 33);
    const std::array<PositionXYZ, NeedleCount> all{{{1, 2, 3}, {11, 12, 13}, {21, 22, 23}, {31, 32, 33}}};
    EXPECT_EQ(state.Needles(), all);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, CellPositionHoldsEachOfTheEightCellsAndTellsNobody) {
    for (std::int32_t cell = 0; cell < CellCount; ++cell) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            state.CellPosition(cell, axis, 10 * cell + axis);
        }
    }
    for (std::int32_t cell = 0; cell < CellCount; ++cell) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            EXPECT_EQ(state.CellPosition(cell, axis), 10 * cell + axis);
        }
    }
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, CalibrationONHoldsEachNeedleAndTellsNobody) {
    state.CalibrationON(2, true);
    EXPECT_TRUE(state.CalibrationON(2));
    EXPECT_FALSE(state.CalibrationON(1));
    EXPECT_FALSE(state.CalibrationON(3));
    state.CalibrationON(2, false);
    EXPECT_FALSE(state.CalibrationON(2));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SharedStateTest, AnIndexBeyondItsBoundsIsAnErrorThatChangesAndTellsNothing) {
    for (const std::int32_t axis : {-1, 3}) {
        EXPECT_THROW(state.CurrentXYZ(axis), BoundsFailure);
        EXPECT_THROW(state.CurrentXYZ(axis, 1), BoundsFailure);
        EXPECT_THROW(state.ZeroXYZ(axis), BoundsFailure);
        EXPECT_THROW(state.ZeroXYZ(axis, 1), BoundsFailure);
        EXPECT_THROW(state.StoreZeroXYZ(axis, 1), BoundsFailure);
        EXPECT_THROW(state.Needle(0, axis), BoundsFailure);
        EXPECT_THROW(state.Needle(0, axis, 1), BoundsFailure);
        EXPECT_THROW(state.CellPosition(0, axis), BoundsFailure);
        EXPECT_THROW(state.CellPosition(0, axis, 1), BoundsFailure);
    }
    for (const std::int32_t needle : {-1, 4}) {
        EXPECT_THROW(state.Needle(needle, 0), BoundsFailure);
        EXPECT_THROW(state.Needle(needle, 0, 1), BoundsFailure);
        EXPECT_THROW(state.CalibrationON(needle), BoundsFailure);
        EXPECT_THROW(state.CalibrationON(needle, true), BoundsFailure);
    }
    for (const std::int32_t cell : {-1, 8}) {
        EXPECT_THROW(state.CellPosition(cell, 0), BoundsFailure);
        EXPECT_THROW(state.CellPosition(cell, 0, 1), BoundsFailure);
    }
    EXPECT_EQ(state.Needles(), (std::array<PositionXYZ, NeedleCount>{}));
    EXPECT_EQ(state.CurrentXYZ(), (PositionXYZ{-100000, -100000, -100000}));
    EXPECT_THAT(told, IsEmpty());
}

}  // namespace
}  // namespace travo
