#include "workbench/commands/WireFaultCommands.h"

namespace workbench {

namespace {

// Its first argument names the wire.
using WireHandler = void (*)(Wire& wire, const Words& words, Time now);

std::int32_t AxisAt(const Words& words, std::size_t index) {
    return WordAt(words, index) == "x" ? Microscope::AxisX : Microscope::AxisY;
}

// The faults that any wire can have.
void AddWireFaults(Commands& commands, Instruments& instruments) {
    const auto add = [&](const char* form, WireHandler handler) {
        commands.Add(form, [&instruments, handler](const Words& words, Time now) {
            handler(instruments.WireNamed(words[0]), words, now);
            return std::string();
        });
    };
    add("fault <wire> silent on|off",
        [](Wire& wire, const Words& words, Time) { wire.Faults().Silence(SwitchAt(words, 1)); });
    add("fault <wire> vanish", [](Wire& wire, const Words&, Time now) { wire.Plug(false, now); });
    add("fault <wire> return", [](Wire& wire, const Words&, Time now) { wire.Plug(true, now); });
    add("fault <wire> noise <bytes>",
        [](Wire& wire, const Words& words, Time now) { wire.SendNoise(IntegerAt(words, 1), now); });
    add("fault <wire> garble <lines>",
        [](Wire& wire, const Words& words, Time) { wire.Faults().Garble(IntegerAt(words, 1)); });
    add("fault <wire> cut off", [](Wire& wire, const Words&, Time) { wire.Faults().EndCut(); });
    add("fault <wire> cut <bytes>", [](Wire& wire, const Words& words, Time) {
        wire.Faults().CutNext(static_cast<std::size_t>(IntegerAt(words, 1)));
    });
    add("fault <wire> flood <lines>",
        [](Wire& wire, const Words& words, Time now) { wire.SendFlood(IntegerAt(words, 1), now); });
}

using InstrumentHandler = void (*)(Instruments& instruments, const Words& words, Time now);

void AddInstrumentFaults(Commands& commands, Instruments& instruments) {
    const auto add = [&](const char* form, InstrumentHandler handler) {
        commands.Add(form, [&instruments, handler](const Words& words, Time now) {
            handler(instruments, words, now);
            return std::string();
        });
    };
    add("fault mirror error <error> [<commands>|always]", [](Instruments& i, const Words& words, Time) {
        i.mirror.RefuseCommands(IntegerAt(words, 0), TimesAt(words, 1));
    });
    add("fault mirror fields <fields> [<lines>|always]", [](Instruments& i, const Words& words, Time) {
        i.mirror.MisformStatus(IntegerAt(words, 0), TimesAt(words, 1));
    });
    add("fault mirror limit <axis> on|off", [](Instruments& i, const Words& words, Time) {
        i.mirror.HoldAtLimit(AxisAt(words, 0), SwitchAt(words, 1));
    });
    add("fault mirror motors on|off", [](Instruments& i, const Words& words, Time now) {
        i.world.Optics().SwitchMirrorMotors(SwitchAt(words, 0), now);
    });
    add("fault motor refuse [<commands>|always]",
        [](Instruments& i, const Words& words, Time) { i.motor.RefuseCommands(TimesAt(words, 0)); });
    add("fault gauge garbage on|off",
        [](Instruments& i, const Words& words, Time) { i.gauge.GiveGarbage(SwitchAt(words, 0)); });
}

std::string FaultsOf(const Wire& wire) {
    const std::string name = " " + wire.Name() + ":";
    std::string faults;
    faults += wire.Plugged() ? "" : name + "vanished";
    faults += wire.Faults().Silent() ? name + "silent" : "";
    faults += wire.Faults().Garbles() ? name + "garble" : "";
    faults += wire.Faults().Cuts() ? name + "cut" : "";
    faults += wire.Replays() ? name + "replay" : "";
    return faults;
}

std::string Left(const std::string& name, std::int32_t number) {
    return number == 0 ? std::string() : Blanked({name, std::to_string(number)});
}

}  // namespace

void AddWireFaultCommands(Commands& commands, Instruments& instruments) {
    AddWireFaults(commands, instruments);
    AddInstrumentFaults(commands, instruments);
}

std::string WireFaults(const Instruments& instruments) {
    std::string faults;
    for (const Wire& wire : instruments.wires) {
        faults += FaultsOf(wire);
    }
    const MirrorController& mirror = instruments.mirror;
    faults += mirror.Refuses() ? " mirror:error" : "";
    faults += mirror.MisformsStatus() ? " mirror:fields" : "";
    faults += mirror.HoldsAtLimit() ? " mirror:limit" : "";
    faults += mirror.HoldsAtLimit(Microscope::AxisX) ? " mirror:limitx" : "";
    faults += mirror.HoldsAtLimit(Microscope::AxisY) ? " mirror:limity" : "";
    faults += instruments.motor.Refuses() ? " motor:refuse" : "";
    faults += instruments.gauge.GivesGarbage() ? " gauge:garbage" : "";
    return faults;
}

std::string WireFaultsLeft(const Instruments& instruments) {
    std::string left;
    for (const Wire& wire : instruments.wires) {
        left += Left(wire.Name() + ":garble", wire.Faults().GarbledLeft());
    }
    left += Left("mirror:error", instruments.mirror.RefusalsLeft());
    left += Left("mirror:fields", instruments.mirror.MisformedLeft());
    return left + Left("motor:refuse", instruments.motor.RefusalsLeft());
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
