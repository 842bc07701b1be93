#include "workbench/commands/OpticsCommands.h"

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::int32_t AxisX = Microscope::AxisX;
constexpr std::int32_t AxisY = Microscope::AxisY;

std::string MirrorState(const Microscope& optics, Time now) {
    return Text(PlanPoint{optics.MirrorNow(AxisX, now), optics.MirrorNow(AxisY, now)}) +
           Text(PlanPoint{optics.MirrorAtRest(AxisX), optics.MirrorAtRest(AxisY)}) +
           Flag(optics.MirrorMotorsOn()) + Flag(optics.AtLimit(AxisX)) + Flag(optics.AtLimit(AxisY));
}

void MoveMirror(Microscope& optics, std::int32_t axis, std::int64_t target, Time now) {
    if (optics.MoveMirror(axis, target, now) == MirrorMove::MotorsOff) {
        throw travo::Failure("the mirror's motors are off");
    }
}

std::string MoveMirrorTo(Microscope& optics, const Words& words, Time now) {
    const std::int32_t x = IntegerAt(words, 0);
    const std::int32_t y = IntegerAt(words, 1);
    MoveMirror(optics, AxisX, x, now);
    MoveMirror(optics, AxisY, y, now);
    return {};
}

// An axis that is not jogged goes on as it goes.
std::string JogMirror(Microscope& optics, const Words& words, Time now) {
    const std::int32_t x = IntegerAt(words, 0);
    const std::int32_t y = IntegerAt(words, 1);
    if (x != 0) {
        MoveMirror(optics, AxisX, std::int64_t{optics.MirrorCount(AxisX, now)} + x, now);
    }
    if (y != 0) {
        MoveMirror(optics, AxisY, std::int64_t{optics.MirrorCount(AxisY, now)} + y, now);
    }
    return {};
}

std::string SwitchMotors(Microscope& optics, const Words& words, Time now) {
    optics.SwitchMirrorMotors(SwitchAt(words, 0), now);
    return {};
}

std::string FocusState(const Microscope& optics, Time now) {
    return Blanked({Text(optics.FocusNow(now)), Text(optics.FocusAtRest()),
                    std::to_string(optics.FocusCount(now)), std::to_string(optics.FocusCountAtRest())});
}

std::string MoveFocus(Microscope& optics, std::int64_t target, Time now) {
    if (!optics.MoveFocus(target, now)) {
        throw travo::BoundsFailure("the focus reaches 4000000 counts to both sides");
    }
    return {};
}

std::string GaugeState(const Microscope& optics, Time now) {
    return Blanked({Text(optics.GaugeReading(now)), Text(optics.GaugeZero())});
}

std::string NeedlesText(const World& world, Time now) {
    std::string text = Blanked({std::to_string(travo::NeedleCount)});
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        text += Flag(needle < world.ConnectedNeedles()) + Text(world.TipNow(needle, now)) +
                Text(world.ShaftNow(needle, now).rear);
    }
    return text;
}

std::string CellsText() {
    std::string text = Blanked({std::to_string(World::Cells().size())});
    for (const Cell& cell : World::Cells()) {
        text += Text(cell.Place()) + Blanked({Text(cell.radius)});
    }
    return text;
}

std::string CameraState(const World& world, Time now) {
    const Microscope& optics = world.Optics();
    return Text(optics.ViewNow(now)) + Blanked({std::to_string(optics.Magnification())}) +
           Text(FieldOfView(optics.Magnification())) + Blanked({Text(optics.FocusNow(now))}) +
           NeedlesText(world, now) + CellsText();
}

void AddMirror(Commands& commands, Microscope& optics) {
    commands.Add("mirror state", [&optics](const Words&, Time now) { return MirrorState(optics, now); });
    commands.Add("mirror move <x> <y>",
                 [&optics](const Words& words, Time now) { return MoveMirrorTo(optics, words, now); });
    commands.Add("mirror jog <dx> <dy>",
                 [&optics](const Words& words, Time now) { return JogMirror(optics, words, now); });
    commands.Add("mirror motors on|off",
                 [&optics](const Words& words, Time now) { return SwitchMotors(optics, words, now); });
    commands.Add("magnification",
                 [&optics](const Words&, Time) { return Blanked({std::to_string(optics.Magnification())}); });
    commands.Add("magnification <index>", [&optics](const Words& words, Time) {
        optics.SetMagnification(IntegerAt(words, 0));
        return std::string();
    });
}

void AddFocus(Commands& commands, Microscope& optics) {
    commands.Add("focus state", [&optics](const Words&, Time now) { return FocusState(optics, now); });
    commands.Add("focus move <counts>", [&optics](const Words& words, Time now) {
        return MoveFocus(optics, IntegerAt(words, 0), now);
    });
    commands.Add("focus jog <counts>", [&optics](const Words& words, Time now) {
        const std::int64_t way = IntegerAt(words, 0);
        // Quick turns of a wheel add up; none stops it where it is.
        const std::int32_t from = way == 0 ? optics.FocusCount(now) : optics.FocusCountAtRest();
        return MoveFocus(optics, from + way, now);
    });
    commands.Add("gauge state", [&optics](const Words&, Time now) { return GaugeState(optics, now); });
}

}  // namespace

void AddOpticsCommands(Commands& commands, World& world) {
    AddMirror(commands, world.Optics());
    AddFocus(commands, world.Optics());
    commands.Add("camera state", [&world](const Words&, Time now) { return CameraState(world, now); });
}

}  // namespace workbench
