// The record of a manipulator, "index,X,Y,Z": written by its link, read by whoever has asked for it.
#pragma once

#include <cstdint>
#include <string>

#include "core/ground/Positions.h"

namespace travo {

class ManipulatorRecord {
public:
    // What a record says that holds no position: "-1".
    static std::string Nothing();
    // Index from 0 and counts in the manipulator frame.
    static std::string Text(std::int32_t index, const PositionXYZ& counts);

    explicit ManipulatorRecord(std::string text);

    // Each field is read when it is asked for, so that a record with a bad one still tells the others. What
    // is missing or no whole number raises NumberFailure, what does not fit OverflowFailure.
    //
    // The index, from 0; -1 where nothing could be read.
    std::int16_t Index() const;
    bool HoldsPosition() const { return Index() != -1; }
    // Counts in the manipulator frame.
    PositionXYZ Counts() const;

private:
    std::string text_;
};

}  // namespace travo
