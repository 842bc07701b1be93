// The positions that one step of a calibration records: read from the manipulator, kept, told to the camera.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/ground/Positions.h"
#include "core/state/LiveLink.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"
#include "workflows/CtlCalibrationValues.h"

namespace travo {

// Points are 0 to 4: the marks A to C, the needle in focus, the tip on the centre; std::out_of_range for any
// other.
class CtlCalibrationRecording {
public:
    static constexpr std::size_t MarkCount = 3;
    static constexpr std::size_t PointZ = 3;
    static constexpr std::size_t PointCenter = 4;
    static constexpr std::size_t PointCount = 5;

    // Each outlives this object.
    struct System {
        const SharedState& state;
        clsCommunication& communication;
        LiveLink& live;
    };

    // A needle's tip as its manipulator reports it.
    struct Tip {
        std::int16_t needle;
        PositionXYZ counts;
    };

    CtlCalibrationRecording(const System& system, CtlCalibrationValues& values)
        : system_(system), values_(values) {}

    // Nothing has been captured in the step that begins now.
    void Begin() { captured_.fill(false); }
    bool IsCaptured(std::size_t point) const { return captured_.at(point); }
    // The next press captures again.
    void Free(std::size_t point) { captured_.at(point) = false; }
    // All three marks have been captured.
    bool MarksStand() const;

    // Captures: opens the camera's action, asks gauge and mirror, and reads the tip. The point counts as
    // captured from before the reading. Failure where nothing could be read, or what was read is no position.
    Tip Read(std::size_t point);
    // Keeps that tip, and but for the raised point the view known now; closes the camera's action and tells
    // it what has been captured. BoundsFailure for a needle outside the tables.
    void Keep(std::size_t point, const Tip& tip);

private:
    void TellCamera(std::size_t point);

    const System system_;
    CtlCalibrationValues& values_;
    std::array<bool, PointCount> captured_{};
};

}  // namespace travo
