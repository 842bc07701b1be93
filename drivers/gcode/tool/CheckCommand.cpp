#include <iostream>

#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/tool/Commands.h"
#include "drivers/gcode/tool/Pace.h"

namespace gcode {

namespace {

std::string Text(const std::optional<Millimetres>& place) {
    return place ? "X " + Fixed((*place)[0], 3) + ", Y " + Fixed((*place)[1], 3) + ", Z " +
                       Fixed((*place)[2], 3)
                 : std::string("not told");
}

bool CheckNeedle(Desk& desk, int number) {
    const std::unique_ptr<Needle> needle = desk.Connected(number);
    if (!needle) {
        return false;
    }
    const Facts& facts = needle->Known();
    std::cout << "needle " << number << ": " << Name(needle->Wanted().dialect) << " on "
              << needle->Wanted().port << "\n    firmware  " << facts.firmware << "\n    state     "
              << facts.state << "\n    soft min  " << Text(facts.min) << "\n    soft max  " << Text(facts.max)
              << "\n";
    bool isGood = true;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::cout << "    " << PaceText(needle->Wanted(), *needle->Limits(), axis) << "\n";
        isGood = PaceOf(needle->Wanted(), *needle->Limits(), axis).isFastEnough && isGood;
    }
    Counts counts{};
    if (needle->Position(counts) != Status::Done) {
        std::cerr << "needle " << number << ": " << needle->Reason() << "\n";
        return false;
    }
    std::cout << "    stands at X " << counts[0] << ", Y " << counts[1] << ", Z " << counts[2] << "\n";
    return isGood;
}

}  // namespace

int Check(Desk& desk) {
    if (!desk.HasSettings()) {
        std::cerr << "there is no " << desk.SettingsFile() << "\n";
        return 1;
    }
    bool isGood = desk.Read().mistakes.empty();
    for (const Mistake& mistake : desk.Read().mistakes) {
        std::cerr << desk.SettingsFile() << ":" << mistake.line << ": " << mistake.text << "\n";
    }
    int found = 0;
    for (int number = 1; number <= MostNeedles; ++number) {
        if (desk.Read().needles[static_cast<std::size_t>(number - 1)]) {
            ++found;
            isGood = CheckNeedle(desk, number) && isGood;
        }
    }
    if (found == 0) {
        std::cerr << "no needle has usable settings\n";
    }
    return isGood && found > 0 ? 0 : 1;
}

}  // namespace gcode
