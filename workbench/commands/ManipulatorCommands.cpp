#include "workbench/commands/ManipulatorCommands.h"

#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::array<std::pair<std::string_view, DriverOperation>, DriverOperationCount> Operations = {
    {{"getposition", DriverOperation::GetPosition},
     {"moveto", DriverOperation::MoveTo},
     {"select", DriverOperation::Select},
     {"getcount", DriverOperation::GetCount},
     {"reconnect", DriverOperation::Reconnect}}};

// The operation that a word names; none without one.
std::optional<DriverOperation> OperationAt(const Words& words, std::size_t index) {
    for (const auto& [name, operation] : Operations) {
        if (index < words.size() && words[index] == name) {
            return operation;
        }
    }
    return std::nullopt;
}

std::string Status(DriverStatus status) { return std::to_string(static_cast<std::int32_t>(status)); }

// A status with a value, which stands there only if the call was done.
std::string Status(DriverStatus status, std::int32_t value) {
    const bool done = status == DriverStatus::Done;
    return Status(status) + (done ? Blanked({std::to_string(value)}) : std::string());
}

std::string GetPosition(Manipulators& manipulators, Time now) {
    Manipulators::Position position;
    const DriverStatus status = manipulators.GetPosition(now, position);
    const bool done = status == DriverStatus::Done;
    return Status(status, position.number) + (done ? Text(position.xyz) : std::string());
}

std::string Select(Manipulators& manipulators, const Words& words, Time now) {
    std::int32_t answer = 0;
    const DriverStatus status = manipulators.Select(now, IntegerAt(words, 0), answer);
    return Status(status, answer);
}

std::string GetCount(Manipulators& manipulators, Time now) {
    std::int32_t count = 0;
    const DriverStatus status = manipulators.GetCount(now, count);
    return Status(status, count);
}

// The needle that has set out, and the seconds that it needs: for the traffic alone.
std::string OnItsWay(const Manipulators& manipulators, const World& world, DriverStatus status, Time now) {
    if (status != DriverStatus::Done) {
        return {};
    }
    const std::int32_t number = manipulators.Selected();
    const double seconds = static_cast<double>(world.TimeToGo(number - 1, now).count()) / 1e6;
    return Blanked({std::to_string(number), Text(seconds)});
}

// Adds driver calls. What each answers behind "status" is told to the traffic as well.
class CallAdder {
public:
    // The values that a call answers, and what the traffic is told beside them.
    struct Outcome {
        std::string values;
        std::string aside{};
    };
    using Call = std::function<Outcome(const Words& words, Time now)>;

    CallAdder(Commands& commands, Traffic& traffic) : commands_(commands), traffic_(traffic) {}

    // The form begins with "driver "; its arguments follow the call's name.
    void Add(std::string_view form, Call call) {
        const std::string name(SplitWords(form)[1]);
        Traffic& traffic = traffic_;
        commands_.Add(form, [name, call = std::move(call), &traffic](const Words& words, Time now) {
            const Outcome outcome = call(words, now);
            std::string told = name;
            for (const std::string_view word : words) {
                told.append(" ").append(word);
            }
            traffic.Take(now, "driver", "call", told + " = " + outcome.values + outcome.aside);
            return "status " + outcome.values;
        });
    }

private:
    Commands& commands_;
    Traffic& traffic_;
};

void AddCalls(Commands& commands, Manipulators& m, const World& world, Traffic& traffic) {
    using Outcome = CallAdder::Outcome;
    CallAdder adder(commands, traffic);
    adder.Add("driver getposition", [&m](const Words&, Time now) { return Outcome{GetPosition(m, now)}; });
    adder.Add("driver moveto <x> <y> <z>", [&m, &world](const Words& words, Time now) {
        const DriverStatus status = m.MoveTo(now, TripleAt(words, 0));
        return Outcome{Status(status), OnItsWay(m, world, status, now)};
    });
    adder.Add("driver select <number>",
              [&m](const Words& words, Time now) { return Outcome{Select(m, words, now)}; });
    adder.Add("driver getcount", [&m](const Words&, Time now) { return Outcome{GetCount(m, now)}; });
    adder.Add("driver reconnect", [&m](const Words&, Time now) { return Outcome{Status(m.Reconnect(now))}; });
}

std::string FailCalls(Manipulators& manipulators, const Words& words) {
    const bool always = words[0] == "always";
    manipulators.FailCalls(always ? Manipulators::Always : IntegerAt(words, 0), OperationAt(words, 1));
    return {};
}

std::string Hang(Manipulators& manipulators, double seconds, Time now) {
    manipulators.HangUntil(now + Time(std::llround(seconds * 1e6)));
    return {};
}

void AddFaults(Commands& commands, Manipulators& m) {
    commands.Add("fault driver fail off", [&m](const Words&, Time) {
        m.FailCalls(0);
        return std::string();
    });
    commands.Add("fault driver fail <n>|always [<call>]",
                 [&m](const Words& words, Time) { return FailCalls(m, words); });
    commands.Add("fault driver hang off", [&m](const Words&, Time now) { return Hang(m, 0.0, now); });
    commands.Add("fault driver hang <seconds>",
                 [&m](const Words& words, Time now) { return Hang(m, RealAt(words, 0), now); });
    commands.Add("fault count <n>", [&m](const Words& words, Time now) {
        m.ChangeCount(now, IntegerAt(words, 0));
        return std::string();
    });
    commands.Add("fault range off", [&m](const Words&, Time) {
        m.StrayPosition(std::nullopt);
        return std::string();
    });
    commands.Add("fault range <needle>", [&m](const Words& words, Time) {
        m.StrayPosition(NeedleAt(words, 0) + 1);
        return std::string();
    });
}

std::string Counters(const Manipulators& manipulators) {
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

void AddManipulatorCommands(Commands& commands, Manipulators& manipulators, World& world, Traffic& traffic) {
    Manipulators& m = manipulators;
    AddCalls(commands, m, world, traffic);
    AddFaults(commands, m);
    commands.Add("hardware select <number>", [&m](const Words& words, Time) {
        m.SelectAtHardware(IntegerAt(words, 0));
        return std::string();
    });
    commands.Add("hardware selected",
                 [&m](const Words&, Time) { return Blanked({std::to_string(m.Selected())}); });
    commands.Add("counters", [&m](const Words&, Time) { return Counters(m); });
    commands.Add("counters forget", [&m](const Words&, Time) {
        m.ForgetCounters();
        return std::string();
    });
}

}  // namespace workbench
