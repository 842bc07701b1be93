#include "workbench/Commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>

#include "core/Arithmetic.h"
#include "workbench/CommandWords.h"
#include "workbench/SettingsWriter.h"

namespace workbench {

namespace {

constexpr double LargestAngle = 360.0;
constexpr double LargestPlace = 1000000.0;
constexpr double LongestHang = 3600.0;
constexpr double LargestMirrorCount = 180.0;

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

std::string PresentTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 64> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%y/%m/%d    %H:%M", &local);
    return {text.data(), length};
}

}  // namespace

Commands::Commands(World& world, Manipulators& manipulators, std::string programFolder)
    : world_(world), manipulators_(manipulators), programFolder_(std::move(programFolder)) {
    AddDriverCommands();
    AddWorldCommands();
    AddFaultCommands();
    AddOtherCommands();
}

std::string Commands::Answer(std::string_view line, Time now) {
    try {
        Words words = SplitWords(line.substr(0, LongestLine));
        std::string name(WordAt(words, 0));
        std::size_t nameWords = 1;
        if (!commands_.contains(name) && words.size() > 1) {
            name.append(1, ' ').append(words[1]);
            nameWords = 2;
        }
        const auto command = commands_.find(name);
        if (command == commands_.end()) {
            return "error there is no such command";
        }
        words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(nameWords));
        world_.Advance(now);
        std::string answer = name.starts_with("driver ") ? "" : "ok";
        return answer.append(command->second(words, now));
    } catch (const std::exception& failure) {
        return std::string("error ") + failure.what();
    }
}

bool Commands::MustWait(std::string_view line, Time now) const {
    if (!manipulators_.HangsAt(now)) {
        return false;
    }
    const Words words = SplitWords(line.substr(0, LongestLine));
    return !words.empty() && words.front() == "driver";
}

void Commands::AddDriverCommands() {
    commands_["driver getposition"] = [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        Manipulators::Position position;
        const DriverStatus status = manipulators_.GetPosition(now, position);
        const bool done = status == DriverStatus::Done;
        return Status(status) + (done ? Blanked({std::to_string(position.number)}) + Text(position.xyz) : "");
    };
    commands_["driver moveto"] = [this](const Words& words, Time now) {
        ExpectWords(words, 3, 3);
        return Status(manipulators_.MoveTo(now, TripleAt(words, 0)));
    };
    commands_["driver select"] = [this](const Words& words, Time now) {
        ExpectWords(words, 1, 1);
        std::int32_t answer = 0;
        const DriverStatus status = manipulators_.Select(now, IntegerAt(words, 0), answer);
        return Status(status) + (status == DriverStatus::Done ? Blanked({std::to_string(answer)}) : "");
    };
    commands_["driver getcount"] = [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        std::int32_t count = 0;
        const DriverStatus status = manipulators_.GetCount(now, count);
        return Status(status) + (status == DriverStatus::Done ? Blanked({std::to_string(count)}) : "");
    };
    commands_["driver reconnect"] = [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        return Status(manipulators_.Reconnect(now));
    };
}

void Commands::AddWorldCommands() {
    commands_["world tip"] = [this](const Words& words, Time now) {
        ExpectWords(words, 1, 1);
        const std::int32_t needle = NeedleAt(words, 0);
        return Text(world_.TipNow(needle, now)) + Text(world_.TipAtRest(needle));
    };
    commands_["world counts"] = [this](const Words& words, Time now) {
        ExpectWords(words, 1, 1);
        return Text(world_.CountsNow(NeedleAt(words, 0), now));
    };
    commands_["world aim"] = [this](const Words& words, Time) {
        ExpectWords(words, 4, 4);
        const Vector place = {RealAt(words, 1, LargestPlace), RealAt(words, 2, LargestPlace),
                              RealAt(words, 3, LargestPlace)};
        return Text(Whole(CountsFor(world_.MountOf(NeedleAt(words, 0)), place)));
    };
    commands_["world move"] = [this](const Words& words, Time now) {
        ExpectWords(words, 4, 4);
        world_.MoveNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
        return std::string();
    };
    commands_["world jog"] = [this](const Words& words, Time now) {
        ExpectWords(words, 4, 4);
        world_.JogNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
        return std::string();
    };
    commands_["world moving"] = [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        std::string moving;
        for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
            moving += world_.NeedleMoves(needle, now) ? " 1" : " 0";
        }
        return moving;
    };
    commands_["world view"] = [](const Words& words, Time) {
        ExpectWords(words, 2, 2);
        const PlanPoint centre =
            ViewCentreOf(RealAt(words, 0, LargestMirrorCount), RealAt(words, 1, LargestMirrorCount));
        return Blanked({Text(centre[0]), Text(centre[1])});
    };
    commands_["world cells"] = [](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        std::string cells;
        for (const Cell& cell : World::Cells()) {
            cells +=
                Blanked({std::to_string(cell.mirrorX), std::to_string(cell.mirrorY)}) + Text(cell.Place());
        }
        return cells;
    };
    commands_["world crossings"] = [this](const Words& words, Time) {
        ExpectWords(words, 0, 1);
        if (words.empty()) {
            return Crossings();
        }
        if (words[0] != "forget") {
            throw travo::NumberFailure("only \"forget\" may follow");
        }
        world_.ForgetCrossings();
        return std::string();
    };
}

void Commands::AddFaultCommands() {
    commands_["fault driver"] = [this](const Words& words, Time now) {
        const std::string_view kind = WordAt(words, 0);
        const Words rest(words.begin() + 1, words.end());
        if (kind == "fail") {
            return FailCalls(rest);
        }
        if (kind == "hang") {
            return Hang(rest, now);
        }
        throw travo::NumberFailure("the driver can \"fail\" or \"hang\"");
    };
    commands_["fault count"] = [this](const Words& words, Time now) {
        ExpectWords(words, 1, 1);
        manipulators_.ChangeCount(now, IntegerAt(words, 0));
        return std::string();
    };
    commands_["fault range"] = [this](const Words& words, Time) { return Stray(words); };
    commands_["fault clear"] = [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        manipulators_.ClearFaults(now);
        return std::string();
    };
    commands_["hardware select"] = [this](const Words& words, Time) {
        ExpectWords(words, 1, 1);
        manipulators_.SelectAtHardware(IntegerAt(words, 0));
        return std::string();
    };
    commands_["mount"] = [this](const Words& words, Time now) { return Remount(words, now); };
}

void Commands::AddOtherCommands() {
    commands_["ping"] = [](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        return std::string();
    };
    commands_["counters"] = [this](const Words& words, Time) {
        ExpectWords(words, 0, 1);
        if (words.empty()) {
            return Counters();
        }
        if (words[0] != "forget") {
            throw travo::NumberFailure("only \"forget\" may follow");
        }
        manipulators_.ForgetCounters();
        return std::string();
    };
    commands_["write-settings"] = [this](const Words& words, Time) { return Write(words); };
    commands_["shutdown"] = [this](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        shutdownWanted_ = true;
        return std::string();
    };
}

std::string Commands::FailCalls(const Words& words) {
    ExpectWords(words, 1, 2);
    std::optional<DriverOperation> operation;
    if (words.size() == 2) {
        operation = OperationOf(words[1]);
    }
    if (words[0] == "always") {
        manipulators_.FailCalls(Manipulators::Always, operation);
        return {};
    }
    const std::int32_t calls = words[0] == "off" ? 0 : IntegerAt(words, 0);
    if (calls < 0) {
        throw travo::BoundsFailure("a number of calls, \"always\" or \"off\" is expected");
    }
    manipulators_.FailCalls(calls, operation);
    return {};
}

std::string Commands::Hang(const Words& words, Time now) {
    ExpectWords(words, 1, 1);
    const double seconds = words[0] == "off" ? 0.0 : RealAt(words, 0, LongestHang);
    manipulators_.HangUntil(now + Time(std::llround(seconds * 1e6)));
    return {};
}

std::string Commands::Stray(const Words& words) {
    ExpectWords(words, 1, 1);
    if (words[0] == "off") {
        manipulators_.StrayPosition(std::nullopt);
    } else {
        manipulators_.StrayPosition(NeedleAt(words, 0) + 1);
    }
    return {};
}

std::string Commands::Remount(const Words& words, Time now) {
    const std::int32_t needle = NeedleAt(words, 0);
    if (words.size() == 1) {
        const Mount& mount = world_.MountOf(needle);
        return Blanked({Text(mount.heading), Text(mount.yaw), Text(mount.tilt)}) + Text(mount.offset);
    }
    if (words.size() > 4) {
        ExpectWords(words, 7, 7);
    }
    const double heading = RealAt(words, 1, LargestAngle);
    const double yaw = words.size() > 2 ? RealAt(words, 2, LargestAngle) : 0.0;
    const double tilt = words.size() > 3 ? RealAt(words, 3, LargestAngle) : 0.0;
    Mount mount = HomedMount(heading, yaw, tilt);
    if (words.size() == 7) {
        mount.offset = {RealAt(words, 4, LargestPlace), RealAt(words, 5, LargestPlace),
                        RealAt(words, 6, LargestPlace)};
    }
    world_.MountNeedle(needle, mount, now);
    return {};
}

std::string Commands::Crossings() const {
    std::string text =
        Blanked({std::to_string(world_.CrossingsInAll()), std::to_string(world_.PairsCrossed())});
    for (const Crossing& crossing : world_.Crossings()) {
        const double milliseconds = static_cast<double>(crossing.time.count()) / 1000.0;
        text += Blanked({std::to_string(crossing.needleA + 1), std::to_string(crossing.needleB + 1),
                         Text(milliseconds), Text(crossing.place[0]), Text(crossing.place[1])});
    }
    return text;
}

std::string Commands::Counters() const {
    std::string text;
    for (const auto& [name, operation] : Operations) {
        text += Blanked({std::string(name), std::to_string(manipulators_.Received(operation))});
    }
    return text + Blanked({"refused", std::to_string(manipulators_.Refused())});
}

std::string Commands::Write(const Words& words) {
    std::string path;
    if (!words.empty()) {
        // A path may hold blanks: it is all from its first word to the end of the last.
        path = std::string(words.front().data(), words.back().data() + words.back().size());
    } else if (!programFolder_.empty()) {
        path = programFolder_ + "/KVData.ini";
    } else {
        throw travo::NumberFailure("name the file, since no program folder is known");
    }
    std::array<NeedleCalibration, travo::NeedleCount> calibrations;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        calibrations[static_cast<std::size_t>(needle)] = CalibrationOf(world_.MountOf(needle), {});
    }
    WriteSettings(path, SettingsText(calibrations, PresentTime()));
    return {};
}

}  // namespace workbench
