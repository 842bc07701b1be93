// From the number of a serial port to its device.
#pragma once

#include <QString>
#include <cstdint>
#include <map>

namespace travo::platform::qt {

// Path of the device, with every link followed. Port n is ports/com<n> in the program folder where
// that exists, as a link or as anything else, and /dev/ttyS<n-1> where it does not. So a laboratory
// pins an adapter to a number with one link to its /dev/serial/by-id name. Empty where the link leads
// nowhere, and below 1: such a port has no device, and a pinned one never falls back to another.
QString PortDevice(const QString& programFolder, std::int16_t number);

// The numbers that have a ports/com<n> of their own, each with its path, links not followed.
std::map<std::int16_t, QString> PinnedPorts(const QString& programFolder);

}  // namespace travo::platform::qt
