// The cells in the dish.
#pragma once

#include <array>
#include <cstdint>

#include "workbench/world/Geometry.h"

namespace workbench {

// At a place that whole mirror counts can reach.
struct Cell {
    std::int32_t mirrorX = 0;
    std::int32_t mirrorY = 0;
    double z = 0.0;       // common units
    double radius = 0.0;  // common units

    Vector Place() const;
};

// No two of them, and none with the origin, lie along a default shaft.
inline constexpr std::array<Cell, 6> CellsInTheDish = {{{-84, 45, 0.0, 14.0},
                                                        {56, 73, 0.0, 12.0},
                                                        {-40, -66, 0.0, 15.0},
                                                        {94, -38, 0.0, 13.0},
                                                        {12, 20, 30.0, 11.0},
                                                        {-130, -96, -30.0, 16.0}}};

}  // namespace workbench
