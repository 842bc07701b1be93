// What the owner tells on: one interface for each piece of news, with that call alone.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "core/ground/Positions.h"

namespace travo {

// Whoever wants to hear implements it; who is told in which order stands in the owner's table. The shared
// state holds what is told before anybody hears of it. What a listener raises keeps the news from those
// behind it and goes to whoever told.

class HearsMagnification {
public:
    virtual ~HearsMagnification() = default;
    // The magnification has been written, with a new value or the same: 1 is 0.35x, 2 is 2x, 3 is 4x, 0 none
    // known.
    virtual void ChangeMagnification(std::int16_t Magnification) = 0;
};

class HearsView {
public:
    virtual ~HearsView() = default;
    // The view has been written, in the mirror frame.
    virtual void ChangeViewXYZ(const PositionXYZ& CurrentXYZ) = 0;
};

class HearsTick {
public:
    virtual ~HearsTick() = default;
    // A tick of the position loop has read: the view as it stands, in the mirror frame.
    virtual void ChangeCurrentXYZ(const PositionXYZ& CurrentXYZ) = 0;
};

class HearsTotalManipulatorNumber {
public:
    virtual ~HearsTotalManipulatorNumber() = default;
    // The highest connected index, 0 to 4, -1 for none, after a connection or the loss of it.
    virtual void TotalManipulatorNumber(std::int16_t ManipulatorNumber) = 0;
};

class HearsManipulatorChange {
public:
    virtual ~HearsManipulatorChange() = default;
    // Another needle than the one known, index 0 to 3, is selected at the hardware.
    virtual void ManipulatorChange(std::int16_t ManipulatorNumber) = 0;
};

class HearsNeedle {
public:
    virtual ~HearsNeedle() = default;
    // Needle ManipulatorNumber has been read: all needles and the root of this one in the common frame, the
    // view in the mirror frame.
    virtual void ChangeNeedleXYZ(std::int16_t ManipulatorNumber,
                                 const std::array<PositionXYZ, NeedleCount>& NeedleXYZ,
                                 const PositionXYZ& CurrentXYZ, const PositionXYZ& OriNeedle) = 0;
};

class HearsZeroPosition {
public:
    virtual ~HearsZeroPosition() = default;
    // The common Z origin has moved by ZeroXYZ(2): stored heights follow it.
    virtual void ChangeZeroPosition() = 0;
};

class HearsCell {
public:
    virtual ~HearsCell() = default;
    // Cell 0 to 7 has been stored, in the mirror frame.
    virtual void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) = 0;
};

class HearsCalibTime {
public:
    virtual ~HearsCalibTime() = default;
    // The time of a needle's calibration (CalibOrRe 0) or re-calibration (1), as it is to be read; "-1" for
    // none.
    virtual void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) = 0;
};

class HearsMirror {
public:
    virtual ~HearsMirror() = default;
    // The mirror controller has answered, or has not.
    virtual void chkMirror(bool isConnected) = 0;
};

class HearsMirrorMotors {
public:
    virtual ~HearsMirrorMotors() = default;
    // The mirror's own motors as its controller reports them: 0 is off, any other on.
    virtual void checkMotor(std::int16_t ONOFF) = 0;
};

class HearsFocusMotor {
public:
    virtual ~HearsFocusMotor() = default;
    // The focus motor has taken a command (false) or answered it (true).
    virtual void ControlONOFF(bool bONOFF) = 0;
};

class HearsStill {
public:
    virtual ~HearsStill() = default;
    // The live camera's picture file is complete.
    virtual void NewStill() = 0;
};

class HearsCameraHidden {
public:
    virtual ~HearsCameraHidden() = default;
    // The operator has hidden the camera window from its side.
    virtual void LiveFromHide() = 0;
};

class HearsCameraGone {
public:
    virtual ~HearsCameraGone() = default;
    // The camera has been closed or has died; `LiveOpen` is false.
    virtual void CameraGone() = 0;
};

class HearsFormClose {
public:
    virtual ~HearsFormClose() = default;
    // Window 1 to 4 has been closed by its own button.
    virtual void FormClose(std::int32_t Index) = 0;
};

}  // namespace travo
