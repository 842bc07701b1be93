// Four calibrated needles round one field on a stand-in machine: what the needle benchmarks share.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

#include "Pairs.h"
#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/clsDebugLog.h"
#include "devices/links/clsCommunication.h"
#include "needle/clsNeedleMove.h"
#include "support/FakeMachine.h"
#include "support/InstrumentsListener.h"

namespace travo::bench {

class NoListener : public SharedState::Listener {
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
};

// The needles come in from four sides, each turned by up to 15 degrees in plan view and tilted by up to
// 20 degrees, and every second one was measured the other way round.
class CalibratedNeedles : public test::FakeMachine {
public:
    explicit CalibratedNeedles(std::uint32_t seed) : random_(seed) {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            Calibrate(needle);
        }
        state.intTotalManipulatorNumber = NeedleCount - 1;
    }

    std::int32_t Whole(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random_);
    }
    double Real(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }

    PositionXYZ InManipulatorRange() { return {Whole(0, 25000), Whole(0, 25000), Whole(0, 25000)}; }
    // A place of the tip in the common frame, up to 400 units beside the middle of its way in and as far
    // before it as is given.
    PositionXYZ InField(std::int32_t needle, std::int32_t furthestBack) {
        const PositionXYZ manipulator{12500 - Whole(0, furthestBack), 12500 + Whole(-400, 400),
                                      12500 + Whole(-500, 500)};
        return {needles.Calibration(needle, 0, manipulator), needles.Calibration(needle, 1, manipulator),
                needles.Calibration(needle, 2, manipulator)};
    }

    void PlaceTip(std::int32_t needle, const PositionXYZ& tip) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            state.Needle(needle, axis, tip[static_cast<std::size_t>(axis)]);
        }
    }

    clsDebugLog log{clock};
    FailureHandler failures{log, boxes};
    NoListener listener;
    SharedState state{listener};
    test::InstrumentsListener instruments{journal};
    clsCommunication communication{
        {{driverLibrary, clock, eventLoop, pointer}, serialPorts, eventLoop}, state, failures, instruments};
    clsObjectiveUpDown objective{communication, failures};
    clsNeedleMove needles{state, communication, objective, failures, boxes};

private:
    using Vector = std::array<double, 3>;

    static Vector Turned(Vector v, std::size_t about, double degrees) {
        const double angle = degrees * std::numbers::pi / 180.0;
        const std::size_t first = (about + 1) % 3;
        const std::size_t second = (about + 2) % 3;
        const double along = v[first];
        v[first] = along * std::cos(angle) - v[second] * std::sin(angle);
        v[second] = along * std::sin(angle) + v[second] * std::cos(angle);
        return v;
    }

    void Calibrate(std::int32_t needle) {
        const double side = needle % 2 == 0 ? 3000.0 : -3000.0;
        const std::array<Vector, 4> marks{{{0, 0, 0}, {-side, 4000, 0}, {side, 4000, 0}, {0, 0, 2000}}};
        const double inPlan = 90.0 * needle + Real(-15.0, 15.0);
        const double tilt = Real(-20.0, 20.0);
        for (std::int32_t point = 0; point < 4; ++point) {
            const Vector turned = Turned(Turned(marks[static_cast<std::size_t>(point)], 1, tilt), 2, inPlan);
            for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
                needles.ManipulatorCalibrationPosXYZ(
                    needle, axis, point,
                    static_cast<std::int32_t>(std::lround(12500 + turned[static_cast<std::size_t>(axis)])));
            }
        }
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            needles.PosZero(needle, axis, Whole(-300, 300));
        }
        needles.CalibrationCalculation(needle);
        state.CalibrationON(needle, true);
    }

    std::mt19937 random_;
};

}  // namespace travo::bench
