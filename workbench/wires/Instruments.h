// The instruments that hang on serial wires, in the world that they work.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "workbench/instruments/FocusMotor.h"
#include "workbench/instruments/Gauge.h"
#include "workbench/instruments/MirrorController.h"
#include "workbench/wires/Wire.h"
#include "workbench/world/World.h"

namespace workbench {

// The wires by their place in the list; their ports are numbered 1 to 3 in the same order.
enum class WireName : std::size_t { Mirror, Gauge, Motor };
inline constexpr std::size_t WireCount = 3;

struct Instruments {
    static constexpr std::int64_t MirrorBaud = 9600;
    static constexpr std::int64_t GaugeBaud = 2400;
    static constexpr std::int64_t MotorBaud = 9600;

    // The world must outlive its instruments.
    explicit Instruments(World& worldToWork);
    Instruments(const Instruments&) = delete;
    Instruments& operator=(const Instruments&) = delete;

    Wire& WireOf(WireName name) { return wires[static_cast<std::size_t>(name)]; }
    // travo::NumberFailure for a name that no wire has.
    Wire& WireNamed(std::string_view name);

    World& world;
    MirrorController mirror;
    Gauge gauge;
    FocusMotor motor;
    std::array<Wire, WireCount> wires;
};

}  // namespace workbench
