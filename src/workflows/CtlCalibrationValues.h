// What the calibration panel has captured, until the operator confirms it.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "core/ground/Positions.h"
#include "core/state/clsIniEdit.h"
#include "needle/clsNeedleMove.h"
#include "platform/Clock.h"

namespace travo {

// A needle is 0 to 3; an index outside raises BoundsFailure. Settings that cannot be written show nowhere.
class CtlCalibrationValues {
public:
    // Each outlives this object.
    struct System {
        clsNeedleMove& needleMove;
        clsIniEdit& iniEdit;
        const platform::Clock& clock;
    };

    // Every position is 0 at first.
    explicit CtlCalibrationValues(const System& system) : system_(system) {}

    // The tip at calibration point 0 to 3, in the manipulator frame.
    void Position(std::int32_t needle, std::size_t point, const PositionXYZ& counts);
    // The view at the last capture, in the common frame.
    void Zero(std::int32_t needle, const PositionXYZ& common);
    // The tip on the centre, in the manipulator frame.
    void Center(const PositionXYZ& counts) { PanelCenter_ = counts; }

    // Points and view of a full calibration, into maps and settings. No centre: the one that the maps
    // compute is not kept.
    void KeepFullCalibration(std::int32_t needle);
    // Centre and view of a re-calibration, into maps and settings.
    void KeepReCalibration(std::int32_t needle);
    // The present date and time, into the settings; gives the text that was written.
    QString KeepTime(std::int32_t needle);
    QString KeepReTime(std::int32_t needle);

    // Forgets the points and the view, here and in the settings, and the points in the maps as well. The
    // references of the maps stay.
    void Clear(std::int32_t needle);

private:
    using Points = std::array<std::int32_t, CalibrationPointCount>;

    QString KeepPresentTime(std::int32_t needle, const QString& key);
    void Store(std::int32_t needle, const QString& key, std::int32_t value);
    void Store(std::int32_t needle, const QString& key, const QString& text);

    const System system_;
    // By needle, axis and point.
    std::array<std::array<Points, AxisCount>, NeedleCount> PanelPos_{};
    std::array<PositionXYZ, NeedleCount> PanelZero_{};
    PositionXYZ PanelCenter_{};
};

}  // namespace travo
