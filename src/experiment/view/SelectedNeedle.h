// The needle that the hardware has, for a panel that lights one and acts on it.
#pragma once

#include <cstdint>

#include "core/ground/Positions.h"
#include "core/state/NeedleReader.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"

namespace travo {

// The hardware moves the needle that it has, whatever is lit. Which one that is, is known from the last time
// that it was read; a choice is only sent, and proved by the next reading. Indexes are 0 to 3.
class SelectedNeedle {
public:
    // Each outlives this object.
    struct System {
        const SharedState& state;
        clsCommunication& communication;
        NeedleReader& reader;
    };

    explicit SelectedNeedle(const System& system) : system_(system) {}

    // Sends the choice, unless the needle is the one known. What the instruments raise goes to the caller.
    void Choose(std::int16_t index);
    // A needle has been read as the one that the hardware has.
    void HasBeenRead() { isUnread_ = false; }

    // The last reading; -1 or 4 for none of the tables.
    std::int16_t Index() const { return system_.state.intManipulatorNumber; }
    // A needle of the tables has been read.
    bool IsKnown() const { return Index() >= 0 && Index() < NeedleCount; }
    // Where it stands. BoundsFailure where it is not known.
    const PositionXYZ& Place() const;

    // The hardware has that needle: it was the last one read, with no choice sent since, or is now. Reads
    // once at most, and not at all while none is known to be connected.
    bool Is(std::int16_t index);

private:
    const System system_;
    // Another needle has been asked for than the one known, and none has been read since.
    bool isUnread_ = false;
};

}  // namespace travo
