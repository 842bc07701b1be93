#include "workbench/commands/WorldCommands.h"

#include <array>
#include <ctime>
#include <optional>

#include "core/ground/Arithmetic.h"
#include "workbench/commands/SettingsWriter.h"

namespace workbench {

namespace {

constexpr double LargestAngle = 360.0;        // degrees
constexpr double LargestPlace = 1000000.0;    // common units
constexpr double LargestMirrorCount = 180.0;  // the mirror's limit

std::string TipText(const World& world, const Words& words, Time now) {
    ExpectWords(words, 1, 1);
    const std::int32_t needle = NeedleAt(words, 0);
    return Text(world.TipNow(needle, now)) + Text(world.TipAtRest(needle));
}

std::string CountsText(const World& world, const Words& words, Time now) {
    ExpectWords(words, 1, 1);
    return Text(world.CountsNow(NeedleAt(words, 0), now));
}

std::string Aim(const World& world, const Words& words) {
    ExpectWords(words, 4, 4);
    const Vector place = {RealAt(words, 1, LargestPlace), RealAt(words, 2, LargestPlace),
                          RealAt(words, 3, LargestPlace)};
    return Text(Whole(CountsFor(world.MountOf(NeedleAt(words, 0)), place)));
}

std::string Move(World& world, const Words& words, Time now) {
    ExpectWords(words, 4, 4);
    world.MoveNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
    return {};
}

std::string Jog(World& world, const Words& words, Time now) {
    ExpectWords(words, 4, 4);
    world.JogNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
    return {};
}

std::string Moving(const World& world, const Words& words, Time now) {
    ExpectWords(words, 0, 0);
    std::string moving;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        moving += world.NeedleMoves(needle, now) ? " 1" : " 0";
    }
    return moving;
}

std::string View(const World& world, const Words& words, Time now) {
    if (words.empty()) {
        const PlanPoint here = world.Optics().ViewNow(now);
        const PlanPoint rest = world.Optics().ViewAtRest();
        return Blanked({Text(here[0]), Text(here[1]), Text(rest[0]), Text(rest[1])});
    }
    ExpectWords(words, 2, 2);
    const PlanPoint centre =
        ViewCentreOf(RealAt(words, 0, LargestMirrorCount), RealAt(words, 1, LargestMirrorCount));
    return Blanked({Text(centre[0]), Text(centre[1])});
}

std::string CellsText(const Words& words) {
    ExpectWords(words, 0, 0);
    std::string cells;
    for (const Cell& cell : World::Cells()) {
        cells += Blanked({std::to_string(cell.mirrorX), std::to_string(cell.mirrorY)}) + Text(cell.Place());
    }
    return cells;
}

std::string Crossings(World& world, const Words& words) {
    if (ForgetAsked(words)) {
        world.ForgetCrossings();
        return {};
    }
    std::string text =
        Blanked({std::to_string(world.CrossingsInAll()), std::to_string(world.PairsCrossed())});
    for (const Crossing& crossing : world.Crossings()) {
        const double milliseconds = static_cast<double>(crossing.time.count()) / 1000.0;
        text += Blanked({std::to_string(crossing.needleA + 1), std::to_string(crossing.needleB + 1),
                         Text(milliseconds), Text(crossing.place[0]), Text(crossing.place[1])});
    }
    return text;
}

std::string MountText(const Mount& mount) {
    return Blanked({Text(mount.heading), Text(mount.yaw), Text(mount.tilt)}) + Text(mount.offset);
}

std::string Remount(World& world, const Words& words, Time now) {
    const std::int32_t needle = NeedleAt(words, 0);
    if (words.size() == 1) {
        return MountText(world.MountOf(needle));
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
    world.MountNeedle(needle, mount, now);
    return {};
}

std::string PresentTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 64> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%y/%m/%d    %H:%M", &local);
    return {text.data(), length};
}

std::string FileNamed(const Words& words, const std::string& programFolder) {
    if (!words.empty()) {
        // A path may hold blanks: it is all from its first word to the end of the last.
        return {words.front().data(), words.back().data() + words.back().size()};
    }
    if (programFolder.empty()) {
        throw travo::NumberFailure("name the file, since no program folder is known");
    }
    return programFolder + "/KVData.ini";
}

std::string Write(const World& world, Words words, const std::string& programFolder) {
    std::optional<StoredPorts> ports;
    if (!words.empty() && words.front() == "ports") {
        ports.emplace();
        words.erase(words.begin());
    }
    std::array<NeedleCalibration, travo::NeedleCount> calibrations;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        calibrations[static_cast<std::size_t>(needle)] = CalibrationOf(world.MountOf(needle), {});
    }
    WriteSettings(FileNamed(words, programFolder), SettingsText(calibrations, PresentTime(), ports));
    return {};
}

}  // namespace

void AddWorldCommands(Commands& commands, World& world, const std::string& programFolder) {
    World& w = world;
    commands.Add("world tip", [&w](const Words& words, Time now) { return TipText(w, words, now); });
    commands.Add("world counts", [&w](const Words& words, Time now) { return CountsText(w, words, now); });
    commands.Add("world aim", [&w](const Words& words, Time) { return Aim(w, words); });
    commands.Add("world move", [&w](const Words& words, Time now) { return Move(w, words, now); });
    commands.Add("world jog", [&w](const Words& words, Time now) { return Jog(w, words, now); });
    commands.Add("world moving", [&w](const Words& words, Time now) { return Moving(w, words, now); });
    commands.Add("world view", [&w](const Words& words, Time now) { return View(w, words, now); });
    commands.Add("world cells", [](const Words& words, Time) { return CellsText(words); });
    commands.Add("world crossings", [&w](const Words& words, Time) { return Crossings(w, words); });
    commands.Add("mount", [&w](const Words& words, Time now) { return Remount(w, words, now); });
    commands.Add("write-settings",
                 [&w, programFolder](const Words& words, Time) { return Write(w, words, programFolder); });
}

}  // namespace workbench
