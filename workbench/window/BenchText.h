// Numbers and times as the window writes them.
#pragma once

#include <QString>
#include <cstdint>

namespace workbench {

// With so many places behind the point, a true minus, and no minus before nothing but zeros: "−470.0", "0.0".
QString NumberText(double value, int places = 1);
// The time of the day, "14:21:40", of a time in ms since the bench began, itself begun at `beganAt` ms since
// 1970.
QString ClockText(std::int64_t beganAt, double time);
// The same to the ms: "14:06:02.140".
QString ClockTextFine(std::int64_t beganAt, double time);

}  // namespace workbench
