#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/GrblDialect.h"
#include "drivers/gcode/MarlinDialect.h"
#include "drivers/gcode/OmmDialect.h"

namespace gcode {

std::unique_ptr<Dialect> MakeDialect(const NeedleSettings& needle) {
    switch (needle.dialect) {
        case DialectName::Grbl:
            return std::make_unique<GrblDialect>();
        case DialectName::Marlin:
            return std::make_unique<MarlinDialect>();
        case DialectName::Omm:
            break;
    }
    return std::make_unique<OmmDialect>();
}

}  // namespace gcode
