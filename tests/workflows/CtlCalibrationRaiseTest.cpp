// The way of the objective between marks and raised focus, without a panel.
#include "workflows/CtlCalibrationRaise.h"

#include <gmock/gmock.h>

#include "support/PanelRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CalibrationRaiseTest : public ::testing::Test, private CtlCalibrationRaise::Listener {
protected:
    Journal Take() { return std::exchange(rig.journal, {}); }

    // Once each move of the motor has locked its buttons.
    Journal TakeMoves() {
        Journal moves = Take();
        std::erase(moves, "ControlONOFF 0");
        return moves;
    }

    PanelRig rig;
    CtlCalibrationRaise raise{rig.communication, rig.failures, *this};

private:
    void ObjectiveRaised(bool isRaised) override {
        rig.journal.push_back(isRaised ? "objective is raised" : "objective is back");
    }
};

TEST_F(CalibrationRaiseTest, GoesUpByTheMotorIsToldAndThenTheOperatorReadsWhatIsLeftToDo) {
    rig.OpenPorts();
    raise.Raise();
    EXPECT_THAT(TakeMoves(), ElementsAre("port 3 > RELMOVEZ10000\r", "objective is raised",
                                         "box Adjust manipulator Z axis until needle tip is in focus.\r\n"
                                         "Do not adjust focus knob on microscope."));
}

TEST_F(CalibrationRaiseTest, ComesDownByTheSameDistanceWithoutABox) {
    rig.OpenPorts();
    raise.Raise();
    Take();
    raise.Lower();
    EXPECT_THAT(TakeMoves(), ElementsAre("port 3 > RELMOVEZ-10000\r", "objective is back"));
}

TEST_F(CalibrationRaiseTest, IsRaisedAsLongAsARaiseHasNotBeenTakenBack) {
    rig.OpenPorts();
    raise.Raise();
    raise.Raise();
    Take();
    raise.Lower();
    EXPECT_EQ(TakeMoves().back(), "objective is raised");
    raise.Lower();
    EXPECT_EQ(TakeMoves().back(), "objective is back");
    // A lowering too many is owed by the next raise.
    raise.Lower();
    Take();
    raise.Raise();
    EXPECT_THAT(TakeMoves(), ::testing::Contains("objective is back"));
}

TEST_F(CalibrationRaiseTest, WithoutTheMotorTheOperatorRaisesByHandAndNothingIsLoweredOrCounted) {
    rig.journal.clear();
    raise.Raise();
    EXPECT_THAT(Take(), ElementsAre("box Please raise object lens\r\nand calibrate the direction of Z"));
    raise.Lower();
    EXPECT_THAT(Take(), IsEmpty());
}

}  // namespace
}  // namespace travo::test
