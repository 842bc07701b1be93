// What several acts do: choosing and sending needles, waiting for the instruments, asking the world.
#pragma once

#include <cstdint>
#include <string>

#include "core/ground/Positions.h"
#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Two decimals.
std::string NumberText(double value);
// "needle 1" for index 0.
std::string NeedleName(std::int32_t needle);

// Selects a needle, index 0 to 3, as the panels do, and waits until the program has noticed.
void ChooseNeedle(Stage& stage, std::int32_t needle);
// Sends the chosen needle to a target in the common frame, stand-offs included.
void SendNeedle(Stage& stage, std::int32_t needle, const travo::PositionXYZ& target);
// Waits until no needle moves; the distance of the true tip from a place, in common units.
double LandingError(Stage& stage, std::int32_t needle, const travo::PositionXYZ& place);
// The true place of the tip in whole common units.
travo::PositionXYZ TruePlace(Stage& stage, std::int32_t needle);
// The world must have seen no two shafts cross.
void RequireNoCrossing(Stage& stage);

// The value of a key in the settings file itself, "none" where it is not there.
QString StoredSetting(Stage& stage, const QString& section, const QString& key);

// Opens the three ports through the facade and waits for the first data of each instrument; then asks
// for 2x and waits for it.
void OpenPorts(Stage& stage);
void SetMagnification2x(Stage& stage);
// After a start on stored ports: waits until all three instruments are heard.
void WaitForInstruments(Stage& stage);
// Waits until the program knows the mirror at these counts, and the world has it there.
void WaitForView(Stage& stage, std::int32_t x, std::int32_t y);
// Waits until the program reads this Z, in common units, within one unit.
void WaitForZ(Stage& stage, std::int32_t z);

}  // namespace workbench::tour
