#include "drivers/gcode/tool/Desk.h"

#include <iostream>

#include "drivers/gcode/Files.h"
#include "drivers/gcode/Manipulators.h"

namespace gcode {

namespace {

std::unique_ptr<Needle> Without(int number, const std::string& why) {
    std::cerr << "needle " << number << ": " << why << "\n";
    return nullptr;
}

}  // namespace

Desk::Desk(std::string folder, Ports& ports)
    : file_(folder + "/" + DriverFiles::Settings),
      ports_(ports),
      log_(folder + "/" + DriverFiles::Log),
      trust_(folder + "/" + DriverFiles::State) {
    const std::optional<std::string> text = ReadWholeFile(file_);
    hasSettings_ = text.has_value();
    settings_ = ReadSettings(text.value_or(""));
    trust_.Load();
}

std::unique_ptr<Needle> Desk::Make(const NeedleSettings& settings) {
    return std::make_unique<Needle>(settings, trust_, log_);
}

std::unique_ptr<Needle> Desk::Make(int number) {
    const auto& settings = settings_.needles[static_cast<std::size_t>(number - 1)];
    return settings ? Make(*settings) : nullptr;
}

std::unique_ptr<Needle> Desk::Connected(int number) {
    std::unique_ptr<Needle> needle = Make(number);
    if (!needle) {
        return Without(number, "no usable settings in " + file_ + " (travo-gcode check says why)");
    }
    if (!needle->Open(ports_) ||
        needle->Connect(needle->Now() + Manipulators::OpeningLimit,
                        needle->Now() + Manipulators::ConnectLimit) != Status::Done) {
        return Without(number, needle->Reason());
    }
    return needle;
}

std::unique_ptr<Needle> Desk::Greeted(int number) {
    std::unique_ptr<Needle> needle = Make(number);
    if (!needle) {
        return Without(number, "no usable settings in " + file_ + " (travo-gcode check says why)");
    }
    if (!needle->Open(ports_)) {
        return Without(number, needle->Reason());
    }
    const Outcome outcome =
        needle->Greet(needle->Now() + Manipulators::OpeningLimit, needle->Now() + Manipulators::ConnectLimit);
    // A controller in an alarm that only a reset ends does not answer; homing or unlocking will say so.
    if (!outcome.IsGood()) {
        std::cerr << "needle " << number << ": " << outcome.reason << "\n";
    }
    return needle;
}

}  // namespace gcode
