#include "workbench/tour/WireFaultAct.h"

#include <array>
#include <functional>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

struct Link {
    const char* wire;
    std::function<void()> open;
    std::function<bool()> isOpen;
    std::function<void()> prove;  // the link works: ActFailure if it does not
    std::function<bool()> knows;  // what its instrument tells is known
};

// Each proof asks for something new, so that no value of before can be taken for the answer.
std::array<Link, 3> LinksOf(Stage& stage) {
    travo::clsCommunication& instruments = *stage.Objects().cCommunication;
    return {
        {{"mirror", [&] { instruments.MirrorPortOpen(1); }, [&] { return instruments.MirrorPortOpenCheck(); },
          [&stage] {
              const std::int32_t x = stage.State().CurrentXYZ(0) == 20 ? -20 : 20;
              stage.Objects().cMirrorMove->MirrorMoveToCell({x, 5, stage.State().CurrentXYZ(2)});
              WaitForView(stage, x, 5);
          },
          [&stage] {
              return stage.State().CurrentXYZ(0) != travo::NoPositionValue ||
                     stage.State().CurrentXYZ(1) != travo::NoPositionValue;
          }},
         {"gauge", [&] { instruments.MagnescalePortOpen(2); },
          [&] { return instruments.MagnescalePortOpenCheck(); },
          [&stage] {
              const std::int32_t z = stage.State().CurrentXYZ(2) > 10 ? 0 : 30;
              stage.Workbench().MoveFocus((z + 40) * 100);
              WaitForZ(stage, z);
          },
          [&stage] { return stage.State().CurrentXYZ(2) != travo::NoPositionValue; }},
         {"motor", [&] { instruments.MotorPortOpen(3); }, [&] { return instruments.MotorPortOpenCheck(); },
          [&stage, &instruments] {
              const std::int32_t before = stage.Workbench().Focus().countsAtRest;
              instruments.MotorMoveRZ(500);
              // At rest: the way back is counted from where the motor stands when it is told.
              stage.WaitUntil([&] { return stage.Workbench().Focus().counts == before + 500; },
                              "the focus motor does not move");
              instruments.MotorMoveRZ(-500);
              stage.WaitUntil([&] { return stage.Workbench().Focus().counts == before; },
                              "the focus motor does not come back");
          },
          [&stage] { return stage.State().bMotorONOFF; }}}};
}

void CutLines(Stage& stage, const Link& link) {
    for (const int place : {1, 4, 7}) {
        stage.Workbench().Fault(std::string(link.wire) + " cut " + std::to_string(place));
        stage.WaitOneTick();
        link.prove();
    }
    PrintLine(std::string(link.wire) + ": lines cut at three places, the next ones are understood");
}

void PullAndRestore(Stage& stage, const Link& link) {
    Require(link.knows(), std::string(link.wire) + ": nothing is known of it");
    stage.Workbench().PullCable(link.wire);
    stage.WaitUntil([&] { return !link.isOpen(); }, "a port whose cable is pulled does not close");
    stage.WaitOneTick();
    Require(!link.knows(), std::string(link.wire) + ": what it told is not forgotten with its port");
    stage.RequireBoxesAsExpected();
    stage.Workbench().PlugCable(link.wire);
    link.open();
    Require(link.isOpen(), std::string(link.wire) + ": the port does not open again");
    link.prove();
    PrintLine(std::string(link.wire) +
              ": cable pulled, port closed without a box, what it told forgotten; restored, works again");
}

void FloodWithNoise(Stage& stage, const Link& link) {
    stage.Boxes().Tolerate(true);
    stage.Workbench().Fault(std::string(link.wire) + " noise 3000");
    for (int tick = 0; tick < 20; ++tick) {
        stage.WaitOneTick();
    }
    // What noise has left behind ends with the next whole line.
    stage.Workbench().Fault(std::string(link.wire) + " silent off");
    link.prove();
    stage.Boxes().Tolerate(false);
    const auto boxes = stage.Boxes().TakeSeen().size();
    PrintLine(std::string(link.wire) + ": 3000 bytes of noise, " + std::to_string(boxes) +
              " boxes answered, works again");
}

}  // namespace

void PlayWireFaultAct(Stage& stage) {
    PrintHeading("Act 2, continued: what goes wrong on wires");
    stage.Boxes().TakeSeen();
    for (const Link& link : LinksOf(stage)) {
        link.prove();
        CutLines(stage, link);
        PullAndRestore(stage, link);
        FloodWithNoise(stage, link);
    }
    for (const Link& link : LinksOf(stage)) {
        link.prove();
    }
    PrintLine("all three links work at the end");
    stage.CloseProgram();
}

}  // namespace workbench::tour
