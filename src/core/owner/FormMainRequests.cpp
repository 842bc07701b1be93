#include "core/owner/FormMainRequests.h"

#include <utility>

namespace travo {

FormMainRequests::FormMainRequests(const SharedState& state, Announcements& news, PositionLoop& loop,
                                   const Rooms& rooms, std::function<void(bool)> objectiveRaised)
    : state_(state), news_(news), loop_(loop), rooms_(rooms), objectiveRaised_(std::move(objectiveRaised)) {}

void FormMainRequests::ModeChange(bool bWizerd) { rooms_.tabs->ModeChange(bWizerd); }

void FormMainRequests::ShowWindow(std::int32_t Index) { rooms_.windows->Show(Index); }

void FormMainRequests::HideWindow(std::int32_t Index) { rooms_.windows->Hide(Index); }

void FormMainRequests::ZeroPointReset() { loop_.ZeroPointReset(); }

void FormMainRequests::ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) {
    news_.ChangeCellXYZ(Index, CellXYZ);
}

void FormMainRequests::SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) {
    news_.SetCalibTime(ManiNo, CalibTime, CalibOrRe);
}

void FormMainRequests::ObjectiveRaised(bool isRaised) { objectiveRaised_(isRaised); }

bool FormMainRequests::IsLit(std::int16_t needle) const {
    return rooms_.panels->CtlCalibration1.LitNeedle() == needle ||
           rooms_.panels->CtlExperiment1.intMoveTarget() == needle;
}

void FormMainRequests::TakeLampsFrom(std::int16_t needle) {
    const std::int16_t selected = state_.intManipulatorNumber;
    if (selected < 0 || selected >= NeedleCount) {
        return;
    }
    CtlCalibration& calibration = rooms_.panels->CtlCalibration1;
    CtlExperiment2& experiment = rooms_.panels->CtlExperiment1;
    if (calibration.LitNeedle() == needle) {
        calibration.ShowNeedle(selected);
    }
    if (experiment.intMoveTarget() == needle) {
        experiment.ManipulatorChange(selected);
    }
}

void FormMainRequests::chkMirror(bool isConnected) { news_.chkMirror(isConnected); }

std::int16_t FormMainRequests::ExperimentCellNo() const { return rooms_.panels->CtlExperiment1.intCellNo(); }

void FormMainRequests::FormClose(std::int32_t Index) { news_.FormClose(Index); }

}  // namespace travo
