// What every command works on: the settings of a folder, its state file, and the ports of this computer.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "drivers/gcode/Log.h"
#include "drivers/gcode/Needle.h"
#include "drivers/gcode/Settings.h"
#include "drivers/gcode/Trust.h"

namespace gcode {

class Desk {
public:
    // The folder that holds manipulators.ini.
    Desk(std::string folder, Ports& ports);

    const std::string& SettingsFile() const { return file_; }
    bool HasSettings() const { return hasSettings_; }
    const Settings& Read() const { return settings_; }
    // None for a number without usable settings.
    std::unique_ptr<Needle> Make(int number);
    // One for settings of no file, as of a port that is only asked.
    std::unique_ptr<Needle> Make(const NeedleSettings& settings);
    // Opened and connected; none, with a line on the standard error, where it is not.
    std::unique_ptr<Needle> Connected(int number);
    // Opened and greeted, in whatever state it is; none, with a line on the standard error, where it does not
    // answer.
    std::unique_ptr<Needle> Greeted(int number);

    Ports& PortsOfThis() { return ports_; }

private:
    std::string file_;
    Ports& ports_;
    Log log_;
    Trust trust_;
    Settings settings_;
    bool hasSettings_ = false;
};

}  // namespace gcode
