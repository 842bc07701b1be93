#include "workbench/commands/SettingsCommands.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "core/ground/Arithmetic.h"
#include "workbench/commands/SettingsWriter.h"

namespace workbench {

namespace {

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
        return std::string(words.front());
    }
    if (programFolder.empty()) {
        throw travo::NumberFailure("name the file, since no program folder is known");
    }
    return programFolder + "/KVData.ini";
}

std::string Write(const World& world, const std::string& path, const SettingsWish& wish) {
    std::array<NeedleCalibration, travo::NeedleCount> calibrations;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        calibrations[static_cast<std::size_t>(needle)] = CalibrationOf(world.MountOf(needle), {});
    }
    WriteSettings(path, SettingsText(calibrations, PresentTime(), wish));
    return {};
}

// A program that has a port open writes its own settings when it closes, over those.
void RequireNobody(const Instruments& instruments) {
    const bool anyOpen = std::any_of(instruments.wires.begin(), instruments.wires.end(),
                                     [](const Wire& wire) { return wire.IsOpen(); });
    if (anyOpen) {
        throw travo::Failure("somebody has a port open: close TRAVO first");
    }
}

}  // namespace

void AddSettingsCommands(Commands& commands, const World& world, const Instruments& instruments,
                         const std::string& programFolder) {
    const auto add = [&](const char* form, SettingsWish wish) {
        commands.Add(form, [&world, wish, programFolder](const Words& words, Time) {
            return Write(world, FileNamed(words, programFolder), wish);
        });
    };
    add("write-settings [<file>]", SettingsWish::Calibrations);
    add("write-settings ports [<file>]", SettingsWish::CalibrationsAndPorts);
    commands.Add("as-new [<file>]", [&world, &instruments, programFolder](const Words& words, Time) {
        RequireNobody(instruments);
        return Write(world, FileNamed(words, programFolder), SettingsWish::Desk);
    });
}

}  // namespace workbench
