#include "workbench/wires/Instruments.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"

namespace workbench {

Instruments::Instruments(World& worldToWork)
    : world(worldToWork),
      mirror(world),
      gauge(world),
      motor(world),
      wires{Wire("mirror", 1, MirrorBaud, mirror), Wire("gauge", 2, GaugeBaud, gauge),
            Wire("motor", 3, MotorBaud, motor)} {}

Wire& Instruments::WireNamed(std::string_view name) {
    auto* found =
        std::find_if(wires.begin(), wires.end(), [name](const Wire& wire) { return wire.Name() == name; });
    if (found == wires.end()) {
        throw travo::NumberFailure("the wires are mirror, gauge and motor");
    }
    return *found;
}

}  // namespace workbench
