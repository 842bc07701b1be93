#include <chrono>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "drivers/gcode/Axes.h"
#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/tool/Commands.h"

namespace gcode {

namespace {

constexpr Time JogLimit = std::chrono::seconds(30);
constexpr std::chrono::milliseconds BetweenLooks{500};

bool Tell(Needle& needle) {
    Place place;
    const Status status = needle.MachinePlace(place);
    const std::optional<Counts> counts =
        status == Status::Done ? NearestCounts(needle.Wanted(), place.machine) : std::nullopt;
    if (!counts) {
        std::cerr << "needle " << needle.Wanted().number << ": " << needle.Reason() << "\n";
        return false;
    }
    std::cout << "needle " << needle.Wanted().number << ": X " << (*counts)[0] << ", Y " << (*counts)[1]
              << ", Z " << (*counts)[2] << "   machine X " << Fixed(place.machine[0], 3) << ", Y "
              << Fixed(place.machine[1], 3) << ", Z " << Fixed(place.machine[2], 3)
              << (place.isMoving ? "   moving" : "") << "\n"
              << std::flush;
    return true;
}

std::vector<std::unique_ptr<Needle>> AllConnected(Desk& desk, bool& areAll) {
    std::vector<std::unique_ptr<Needle>> needles;
    areAll = true;
    for (int number = 1; number <= MostNeedles; ++number) {
        if (desk.Read().needles[static_cast<std::size_t>(number - 1)]) {
            std::unique_ptr<Needle> needle = desk.Connected(number);
            areAll = areAll && needle;
            if (needle) {
                needles.push_back(std::move(needle));
            }
        }
    }
    areAll = areAll && !needles.empty();
    return needles;
}

bool IsConfirmed(const std::string& question) {
    std::cout << question << "\nType yes to do it: " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "yes";
}

int End(int number, const Outcome& outcome, const char* done) {
    if (!outcome.IsGood()) {
        std::cerr << "needle " << number << ": " << outcome.reason << "\n";
        return 1;
    }
    std::cout << "needle " << number << ": " << done << "; press Connect needles again in TRAVO\n";
    return 0;
}

}  // namespace

int Where(Desk& desk, int number) {
    if (number != 0) {
        const std::unique_ptr<Needle> needle = desk.Connected(number);
        return needle && Tell(*needle) ? 0 : 1;
    }
    bool isGood = false;
    for (const auto& needle : AllConnected(desk, isGood)) {
        isGood = Tell(*needle) && isGood;
    }
    return isGood ? 0 : 1;
}

int Jog(Desk& desk, int number, std::size_t axis, int counts) {
    const std::unique_ptr<Needle> needle = desk.Connected(number);
    Counts place{};
    if (!needle || !Tell(*needle) || needle->Position(place) != Status::Done) {
        return 1;
    }
    place[axis] += counts;
    if (needle->MoveTo(place) != Status::Done) {
        std::cerr << "needle " << number << ": " << needle->Reason() << "\n";
        return 1;
    }
    const Time end = needle->Now() + JogLimit;
    Place now;
    now.isMoving = true;
    while (now.isMoving && needle->Now() < end) {
        if (needle->MachinePlace(now) != Status::Done) {
            std::cerr << "needle " << number << ": " << needle->Reason() << "\n";
            return 1;
        }
    }
    return Tell(*needle) ? 0 : 1;
}

int Home(Desk& desk, int number) {
    const std::unique_ptr<Needle> needle = desk.Greeted(number);
    if (!needle) {
        return 1;
    }
    if (!IsConfirmed("Homing needle " + std::to_string(number) + ": " + needle->Language().HomeMoves() +
                     ".\nTake its tip out of the dish first: it will be driven to where the stops are.")) {
        std::cout << "Nothing was done.\n";
        return 1;
    }
    return End(number, needle->Home(), "homed");
}

int Unlock(Desk& desk, int number) {
    const std::unique_ptr<Needle> needle = desk.Greeted(number);
    if (!needle) {
        return 1;
    }
    if (!IsConfirmed("Unlocking needle " + std::to_string(number) + ": " + needle->Language().UnlockMeans() +
                     ".\nIf it has lost its place, every stored position is wrong until it is homed.")) {
        std::cout << "Nothing was done.\n";
        return 1;
    }
    return End(number, needle->Unlock(), "unlocked");
}

int Watch(Desk& desk, int seconds) {
    bool isGood = false;
    const std::vector<std::unique_ptr<Needle>> needles = AllConnected(desk, isGood);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (isGood && (seconds == 0 || std::chrono::steady_clock::now() < end)) {
        for (const auto& needle : needles) {
            isGood = Tell(*needle) && isGood;
        }
        std::this_thread::sleep_for(BetweenLooks);
    }
    return isGood ? 0 : 1;
}

}  // namespace gcode
