// Rates that termios has no name for, such as the 250000 of printers.
#pragma once

namespace gcode {

// Sets both rates of an open terminal; false where the device refuses.
bool SetBaudRate(int terminal, int baud);

}  // namespace gcode
