#include "workflows/CtlCalibrationRecording.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "devices/links/ManipulatorRecord.h"

namespace travo {

bool CtlCalibrationRecording::MarksStand() const {
    return std::all_of(captured_.begin(), captured_.begin() + MarkCount,
                       [](bool isCaptured) { return isCaptured; });
}

CtlCalibrationRecording::Tip CtlCalibrationRecording::Read(std::size_t point) {
    if (system_.state.LiveOpen) {
        system_.live.LiveActionStart();
    }
    // The replies come later: the view that is recorded is the one known before.
    system_.communication.RequestMagnescaleData();
    system_.communication.RequestMirrorData();
    captured_.at(point) = true;
    const ManipulatorRecord record(system_.communication.RequestManipulatorData());
    if (!record.HoldsPosition()) {
        throw Failure("no manipulator position could be read");
    }
    return {record.Index(), record.Counts()};
}

void CtlCalibrationRecording::Keep(std::size_t point, const Tip& tip) {
    if (point == PointCenter) {
        values_.Center(tip.counts);
    } else {
        values_.Position(tip.needle, point, tip.counts);
    }
    // Each point in the focal plane overwrites the view of the one before; the raised one does not lie in it.
    if (point != PointZ) {
        values_.Zero(tip.needle, MirrorToCommon(system_.state.CurrentXYZ()));
    }
    TellCamera(point);
}

void CtlCalibrationRecording::TellCamera(std::size_t point) {
    if (!system_.state.LiveOpen) {
        return;
    }
    system_.live.LiveActionEnd();
    if (point == PointCenter) {
        system_.live.LiveCalibCenter();
    } else {
        system_.live.LiveCalibPoints();
    }
}

}  // namespace travo
