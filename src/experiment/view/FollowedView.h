// The view that a needle follows in the synchronised mode: how far it has gone since it was looked at last.
#pragma once

#include "core/ground/Positions.h"

namespace travo {

class FollowedView {
public:
    // From here on; in the mirror frame.
    void Begin(const PositionXYZ& view) { last_ = view; }
    // How far the view has gone since the last call of either, in the common frame. Each change is rounded by
    // itself and no remainder is carried. An axis that is not known, now or then, has not moved as far as
    // anybody can tell. OverflowFailure for a change beyond 32 bits; the last view stays then.
    PositionXYZ GoneTo(const PositionXYZ& view);

private:
    PositionXYZ last_{};
};

}  // namespace travo
