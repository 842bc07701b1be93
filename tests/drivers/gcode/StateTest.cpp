// States and faults that only one kind of controller has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/simulator/GrblController.h"
#include "drivers/gcode/simulator/MarlinController.h"
#include "drivers/gcode/simulator/OmmController.h"

namespace gcode::test {
namespace {

using std::chrono::milliseconds;
using ::testing::HasSubstr;

TEST(GcodeFaultOfGrblTest, InEveryStateInWhichNothingMayMoveReadingsAndMovesFailAndNothingIsSentToEndIt) {
    for (const std::string state : {"Alarm", "Hold:0", "Hold:1", "Door:0", "Door:1", "Door:2", "Door:3",
                                    "Sleep", "Check", "Home", "Tool"}) {
        for (const bool asksForMove : {false, true}) {
            NeedleRig rig(DialectName::Grbl);
            Counts counts{};
            ASSERT_EQ(rig.Count(), 1);
            auto& grbl = dynamic_cast<GrblController&>(rig.ControllerOf());
            grbl.Enter(state);
            grbl.ForgetHeard();
            EXPECT_EQ(asksForMove ? rig.driver->MoveTo({9600, 12500, 12500}) : rig.Read(counts),
                      Status::NotReady)
                << state;
            EXPECT_THAT(rig.LogText(), HasSubstr("the controller is in state " + state.substr(0, 4)));
            EXPECT_THAT(grbl.Heard(), ::testing::Each("?")) << state;
            EXPECT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::NotConnected);
            // The port is free for travo-gcode; connecting anew finds the same state.
            rig.driver->Reconnect();
            EXPECT_EQ(rig.Count(), 0) << state;
            EXPECT_EQ(rig.MovesHeard(), 0) << state;
            grbl.Enter("");
            rig.driver->Reconnect();
            EXPECT_EQ(rig.Count(), 1) << state;
        }
    }
}

TEST(GcodeFaultOfGrblTest, AnAlarmInAMoveFailsWithItsSentence) {
    NeedleRig rig(DialectName::Grbl);
    Counts counts{};
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(300));
    dynamic_cast<GrblController&>(rig.ControllerOf()).RaiseAlarm(1, rig.ports.clock.now);
    EXPECT_EQ(rig.Read(counts), Status::NotReady);
    EXPECT_THAT(rig.LogText(), HasSubstr("ALARM:1, a limit switch was hit"));
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
}

TEST(GcodeFaultOfGrblTest, ADoorThatOpensInAMoveFails) {
    NeedleRig rig(DialectName::Grbl);
    Counts counts{};
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(300));
    dynamic_cast<GrblController&>(rig.ControllerOf()).OpenDoor(rig.ports.clock.now);
    EXPECT_EQ(rig.Read(counts), Status::NotReady);
    EXPECT_THAT(rig.LogText(), HasSubstr("Door:1"));
}

TEST(GcodeFaultOfMarlinTest, AKilledControllerIsSilentAndStaysUntouched) {
    NeedleRig rig(DialectName::Marlin);
    Counts counts{};
    ASSERT_EQ(rig.Count(), 1);
    dynamic_cast<MarlinController&>(rig.ControllerOf()).Kill(rig.ports.clock.now);
    EXPECT_EQ(rig.Read(counts), Status::Silent);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
}

TEST(GcodeFaultOfOmmTest, WithoutAWordOnHomingInM57ItMustHaveBeenHomedByTravoGcode) {
    NeedleRig rig(DialectName::Omm);
    dynamic_cast<OmmController&>(rig.ControllerOf()).TellHomed(false);
    EXPECT_EQ(rig.Count(), 1) << rig.LogText();
    rig.WriteState("");
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("it is not homed: home it with travo-gcode"));
}

}  // namespace
}  // namespace gcode::test
