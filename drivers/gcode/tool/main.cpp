// travo-gcode: the operator's hand on the controllers behind TRAVO's needles.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

#include "drivers/gcode/Files.h"
#include "drivers/gcode/Manipulators.h"
#include "drivers/gcode/SerialPort.h"
#include "drivers/gcode/tool/Commands.h"
#include "drivers/gcode/tool/Wish.h"

namespace {

// Beside the program, as beside the driver; else the program folder that the launcher of TRAVO keeps for a
// user.
std::string UsualFolder() {
    const std::string own = gcode::OwnFolder();
    if (std::filesystem::exists(own + "/" + gcode::DriverFiles::Settings)) {
        return own;
    }
    const char* const data = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    if (data != nullptr && *data == '/') {
        return std::string(data) + "/travo";
    }
    return home != nullptr ? std::string(home) + "/.local/share/travo" : own;
}

int Obey(const gcode::Wish& wish) {
    gcode::SerialPorts ports;
    gcode::Desk desk(wish.folder.empty() ? UsualFolder() : wish.folder, ports);
    switch (wish.command) {
        case gcode::Wish::Command::List:
            return gcode::List(desk, wish.asksOthers);
        case gcode::Wish::Command::Check:
            return gcode::Check(desk);
        case gcode::Wish::Command::Where:
            return gcode::Where(desk, wish.needle);
        case gcode::Wish::Command::Jog:
            return gcode::Jog(desk, wish.needle, wish.axis, wish.counts);
        case gcode::Wish::Command::Home:
            return gcode::Home(desk, wish.needle);
        case gcode::Wish::Command::Unlock:
            return gcode::Unlock(desk, wish.needle);
        case gcode::Wish::Command::Watch:
            return gcode::Watch(desk, wish.seconds);
        case gcode::Wish::Command::Version:
            std::cout << "travo-gcode " TRAVO_VERSION "\n";
            return 0;
        case gcode::Wish::Command::Help:
            break;
    }
    std::cout << gcode::HelpText;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::string why;
        const std::optional<gcode::Wish> wish = gcode::ReadWish({argv + 1, argv + argc}, why);
        if (!wish) {
            std::cerr << "travo-gcode: " << why << "; --help says what there is\n";
            return 2;
        }
        return Obey(*wish);
    } catch (const std::exception& failure) {
        std::cerr << "travo-gcode: " << failure.what() << "\n";
        return 1;
    }
}
