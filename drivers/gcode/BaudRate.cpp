// A file of its own: the kernel's header of arbitrary rates and the C library's <termios.h> exclude each
// other.
#include "drivers/gcode/BaudRate.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>

#ifndef TCGETS2
#define TCGETS2 _IOR('T', 0x2A, struct termios2)
#define TCSETS2 _IOW('T', 0x2B, struct termios2)
#endif

namespace gcode {

bool SetBaudRate(int terminal, int baud) {
    termios2 settings{};
    if (ioctl(terminal, TCGETS2, &settings) != 0) {
        return false;
    }
    settings.c_cflag &= ~static_cast<tcflag_t>(CBAUD | (CBAUD << IBSHIFT));
    settings.c_cflag |= BOTHER | (BOTHER << IBSHIFT);
    settings.c_ispeed = static_cast<speed_t>(baud);
    settings.c_ospeed = static_cast<speed_t>(baud);
    return ioctl(terminal, TCSETS2, &settings) == 0;
}

}  // namespace gcode
