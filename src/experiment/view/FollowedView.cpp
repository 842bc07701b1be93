#include "experiment/view/FollowedView.h"

#include "core/ground/Arithmetic.h"

namespace travo {

PositionXYZ FollowedView::GoneTo(const PositionXYZ& view) {
    PositionXYZ change{};
    for (std::size_t axis = 0; axis < change.size(); ++axis) {
        if (view[axis] != NoPositionValue && last_[axis] != NoPositionValue) {
            change[axis] = Difference(view[axis], last_[axis]);
        }
    }
    const PositionXYZ gone = MirrorToCommon(change);
    last_ = view;
    return gone;
}

}  // namespace travo
