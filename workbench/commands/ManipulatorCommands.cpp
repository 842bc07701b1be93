#include "workbench/commands/ManipulatorCommands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr double LongestHang = 3600.0;  // seconds

constexpr std::array<std::pair<std::string_view, DriverOperation>, DriverOperationCount> Operations = {
    {{"getposition", DriverOperation::GetPosition},
     {"moveto", DriverOperation::MoveTo},
     {"select", DriverOperation::Select},
     {"getcount", DriverOperation::GetCount},
     {"reconnect", DriverOperation::Reconnect}}};

DriverOperation OperationOf(std::string_view word) {
    const auto* found = std::find_if(Operations.begin(), Operations.end(),
                                     [word](const auto& operation) { return operation.first == word; });
    if (found == Operations.end()) {
        throw travo::NumberFailure("there is no such driver call");
    }
    return found->second;
}

std::string Status(DriverStatus status) {
    return std::string("status").append(Blanked({std::to_string(static_cast<std::int32_t>(status))}));
}

// A status with a value, which stands there only if the call was done.
std::string Status(DriverStatus status, std::int32_t value) {
    const bool done = status == DriverStatus::Done;
    return Status(status) + (done ? Blanked({std::to_string(value)}) : std::string());
}

std::string GetPosition(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 0, 0);
    Manipulators::Position position;
    const DriverStatus status = manipulators.GetPosition(now, position);
    const bool done = status == DriverStatus::Done;
    return Status(status, position.number) + (done ? Text(position.xyz) : std::string());
}

std::string MoveTo(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 3, 3);
    return Status(manipulators.MoveTo(now, TripleAt(words, 0)));
}

std::string Select(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 1, 1);
    std::int32_t answer = 0;
    const DriverStatus status = manipulators.Select(now, IntegerAt(words, 0), answer);
    return Status(status, answer);
}

std::string GetCount(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 0, 0);
    std::int32_t count = 0;
    const DriverStatus status = manipulators.GetCount(now, count);
    return Status(status, count);
}

std::string Reconnect(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 0, 0);
    return Status(manipulators.Reconnect(now));
}

std::string FailCalls(Manipulators& manipulators, const Words& words) {
    ExpectWords(words, 2, 3);
    std::optional<DriverOperation> operation;
    if (words.size() == 3) {
        operation = OperationOf(words[2]);
    }
    if (words[1] == "always") {
        manipulators.FailCalls(Manipulators::Always, operation);
        return {};
    }
    const std::int32_t calls = words[1] == "off" ? 0 : IntegerAt(words, 1);
    if (calls < 0) {
        throw travo::BoundsFailure("a number of calls, \"always\" or \"off\" is expected");
    }
    manipulators.FailCalls(calls, operation);
    return {};
}

std::string Hang(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 2, 2);
    const double seconds = words[1] == "off" ? 0.0 : RealAt(words, 1, LongestHang);
    manipulators.HangUntil(now + Time(std::llround(seconds * 1e6)));
    return {};
}

std::string DriverFault(Manipulators& manipulators, const Words& words, Time now) {
    const std::string_view kind = WordAt(words, 0);
    if (kind == "fail") {
        return FailCalls(manipulators, words);
    }
    if (kind == "hang") {
        return Hang(manipulators, words, now);
    }
    throw travo::NumberFailure("the driver can \"fail\" or \"hang\"");
}

std::string ChangeCount(Manipulators& manipulators, const Words& words, Time now) {
    ExpectWords(words, 1, 1);
    const std::int32_t count = IntegerAt(words, 0);
    if (count < 0 || count > travo::NeedleCount) {
        throw travo::BoundsFailure("0 to 4 manipulators can be connected");
    }
    manipulators.ChangeCount(now, count);
    return {};
}

std::string Stray(Manipulators& manipulators, const Words& words) {
    ExpectWords(words, 1, 1);
    if (words[0] == "off") {
        manipulators.StrayPosition(std::nullopt);
    } else {
        manipulators.StrayPosition(NeedleAt(words, 0) + 1);
    }
    return {};
}

std::string SelectAtHardware(Manipulators& manipulators, const Words& words) {
    ExpectWords(words, 1, 1);
    manipulators.SelectAtHardware(IntegerAt(words, 0));
    return {};
}

std::string Counters(Manipulators& manipulators, const Words& words) {
    if (ForgetAsked(words)) {
        manipulators.ForgetCounters();
        return {};
    }
    std::string text;
    for (const auto& [name, operation] : Operations) {
        text += Blanked({std::string(name), std::to_string(manipulators.Received(operation))});
    }
    return text + Blanked({"refused", std::to_string(manipulators.Refused())});
}

}  // namespace

std::string ManipulatorFaults(const Manipulators& manipulators, Time now) {
    constexpr std::array<std::pair<const char*, FailureMode>, 4> lasting = {
        {{"fail", FailureMode::CallsFail},
         {"hang", FailureMode::Hangs},
         {"count", FailureMode::CountChanges},
         {"range", FailureMode::PositionOutOfRange}}};
    std::string faults;
    for (const auto& [name, mode] : lasting) {
        faults += manipulators.Misbehaves(mode, now) ? Blanked({name}) : std::string();
    }
    return faults;
}

void AddManipulatorCommands(Commands& commands, Manipulators& manipulators) {
    Manipulators& m = manipulators;
    commands.Add("driver getposition",
                 [&m](const Words& words, Time now) { return GetPosition(m, words, now); });
    commands.Add("driver moveto", [&m](const Words& words, Time now) { return MoveTo(m, words, now); });
    commands.Add("driver select", [&m](const Words& words, Time now) { return Select(m, words, now); });
    commands.Add("driver getcount", [&m](const Words& words, Time now) { return GetCount(m, words, now); });
    commands.Add("driver reconnect", [&m](const Words& words, Time now) { return Reconnect(m, words, now); });
    commands.Add("fault driver", [&m](const Words& words, Time now) { return DriverFault(m, words, now); });
    commands.Add("fault count", [&m](const Words& words, Time now) { return ChangeCount(m, words, now); });
    commands.Add("fault range", [&m](const Words& words, Time) { return Stray(m, words); });
    commands.Add("hardware select", [&m](const Words& words, Time) { return SelectAtHardware(m, words); });
    commands.Add("counters", [&m](const Words& words, Time) { return Counters(m, words); });
}

}  // namespace workbench
