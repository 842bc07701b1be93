#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

const char* Name(DialectName dialect) {
    switch (dialect) {
        case DialectName::Grbl:
            return "grbl";
        case DialectName::Marlin:
            return "marlin";
        case DialectName::Omm:
            break;
    }
    return "omm";
}

// As the manuals of the three have it: grbl 1.1 115200, Marlin's usual configuration 250000, the Open
// Micro-Manipulator's interface 921600.
int UsualBaud(DialectName dialect) {
    switch (dialect) {
        case DialectName::Grbl:
            return 115200;
        case DialectName::Marlin:
            return 250000;
        case DialectName::Omm:
            break;
    }
    return 921600;
}

}  // namespace gcode
