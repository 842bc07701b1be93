#include "workbench/commands/WireCommands.h"

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

// For each wire: its name, its port, whether the cable is in, whether anybody has the port open.
std::string List(const Instruments& instruments) {
    std::string text;
    for (const Wire& wire : instruments.wires) {
        text +=
            Blanked({wire.Name(), std::to_string(wire.Port())}) + Flag(wire.Plugged()) + Flag(wire.IsOpen());
    }
    return text;
}

std::string Counters(const Instrument& device) {
    std::string text;
    for (const auto& [name, count] : device.Received()) {
        text += Blanked({name, std::to_string(count)});
    }
    return text;
}

// A command whose first argument names a wire.
using WireHandler = void (*)(Wire& wire, const Words& words, Time now);

void AddToWires(Commands& commands, Instruments& instruments, const char* form, WireHandler handler) {
    commands.Add(form, [&instruments, handler](const Words& words, Time now) {
        handler(instruments.WireNamed(words[0]), words, now);
        return std::string();
    });
}

void AddLogs(Commands& commands, Instruments& i) {
    AddToWires(commands, i, "wire log <wire> off", [](Wire& wire, const Words&, Time) { wire.EndLog(); });
    AddToWires(commands, i, "wire log <wire> <file>",
               [](Wire& wire, const Words& words, Time) { wire.LogTo(std::string(words[1])); });
    AddToWires(commands, i, "wire replay <wire> off",
               [](Wire& wire, const Words&, Time) { wire.EndReplay(); });
    AddToWires(commands, i, "wire replay <wire> <file>",
               [](Wire& wire, const Words& words, Time now) { wire.Replay(std::string(words[1]), now); });
}

void AddErgo(Commands& commands, MirrorController& mirror) {
    const auto add = [&](const char* form, bool together) {
        commands.Add(form, [&mirror, together](const Words& words, Time now) {
            mirror.PassErgoLine(words[0], together, now);
            return std::string();
        });
    };
    add("ergo <line>", false);
    add("ergo together <line>", true);
}

std::string PressZeroKey(Gauge& gauge, Time now) {
    if (!gauge.PressZeroKey(now)) {
        throw travo::Failure("the keys of the gauge are disabled");
    }
    return {};
}

}  // namespace

void AddWireCommands(Commands& commands, Instruments& instruments) {
    Instruments& i = instruments;
    commands.Add("wire list", [&i](const Words&, Time) { return List(i); });
    commands.Add("wire counters <wire>",
                 [&i](const Words& words, Time) { return Counters(i.WireNamed(words[0]).Device()); });
    AddToWires(commands, i, "wire counters <wire> forget",
               [](Wire& wire, const Words&, Time) { wire.Device().ForgetCounters(); });
    AddLogs(commands, i);
    AddErgo(commands, i.mirror);
    commands.Add("gauge keys", [&i](const Words&, Time) { return Flag(i.gauge.KeysEnabled()); });
    commands.Add("gauge zero", [&i](const Words&, Time now) { return PressZeroKey(i.gauge, now); });
}

}  // namespace workbench
