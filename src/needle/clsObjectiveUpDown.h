// The objective's moves and the Z stand-off of cell moves.
#pragma once

#include <cstdint>

namespace travo {

class clsObjectiveUpDown {
public:
    // Lowest Z stand-off that the user panel accepts.
    std::int32_t lngMinimumOffset = 100;
    // Z stand-off in common Z units; also the lower limit of a needle's Z in synchronised moves. Persisted.
    std::int32_t lngOffset = 100;
    // Z difference of the last move of the objective, in common Z units.
    std::int32_t lngAmountZMove = 0;
};

}  // namespace travo
