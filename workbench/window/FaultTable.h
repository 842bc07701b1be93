// The faults that the window offers: what each says, what ends it, what lights it, and its other numbers.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "workbench/window/Scene.h"

namespace workbench {

inline constexpr int FaultColumns = 6;  // mirror, mirror again, gauge, motor, needles, camera
inline constexpr int NeedleColumn = 4;
inline constexpr int CameraColumn = 5;

struct Fault {
    int column = 0;
    QString object;
    QString text;
    QString name;  // for people and screen readers
    std::string on;
    std::string off;      // empty for a push, which is over at once
    std::string litBy;    // as "fault list" names it; see IsLit for those that it does not name
    std::string numbers;  // which other numbers it has: a key of FaultChoices; empty for none
    std::string wire;     // that it belongs to; empty for the driver and the camera

    bool Lasts() const { return !off.empty(); }
};

// From the left column to the right one, each from its top.
const std::vector<Fault>& Faults();

// One of the other numbers of a fault.
struct FaultChoice {
    QString group;     // the menu below the menu that it stands in; empty for none
    QString menu;      // its own line there
    QString text;      // what the chip then says
    QString textIsOn;  // while it is on, ahead of what is left
    std::string on;
};

// Of a fault, in the order of the menu; empty where it has none.
std::vector<FaultChoice> ChoicesOf(const Fault& fault);
// What a fault does and says until somebody has chosen.
FaultChoice FirstChoice(const Fault& fault);

// The line with {N}, the picked needle, and {M}, the one after it, filled in.
std::string ForNeedle(const std::string& line, int picked);

bool IsLit(const Fault& fault, const Scene& scene);
// What is left of a counting fault, "×3" or "×∞"; empty for one that does not count.
QString LeftText(const Fault& fault, const Scene& scene);
// How many faults are on, those of the needles and the motors switched off among them.
int FaultsOn(const Scene& scene);

}  // namespace workbench
