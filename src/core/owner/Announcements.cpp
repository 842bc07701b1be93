#include "core/owner/Announcements.h"

#include <type_traits>
#include <vector>

namespace travo {

namespace {

template <typename Hears, typename... News>
void Tell(const std::vector<Hears*>& listeners, void (Hears::*call)(News...),
          const std::type_identity_t<std::remove_cvref_t<News>>&... news) {
    for (Hears* const listener : listeners) {
        (listener->*call)(news...);
    }
}

}  // namespace

void Announcements::MagnificationChanged(std::int16_t magnification) {
    Tell(table_.magnification, &HearsMagnification::ChangeMagnification, magnification);
}

void Announcements::ViewChanged() { Tell(table_.view, &HearsView::ChangeViewXYZ, state_->CurrentXYZ()); }

void Announcements::TotalManipulatorNumber(std::int16_t number) {
    Tell(table_.totalManipulatorNumber, &HearsTotalManipulatorNumber::TotalManipulatorNumber, number);
}

void Announcements::ManipulatorChange(std::int16_t number) {
    Tell(table_.manipulatorChange, &HearsManipulatorChange::ManipulatorChange, number);
}

void Announcements::ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) {
    Tell(table_.needle, &HearsNeedle::ChangeNeedleXYZ, index, state_->Needles(), state_->CurrentXYZ(), root);
}

void Announcements::ChangeZeroPosition() {
    Tell(table_.zeroPosition, &HearsZeroPosition::ChangeZeroPosition);
}

void Announcements::ChangeCurrentXYZ(const PositionXYZ& currentXYZ) {
    Tell(table_.tick, &HearsTick::ChangeCurrentXYZ, currentXYZ);
}

void Announcements::ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) {
    Tell(table_.cell, &HearsCell::ChangeCellXYZ, Index, CellXYZ);
}

void Announcements::SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) {
    Tell(table_.calibTime, &HearsCalibTime::SetCalibTime, ManiNo, CalibTime, CalibOrRe);
}

void Announcements::chkMirror(bool isConnected) { Tell(table_.mirror, &HearsMirror::chkMirror, isConnected); }

void Announcements::FormClose(std::int32_t Index) {
    Tell(table_.formClose, &HearsFormClose::FormClose, Index);
}

void Announcements::checkMotor(std::int16_t ONOFF) {
    Tell(table_.mirrorMotors, &HearsMirrorMotors::checkMotor, ONOFF);
}

void Announcements::ControlONOFF(bool ONOFF) {
    Tell(table_.focusMotor, &HearsFocusMotor::ControlONOFF, ONOFF);
}

void Announcements::PortLost(Instrument instrument) {
    Tell(table_.portLost, &HearsPortLost::PortLost, instrument);
}

void Announcements::LineDropped(Instrument instrument) {
    Tell(table_.lineDropped, &HearsLineDropped::LineDropped, instrument);
}

void Announcements::Live_BirdViewSave() { Tell(table_.still, &HearsStill::NewStill); }

void Announcements::Live_WindowHide() { Tell(table_.cameraHidden, &HearsCameraHidden::LiveFromHide); }

// Closed by the operator or dead: it is gone all the same.
void Announcements::Live_WindowClose() { Tell(table_.cameraGone, &HearsCameraGone::CameraGone); }

void Announcements::LiveDied() { Tell(table_.cameraGone, &HearsCameraGone::CameraGone); }

}  // namespace travo
