// Pins a port number of TRAVO to a device by the device's lasting name.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace travo::launcher {

// The instruments by the words of the command line, with the port number that each gets.
std::optional<std::int16_t> PortNumberOf(const QString& instrument);

// The lasting name of a serial device: the link under `names` (by-id, else by-path) that leads to it,
// whatever it is called today. The device itself where it has none, and a name that lasts already as it is.
QString LastingName(const QString& device, const QString& names);

// Makes ports/com<number> in the program folder a link to `target`, in place of a link that is there. Raises
// std::runtime_error with a sentence where something else stands there or the folder cannot be written.
void Pin(const QString& programFolder, std::int16_t number, const QString& target);

}  // namespace travo::launcher
