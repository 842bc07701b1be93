#include "workbench/tour/WindowMirrorAct.h"

#include <QPointF>
#include <array>
#include <cmath>
#include <numbers>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

const QString Pad = QStringLiteral("Mirror pad");
const QString MotorsOn = QStringLiteral("Motors on");
const QString MotorsOff = QStringLiteral("Motors off");
constexpr std::int16_t LastMagnification = 3;

// The wheel in parts of its width: the radii halfway through its two rings.
constexpr double InnerRadius = (27.5 + 50.5) / 2.0 / 165.0;
constexpr double OuterRadius = (50.5 + 82.5) / 2.0 / 165.0;

// An area of the pad: where it is pressed and which way it must move the mirror.
struct Area {
    QPointF middle;  // in parts of the pad's width, from its middle
    std::int32_t x = 0;
    std::int32_t y = 0;
};

constexpr std::size_t RingAreas = 8;
constexpr Area Centre{};

// Clockwise from the top. A press on the left raises X, one at the top raises Y.
Area RingArea(std::size_t eighth, double radius, std::int32_t step) {
    const double angle = static_cast<double>(eighth) * std::numbers::pi / 4.0;
    const double right = std::sin(angle);
    const double up = std::cos(angle);
    const auto way = [](double part) { return static_cast<std::int32_t>(std::lround(part * 1.2)); };
    return {{right * radius, -up * radius}, -step * way(right), step * way(up)};
}

std::array<Area, 2 * RingAreas> Rings() {
    std::array<Area, 2 * RingAreas> areas;
    for (std::size_t eighth = 0; eighth < RingAreas; ++eighth) {
        areas.at(eighth) = RingArea(eighth, OuterRadius, 10);
        areas.at(RingAreas + eighth) = RingArea(eighth, InnerRadius, 1);
    }
    return areas;
}

void PressArea(Stage& stage, const Area& area) {
    Hands hands = AtMirror(stage);
    const double side = hands.SizeOf(Pad).width();
    hands.PressAt(Pad, (QPointF(side, side) / 2.0 + area.middle * side).toPoint());
}

std::int64_t MovesAsked(Stage& stage) {
    auto counters = stage.Workbench().WireCounters("mirror");
    return counters["cD1A"] + counters["cD2A"];
}

// Presses all 17 areas, and nothing may go out.
void TryDeadPad(Stage& stage, const std::string& why) {
    Require(!AtMirror(stage).Enabled(Pad), "the pad is open " + why);
    const std::int64_t asked = MovesAsked(stage);
    const auto before = stage.Workbench().Mirror();
    PressArea(stage, Centre);
    for (const Area& area : Rings()) {
        PressArea(stage, area);
    }
    stage.WaitOneTick();
    Require(MovesAsked(stage) == asked && stage.Workbench().Mirror().atRest == before.atRest,
            "the pad moves the mirror " + why);
    stage.RequireBoxesAsExpected();
}

void RequireObjective(Stage& stage, std::int16_t index) {
    for (std::int16_t other = 1; other <= LastMagnification; ++other) {
        Require(AtMagnification(stage).PressedIn(MagnificationName(other)) == (other == index),
                "the buttons do not show " + MagnificationName(index).toStdString());
    }
}

void ChangeObjectives(Stage& stage) {
    for (const std::int16_t index : std::array<std::int16_t, 4>{2, 3, 1, 3}) {
        PressMagnification(stage, index);
        RequireObjective(stage, index);
        Require(AtMirror(stage).Enabled(Pad) == (index != 1), "the pad does not follow the magnification");
    }
    for (const std::int16_t index : std::array<std::int16_t, 2>{1, 2}) {
        stage.Workbench().SetMagnification(index);
        stage.WaitUntil([&] { return stage.State().CurrentMagnification() == index; },
                        "a magnification set by hand is not reported");
        RequireObjective(stage, index);
    }
    PrintLine(
        "magnification: 2x, 4x, 0.35x, 4x by button, the world has each; 0.35x and 2x by hand, the buttons "
        "follow");
}

void RequireMotors(Stage& stage, bool on) {
    stage.WaitUntil([&] { return stage.State().bMirrorMotorONOFF == on; },
                    "the mirror's motors are not reported as switched");
    Require(stage.Workbench().Mirror().motorsOn == on, "the world has the mirror's motors otherwise");
    const Hands hands = AtMagnification(stage);
    Require(hands.PressedIn(MotorsOn) == on && hands.PressedIn(MotorsOff) == !on,
            "On and Off do not show the motors");
    for (std::int16_t index = 1; index <= LastMagnification; ++index) {
        Require(hands.Enabled(MagnificationName(index)) == on, "the objectives do not go with the motors");
    }
    Require(AtMirror(stage).Enabled(Pad) == on, "the pad does not go with the motors");
}

void SwitchMotors(Stage& stage) {
    AtMagnification(stage).Press(MotorsOff);
    RequireMotors(stage, false);
    AtMagnification(stage).Press(MotorsOn);
    RequireMotors(stage, true);
    stage.Workbench().SwitchMirrorMotors(false);
    RequireMotors(stage, false);
    TryDeadPad(stage, "with the motors off");
    stage.Workbench().SwitchMirrorMotors(true);
    RequireMotors(stage, true);
    PrintLine(
        "motors: Off and On by button, the world as well; off and on by hand, the buttons follow, and "
        "objectives and pad go dead and come back");
}

}  // namespace

void PlayWindowMagnificationAct(Stage& stage) {
    stage.WaitUntil([&] { return AtMagnification(stage).PressedIn(MagnificationName(1)); },
                    "the buttons do not show 0.35x after the start");
    TryDeadPad(stage, "at 0.35x");
    ChangeObjectives(stage);
    SwitchMotors(stage);
    PrintLine("pad at 0.35x and with motors off: all 17 areas pressed, no command, mirror still");
}

void PlayWindowPadAct(Stage& stage) {
    std::int32_t x = 25;
    std::int32_t y = -15;
    TurnMirror(stage, x, y);
    for (const Area& area : Rings()) {
        PressArea(stage, area);
        x += area.x;
        y += area.y;
        WaitForView(stage, x, y);
        const auto world = stage.Workbench().Mirror();
        Require(world.now[0] == x && world.now[1] == y && world.atRest == world.now,
                "the world's mirror is not where the pad sends it");
    }
    PressArea(stage, Centre);
    WaitForView(stage, 0, 0);
    const auto world = stage.Workbench().Mirror();
    Require(world.now[0] == 0.0 && world.now[1] == 0.0, "the mirror is not at its centre");
    stage.RequireBoxesAsExpected();
    PrintLine(
        "pad at 2x: eight areas by 10, eight by 1, X mirrored, each as the world says; the centre: (0, 0)");
}

void PlayWindowFocusAct(Stage& stage) {
    constexpr std::array<std::int32_t, 4> ways{1000, 100, -100, -1000};
    const std::array<const char*, 4> names{"Focus up 1000", "Focus up 100", "Focus down 100",
                                           "Focus down 1000"};
    std::int32_t expected = stage.Workbench().Focus().countsAtRest;
    const std::int32_t before = expected;
    for (std::size_t button = 0; button < ways.size(); ++button) {
        AtMirror(stage).Press(QLatin1String(names.at(button)));
        expected += ways.at(button);
        stage.WaitUntil([&] { return stage.Workbench().Focus().counts == expected; },
                        std::string(names.at(button)) + " does not move the focus by just that");
        Require(stage.Workbench().Focus().countsAtRest == expected, "the focus moves further");
        WaitForZ(stage, static_cast<std::int32_t>(std::lround(stage.Workbench().Gauge().reading)));
    }
    Require(expected == before, "the focus is not back");
    stage.RequireBoxesAsExpected();
    PrintLine(
        "focus: +1000, +100, -100, -1000 counts by its four buttons, the world's motor and the gauge as "
        "well");
}

}  // namespace workbench::tour
