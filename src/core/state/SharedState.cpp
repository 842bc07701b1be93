#include "core/state/SharedState.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "core/ground/Magnification.h"

namespace travo {

namespace {

template <typename Table>
auto& Row(Table& table, std::int32_t index) {
    return table[Bounded(index, table.size())];
}

}  // namespace

std::int16_t SharedState::HighestNeedle() const {
    return std::min(intTotalManipulatorNumber, static_cast<std::int16_t>(NeedleCount - 1));
}

void SharedState::CurrentMagnification(std::int16_t magnification) {
    if (magnification < NoMagnification || magnification > Magnification4x) {
        return;
    }
    intMagnification_ = magnification;
    listener_.MagnificationChanged(magnification);
}

std::int32_t SharedState::Needle(std::int32_t ManipulatorNumber, std::int32_t XYZ) const {
    return Row(Row(needle_, ManipulatorNumber), XYZ);
}

void SharedState::Needle(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value) {
    Row(Row(needle_, ManipulatorNumber), XYZ) = value;
}

std::int32_t SharedState::CurrentXYZ(std::int32_t XYZ) const { return Row(current_, XYZ); }

void SharedState::CurrentXYZ(std::int32_t XYZ, std::int32_t value) {
    std::int32_t& stored = Row(current_, XYZ);
    if (stored == value) {
        return;
    }
    stored = value;
    listener_.ViewChanged();
}

void SharedState::CurrentXY(std::int32_t PositionX, std::int32_t PositionY) {
    current_[0] = PositionX;
    current_[1] = PositionY;
    listener_.ViewChanged();
}

std::int32_t SharedState::ZeroXYZ(std::int32_t XYZ) const { return Row(zero_, XYZ); }

void SharedState::ZeroXYZ(std::int32_t XYZ, std::int32_t value) {
    StoreZeroXYZ(XYZ, value);
    listener_.ViewChanged();
}

void SharedState::StoreZeroXYZ(std::int32_t XYZ, std::int32_t value) { Row(zero_, XYZ) = value; }

std::int32_t SharedState::CellPosition(std::int32_t CellPositionNumber, std::int32_t XYZ) const {
    return Row(Row(cell_, CellPositionNumber), XYZ);
}

void SharedState::CellPosition(std::int32_t CellPositionNumber, std::int32_t XYZ, std::int32_t value) {
    Row(Row(cell_, CellPositionNumber), XYZ) = value;
}

bool SharedState::CalibrationON(std::int32_t ManipulatorNumber) const {
    return Row(calibrationOn_, ManipulatorNumber);
}

void SharedState::CalibrationON(std::int32_t ManipulatorNumber, bool value) {
    Row(calibrationOn_, ManipulatorNumber) = value;
}

}  // namespace travo
