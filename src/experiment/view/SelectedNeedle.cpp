#include "experiment/view/SelectedNeedle.h"

#include "core/ground/Arithmetic.h"

namespace travo {

void SelectedNeedle::Choose(std::int16_t index) {
    if (Index() != index) {
        isUnread_ = true;
        system_.communication.ChangeManipulator(ToInteger16(index + 1));
    }
}

const PositionXYZ& SelectedNeedle::Place() const {
    return system_.state.Needles()[Bounded(Index(), NeedleCount)];
}

bool SelectedNeedle::Is(std::int16_t index) {
    if (Index() == index && !isUnread_) {
        return true;
    }
    if (Index() == -1 || !system_.reader.ManipulatorReload()) {
        return false;
    }
    isUnread_ = false;
    return Index() == index;
}

}  // namespace travo
