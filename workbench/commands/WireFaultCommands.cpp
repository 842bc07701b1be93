#include "workbench/commands/WireFaultCommands.h"

#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::int32_t MostLines = 1000000;
constexpr std::int32_t MostFields = 1000;
constexpr std::int32_t HighestError = 99;

std::int32_t CountAt(const Words& words, std::size_t index, std::int32_t most) {
    const std::int32_t count = IntegerAt(words, index);
    if (count < 0 || count > most) {
        throw travo::BoundsFailure("a number from 0 to " + std::to_string(most) + " is expected");
    }
    return count;
}

// How many lines or commands are concerned: one where nothing is said.
std::int32_t TimesAt(const Words& words, std::size_t index) {
    ExpectWords(words, index, index + 1);
    if (words.size() == index) {
        return 1;
    }
    return words[index] == "always" ? MirrorController::Always : CountAt(words, index, MostLines);
}

// The faults that any wire can have. False where the word names none of them.
bool WireFault(Wire& wire, const Words& words, Time now) {
    const std::string_view kind = WordAt(words, 0);
    if (kind == "vanish" || kind == "return") {
        ExpectWords(words, 1, 1);
        wire.Plug(kind == "return", now);
        return true;
    }
    if (kind == "silent") {
        ExpectWords(words, 2, 2);
        wire.Faults().Silence(SwitchAt(words, 1));
    } else if (kind == "noise") {
        ExpectWords(words, 2, 2);
        wire.SendNoise(CountAt(words, 1, Wire::LongestNoise), now);
    } else if (kind == "garble") {
        ExpectWords(words, 2, 2);
        wire.Faults().Garble(CountAt(words, 1, MostLines));
    } else if (kind == "cut") {
        ExpectWords(words, 2, 2);
        wire.Faults().CutNext(static_cast<std::size_t>(CountAt(words, 1, MostLines)));
    } else if (kind == "flood") {
        ExpectWords(words, 2, 2);
        wire.SendFlood(CountAt(words, 1, Wire::LongestFlood), now);
    } else {
        return false;
    }
    return true;
}

[[noreturn]] void RefuseFault() { throw travo::NumberFailure("this instrument has no such fault"); }

std::int32_t AxisAt(const Words& words, std::size_t index) {
    const std::string_view word = WordAt(words, index);
    if (word != "x" && word != "y") {
        throw travo::NumberFailure("the axes are x and y");
    }
    return word == "x" ? Microscope::AxisX : Microscope::AxisY;
}

void MirrorFault(MirrorController& mirror, World& world, const Words& words, Time now) {
    const std::string_view kind = WordAt(words, 0);
    if (kind == "error") {
        const std::int32_t error = CountAt(words, 1, HighestError);
        mirror.RefuseCommands(error, TimesAt(words, 2));
    } else if (kind == "fields") {
        const std::int32_t fields = CountAt(words, 1, MostFields);
        mirror.MisformStatus(fields, TimesAt(words, 2));
    } else if (kind == "limit") {
        ExpectWords(words, 3, 3);
        mirror.HoldAtLimit(AxisAt(words, 1), SwitchAt(words, 2));
    } else if (kind == "motors") {
        ExpectWords(words, 2, 2);
        world.Optics().SwitchMirrorMotors(SwitchAt(words, 1), now);
    } else {
        RefuseFault();
    }
}

void MotorFault(FocusMotor& motor, const Words& words) {
    if (WordAt(words, 0) != "refuse") {
        RefuseFault();
    }
    motor.RefuseCommands(TimesAt(words, 1));
}

void GaugeFault(Gauge& gauge, const Words& words) {
    if (WordAt(words, 0) != "garbage") {
        RefuseFault();
    }
    ExpectWords(words, 2, 2);
    gauge.GiveGarbage(SwitchAt(words, 1));
}

std::string FaultsOf(const Wire& wire) {
    const std::string name = wire.Name() + ":";
    std::string faults;
    faults += wire.Plugged() ? "" : " " + name + "vanished";
    faults += wire.Faults().Silent() ? " " + name + "silent" : "";
    faults += wire.Faults().Garbles() ? " " + name + "garble" : "";
    faults += wire.Faults().Cuts() ? " " + name + "cut" : "";
    faults += wire.Replays() ? " " + name + "replay" : "";
    return faults;
}

}  // namespace

void AddWireFaultCommands(Commands& commands, Instruments& instruments) {
    Instruments& i = instruments;
    commands.Add("fault mirror", [&i](const Words& words, Time now) {
        if (!WireFault(i.WireOf(WireName::Mirror), words, now)) {
            MirrorFault(i.mirror, i.world, words, now);
        }
        return std::string();
    });
    commands.Add("fault motor", [&i](const Words& words, Time now) {
        if (!WireFault(i.WireOf(WireName::Motor), words, now)) {
            MotorFault(i.motor, words);
        }
        return std::string();
    });
    commands.Add("fault gauge", [&i](const Words& words, Time now) {
        if (!WireFault(i.WireOf(WireName::Gauge), words, now)) {
            GaugeFault(i.gauge, words);
        }
        return std::string();
    });
}

std::string WireFaults(const Instruments& instruments) {
    std::string faults;
    for (const Wire& wire : instruments.wires) {
        faults += FaultsOf(wire);
    }
    faults += instruments.mirror.Refuses() ? " mirror:error" : "";
    faults += instruments.mirror.MisformsStatus() ? " mirror:fields" : "";
    faults += instruments.mirror.HoldsAtLimit() ? " mirror:limit" : "";
    faults += instruments.motor.Refuses() ? " motor:refuse" : "";
    faults += instruments.gauge.GivesGarbage() ? " gauge:garbage" : "";
    return faults;
}

void ClearWireFaults(Instruments& instruments, Time now) {
    for (Wire& wire : instruments.wires) {
        wire.Faults().Clear();
        wire.EndReplay();
        wire.Plug(true, now);
    }
    instruments.mirror.ClearFaults();
    instruments.motor.RefuseCommands(0);
    instruments.gauge.GiveGarbage(false);
}

}  // namespace workbench
