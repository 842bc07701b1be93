// Needles on a stand-in driver, through the real facade and link, with the calibrations that the tests
// of this folder share.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <limits>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/clsDebugLog.h"
#include "devices/links/clsCommunication.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsNeedleSynchro.h"
#include "support/FakeMachine.h"
#include "support/InstrumentsListener.h"

namespace travo::test {

inline constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();

// Four calibration points whose matrix is the identity; the centre is (10000, 22000, 5000).
inline constexpr CalibrationMap::Points StraightNeedle{
    {{10000, 20000, 5000}, {7000, 24000, 5000}, {13000, 24000, 5000}, {10000, 20000, 6000}}};
// The same, tilted by thirty degrees about manipulator Y.
inline constexpr CalibrationMap::Points TiltedNeedle{
    {{10000, 20000, 5000}, {7400, 24000, 6500}, {12600, 24000, 3500}, {10500, 20000, 5866}}};
// As the straight one, but its base was measured the other way round: it runs against common X.
inline constexpr CalibrationMap::Points ReversedNeedle{
    {{10000, 20000, 5000}, {13000, 24000, 5000}, {7000, 24000, 5000}, {10000, 20000, 6000}}};
// Comes in along common +Y: manipulator X is common Y, manipulator Y is common -X.
inline constexpr CalibrationMap::Points CrosswiseNeedle{
    {{10000, 10000, 5000}, {6000, 7000, 5000}, {6000, 13000, 5000}, {10000, 10000, 6000}}};

class NeedleRig : public ::testing::Test, public FakeMachine {
protected:
    NeedleRig() {
        log.LogFilePath(folder.filePath(QStringLiteral("debugTRAVO.txt")));
        driver.position.fill({1000, 1000, 1000});
    }

    // Gives a needle its points, a whole centre and a zero, and marks it as calibrated.
    void Calibrate(std::int32_t needle, const CalibrationMap::Points& points, const PositionXYZ& center,
                   const PositionXYZ& zero) {
        CalibrateFromPoints(needle, points, zero);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            needles.ManiCenter(needle, axis, center[static_cast<std::size_t>(axis)]);
        }
    }

    // The same with the centre that the points give.
    void CalibrateFromPoints(std::int32_t needle, const CalibrationMap::Points& points,
                             const PositionXYZ& zero) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            for (std::int32_t point = 0; point < 4; ++point) {
                needles.ManipulatorCalibrationPosXYZ(
                    needle, axis, point,
                    points[static_cast<std::size_t>(point)][static_cast<std::size_t>(axis)]);
            }
            needles.PosZero(needle, axis, zero[static_cast<std::size_t>(axis)]);
        }
        needles.CalibrationCalculation(needle);
        state.CalibrationON(needle, true);
    }

    void PlaceTip(std::int32_t needle, const PositionXYZ& common) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            state.Needle(needle, axis, common[static_cast<std::size_t>(axis)]);
        }
    }

    PositionXYZ ToCommon(std::int32_t needle, const PositionXYZ& manipulator) const {
        return {needles.Calibration(needle, 0, manipulator), needles.Calibration(needle, 1, manipulator),
                needles.Calibration(needle, 2, manipulator)};
    }

    PositionXYZ ToManipulator(std::int32_t needle, const PositionXYZ& common) const {
        return {needles.InverseCalibration(needle, 0, common), needles.InverseCalibration(needle, 1, common),
                needles.InverseCalibration(needle, 2, common)};
    }

    // Needle 0 along common +X with its rear at (0, 0), needle 1 across it at X 1500, from Y -5000 to Y
    // `obstacleTipY`.
    void PlaceObstacle(std::int32_t obstacleX, std::int32_t obstacleTipY) {
        Calibrate(0, StraightNeedle, {0, 0, 0}, {0, 0, 0});
        Calibrate(1, CrosswiseNeedle, {0, 0, 0}, {0, -5000, 0});
        PlaceTip(1, {obstacleX, obstacleTipY, 0});
    }

    // The log's lines after their time of day.
    QStringList LogTexts() const {
        QFile file(log.LogFilePath());
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        QStringList texts;
        for (const QString& line :
             QString::fromLatin1(file.readAll()).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts)) {
            texts << line.section(QStringLiteral(" - "), 1);
        }
        return texts;
    }

    // True when nothing but a plain box with an OK button and this text was shown.
    bool OnlyPlainBox(const QString& text) const {
        return boxes.shown.size() == 1 && boxes.shown[0].text == text &&
               boxes.shown[0].buttons == platform::BoxButtons::OK &&
               boxes.shown[0].icon == platform::BoxIcon::None;
    }

    using Moves = std::vector<std::array<std::int32_t, 3>>;

    class NoListener : public SharedState::Listener {
        void MagnificationChanged(std::int16_t) override {}
        void ViewChanged() override {}
    };

    QTemporaryDir folder;
    clsDebugLog log{clock};
    FailureHandler failures{log, boxes};
    NoListener listener;
    SharedState state{listener};
    InstrumentsListener instruments{journal};
    clsCommunication communication{
        {{driverLibrary, clock, eventLoop, pointer}, serialPorts, eventLoop}, state, failures, instruments};
    clsObjectiveUpDown objective{communication, failures};
    clsNeedleMove needles{state, communication, objective, failures, boxes};
};

}  // namespace travo::test
