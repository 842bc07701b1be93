// The needle that the hardware has, without a panel.
#include "experiment/view/SelectedNeedle.h"

#include <gmock/gmock.h>

#include "core/ground/Arithmetic.h"
#include "support/PanelRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SelectedNeedleRunTest : public ::testing::Test, private NeedleReader {
protected:
    SelectedNeedleRunTest() {
        rig.state.intTotalManipulatorNumber = 3;
        rig.state.intManipulatorNumber = 1;
        rig.journal.clear();
    }

    PanelRig rig;
    int readings = 0;
    bool canRead = true;
    std::int16_t reading = 1;  // what the next reading finds
    SelectedNeedle selected{{rig.state, rig.communication, *this}};

private:
    bool ManipulatorReload() override {
        ++readings;
        if (canRead) {
            rig.state.intManipulatorNumber = reading;
        }
        return canRead;
    }
};

TEST_F(SelectedNeedleRunTest, IsTheOneReadLastAndNothingIsReadForIt) {
    EXPECT_EQ(selected.Index(), 1);
    EXPECT_TRUE(selected.IsKnown());
    EXPECT_TRUE(selected.Is(1));
    EXPECT_EQ(readings, 0);
}

TEST_F(SelectedNeedleRunTest, IsReadOnceWhereAnotherOneIsAskedAbout) {
    EXPECT_FALSE(selected.Is(2));
    EXPECT_EQ(readings, 1);
    reading = 2;
    EXPECT_TRUE(selected.Is(2));
    EXPECT_EQ(readings, 2);
}

TEST_F(SelectedNeedleRunTest, AChoiceIsSentByTheNumberThatCountsFromOneAndProvedByTheNextReading) {
    selected.Choose(2);
    EXPECT_THAT(rig.journal, ElementsAre("DriverSelect 3"));
    EXPECT_EQ(selected.Index(), 1);
    reading = 2;
    EXPECT_TRUE(selected.Is(2));
    EXPECT_EQ(readings, 1);
    EXPECT_TRUE(selected.Is(2));
    EXPECT_EQ(readings, 1) << "known from here on";
}

TEST_F(SelectedNeedleRunTest, AChoiceOfTheKnownOneIsNotSentAndKeepsAnEarlierChoiceUnproved) {
    selected.Choose(1);
    EXPECT_THAT(rig.journal, IsEmpty());
    EXPECT_TRUE(selected.Is(1));
    EXPECT_EQ(readings, 0);
    // There and back within a tick: lamp and last reading agree, the hardware has the other one.
    selected.Choose(2);
    selected.Choose(1);
    reading = 2;
    EXPECT_FALSE(selected.Is(1));
    EXPECT_EQ(readings, 1);
}

TEST_F(SelectedNeedleRunTest, AReadingOfSomebodyElseProvesAChoiceAsWell) {
    selected.Choose(2);
    rig.state.intManipulatorNumber = 2;
    selected.HasBeenRead();
    EXPECT_TRUE(selected.Is(2));
    EXPECT_EQ(readings, 0);
}

TEST_F(SelectedNeedleRunTest, WhereNothingCanBeReadAChoiceStaysUnproved) {
    selected.Choose(2);
    rig.state.intManipulatorNumber = 2;
    canRead = false;
    EXPECT_FALSE(selected.Is(2));
    canRead = true;
    reading = 2;
    EXPECT_TRUE(selected.Is(2));
    EXPECT_EQ(readings, 2);
}

TEST_F(SelectedNeedleRunTest, WithNoneKnownNothingIsReadAndNoneHasAPlace) {
    for (const std::int16_t none : {std::int16_t{-1}, std::int16_t{4}}) {
        rig.state.intManipulatorNumber = none;
        EXPECT_FALSE(selected.IsKnown());
        EXPECT_THROW(selected.Place(), BoundsFailure);
    }
    rig.state.intManipulatorNumber = -1;
    EXPECT_FALSE(selected.Is(0));
    EXPECT_EQ(readings, 0);
}

TEST_F(SelectedNeedleRunTest, StandsWhereItsRowOfTheTableSays) {
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        rig.state.Needle(1, axis, 100 + axis);
    }
    EXPECT_EQ(selected.Place(), (PositionXYZ{100, 101, 102}));
}

}  // namespace
}  // namespace travo::test
