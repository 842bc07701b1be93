#include "workbench/commands/WireCommands.h"

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

// For each wire: its name, its port, whether the cable is in, whether anybody has the port open.
std::string List(const Instruments& instruments, const Words& words) {
    ExpectWords(words, 0, 0);
    std::string text;
    for (const Wire& wire : instruments.wires) {
        text += Blanked({wire.Name(), std::to_string(wire.Port()), wire.Plugged() ? "1" : "0",
                         wire.IsOpen() ? "1" : "0"});
    }
    return text;
}

std::string Counters(Instruments& instruments, const Words& words) {
    ExpectWords(words, 1, 2);
    Instrument& device = instruments.WireNamed(words[0]).Device();
    if (ForgetAsked(Words(words.begin() + 1, words.end()))) {
        device.ForgetCounters();
        return {};
    }
    std::string text;
    for (const auto& [name, count] : device.Received()) {
        text += Blanked({name, std::to_string(count)});
    }
    return text;
}

// A path may hold blanks: it is all from its first word to the end of the last.
std::string PathFrom(const Words& words, std::size_t index) {
    const std::string_view first = WordAt(words, index);
    return {first.data(), words.back().data() + words.back().size()};
}

std::string Log(Instruments& instruments, const Words& words) {
    Wire& wire = instruments.WireNamed(WordAt(words, 0));
    const std::string path = PathFrom(words, 1);
    if (path == "off") {
        wire.EndLog();
    } else {
        wire.LogTo(path);
    }
    return {};
}

std::string Replay(Instruments& instruments, const Words& words, Time now) {
    Wire& wire = instruments.WireNamed(WordAt(words, 0));
    const std::string path = PathFrom(words, 1);
    if (path == "off") {
        wire.EndReplay();
    } else {
        wire.Replay(path, now);
    }
    return {};
}

std::string PassErgoLine(Instruments& instruments, const Words& words, Time now) {
    ExpectWords(words, 1, 2);
    const bool together = words.size() == 2;
    if (together && words[0] != "together") {
        throw travo::NumberFailure("a line of the Ergo unit holds no blank");
    }
    instruments.mirror.PassErgoLine(words.back(), together, now);
    return {};
}

std::string PressZeroKey(Instruments& instruments, const Words& words, Time now) {
    ExpectWords(words, 0, 0);
    if (!instruments.gauge.PressZeroKey(now)) {
        throw travo::Failure("the keys of the gauge are disabled");
    }
    return {};
}

}  // namespace

void AddWireCommands(Commands& commands, Instruments& instruments) {
    Instruments& i = instruments;
    commands.Add("wire list", [&i](const Words& words, Time) { return List(i, words); });
    commands.Add("wire counters", [&i](const Words& words, Time) { return Counters(i, words); });
    commands.Add("wire log", [&i](const Words& words, Time) { return Log(i, words); });
    commands.Add("wire replay", [&i](const Words& words, Time now) { return Replay(i, words, now); });
    commands.Add("ergo", [&i](const Words& words, Time now) { return PassErgoLine(i, words, now); });
    commands.Add("gauge keys", [&i](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        return std::string(i.gauge.KeysEnabled() ? " 1" : " 0");
    });
    commands.Add("gauge zero", [&i](const Words& words, Time now) { return PressZeroKey(i, words, now); });
}

}  // namespace workbench
