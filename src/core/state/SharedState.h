// The one record of the present state that all panels, windows and motion classes share.
#pragma once

#include <array>
#include <cstdint>

#include "core/ground/Positions.h"

namespace travo {

class SharedState {
public:
    // What the owner does when a written value must be told on.
    class Listener {
    public:
        virtual ~Listener() = default;
        // `intMagnification` has been written, with a new value or with the same one.
        virtual void MagnificationChanged(std::int16_t magnification) = 0;
        // The view has been written: `CurrentXYZ` with a new value, or `CurrentXY` or `ZeroXYZ` with any.
        virtual void ViewChanged() = 0;
    };

    explicit SharedState(Listener& listener) : listener_(listener) {}
    SharedState(const SharedState&) = delete;
    SharedState& operator=(const SharedState&) = delete;

    // Highest connected needle index, 0 to 4, -1 for none. Written by start-up and position loop only.
    std::int16_t intTotalManipulatorNumber = -1;
    // The highest of them that has a place in the tables, -1 for none: a fifth manipulator has none.
    std::int16_t HighestNeedle() const;
    // Index of the needle selected at the hardware, -1 while none is known. Position loop only.
    std::int16_t intManipulatorNumber = -1;
    // The focus motor has identified itself and is in use.
    bool bMotorONOFF = false;
    // The mirror controller reports its own motors on.
    bool bMirrorMotorONOFF = false;
    // The live camera object exists and is usable.
    bool LiveOpen = false;
    // Where the still lies under the markers of the bird's-eye view, as fractions of its size, persisted.
    double ShiftX = 0.0;
    double ShiftY = 0.0;

    // Objective index: 1 is 0.35x, 2 is 2x, 3 is 4x; 0 before any report.
    std::int16_t intMagnification() const { return intMagnification_; }
    std::int16_t CurrentMagnification() const { return intMagnification_; }
    // A value outside 0 to 3 has no effect at all; any other is stored and told, also when equal.
    void CurrentMagnification(std::int16_t magnification);
    // Stores 0 and tells nobody: the state before any report, as start-up restores it.
    void ClearMagnification() { intMagnification_ = 0; }

    // Needle tip in the common frame, needle 0 to 3, axis 0 to 2. Starts at 0. Writing tells nobody.
    std::int32_t Needle(std::int32_t ManipulatorNumber, std::int32_t XYZ) const;
    void Needle(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value);
    const std::array<PositionXYZ, NeedleCount>& Needles() const { return needle_; }

    // View in the mirror frame: mirror X, mirror Y, gauge reading times 1000. NoPositionValue until received.
    std::int32_t CurrentXYZ(std::int32_t XYZ) const;
    const PositionXYZ& CurrentXYZ() const { return current_; }
    // Tells only when the value differs from the stored one.
    void CurrentXYZ(std::int32_t XYZ, std::int32_t value);
    // Both mirror axes at once; always tells, once.
    void CurrentXY(std::int32_t PositionX, std::int32_t PositionY);

    // The coordinate origin; only its Z ever changes. Writing always tells, `StoreZeroXYZ` never.
    std::int32_t ZeroXYZ(std::int32_t XYZ) const;
    void ZeroXYZ(std::int32_t XYZ, std::int32_t value);
    void StoreZeroXYZ(std::int32_t XYZ, std::int32_t value);

    // Stored cell positions in the mirror frame, cell 0 to 7 (A to H). A row whose X is
    // NoPositionValue is not set. Writing tells nobody. Never persisted.
    std::int32_t CellPosition(std::int32_t CellPositionNumber, std::int32_t XYZ) const;
    void CellPosition(std::int32_t CellPositionNumber, std::int32_t XYZ, std::int32_t value);

    // The needle has a complete calibration and may be moved. Writing tells nobody.
    bool CalibrationON(std::int32_t ManipulatorNumber) const;
    void CalibrationON(std::int32_t ManipulatorNumber, bool value);

    // Every index above outside its bounds raises BoundsFailure.

private:
    static constexpr PositionXYZ Unset{NoPositionValue, NoPositionValue, NoPositionValue};

    Listener& listener_;
    std::int16_t intMagnification_ = 0;
    std::array<PositionXYZ, NeedleCount> needle_{};
    PositionXYZ current_ = Unset;
    PositionXYZ zero_{};
    std::array<PositionXYZ, CellCount> cell_{Unset, Unset, Unset, Unset, Unset, Unset, Unset, Unset};
    std::array<bool, NeedleCount> calibrationOn_{};
};

}  // namespace travo
