#include "workflows/CtlCalibrationValues.h"

#include <QLocale>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"

namespace travo {

namespace {

// What a cleared centre is stored as: not as unset, since it is taken over at the next start in any case.
constexpr std::int32_t NoCenter = 0;

}  // namespace

void CtlCalibrationValues::Position(std::int32_t needle, std::size_t point, const PositionXYZ& counts) {
    auto& axes = PanelPos_[Bounded(needle, PanelPos_.size())];
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        axes[axis].at(point) = counts[axis];
    }
}

void CtlCalibrationValues::Zero(std::int32_t needle, const PositionXYZ& common) {
    PanelZero_[Bounded(needle, PanelZero_.size())] = common;
}

void CtlCalibrationValues::KeepFullCalibration(std::int32_t needle) {
    const auto& axes = PanelPos_[Bounded(needle, PanelPos_.size())];
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
            const std::int32_t counts = axes[static_cast<std::size_t>(axis)][static_cast<std::size_t>(point)];
            system_.needleMove.ManipulatorCalibrationPosXYZ(needle, axis, point, counts);
            Store(needle, settings::CalibrationPointKey(point, axis), counts);
        }
    }
    const PositionXYZ& zero = PanelZero_[Bounded(needle, PanelZero_.size())];
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const std::int32_t value = zero[static_cast<std::size_t>(axis)];
        system_.needleMove.PosZero(needle, axis, value);
        Store(needle, settings::ZeroKey(axis), value);
    }
}

void CtlCalibrationValues::KeepReCalibration(std::int32_t needle) {
    const PositionXYZ& zero = PanelZero_[Bounded(needle, PanelZero_.size())];
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        system_.needleMove.ManiCenter(needle, axis, PanelCenter_[index]);
        system_.needleMove.PosZero(needle, axis, zero[index]);
        Store(needle, settings::ZeroKey(axis), zero[index]);
        Store(needle, settings::CenterKey(axis), PanelCenter_[index]);
    }
}

QString CtlCalibrationValues::KeepTime(std::int32_t needle) {
    return KeepPresentTime(needle, settings::TimeKey);
}

QString CtlCalibrationValues::KeepReTime(std::int32_t needle) {
    return KeepPresentTime(needle, settings::ReTimeKey);
}

QString CtlCalibrationValues::KeepPresentTime(std::int32_t needle, const QString& key) {
    const QString time = QLocale::c().toString(system_.clock.Now(), QStringLiteral("yy/MM/dd    HH:mm"));
    Store(needle, key, time);
    return time;
}

void CtlCalibrationValues::Clear(std::int32_t needle) {
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        Points& points = PanelPos_[Bounded(needle, PanelPos_.size())][static_cast<std::size_t>(axis)];
        points.fill(NoPositionValue);
        for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
            system_.needleMove.ManipulatorCalibrationPosXYZ(needle, axis, point, NoPositionValue);
            Store(needle, settings::CalibrationPointKey(point, axis), NoPositionValue);
        }
    }
    PanelZero_[Bounded(needle, PanelZero_.size())].fill(NoPositionValue);
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        Store(needle, settings::ZeroKey(axis), NoPositionValue);
        Store(needle, settings::CenterKey(axis), NoCenter);
    }
    Store(needle, settings::TimeKey, settings::NoTime);
    Store(needle, settings::ReTimeKey, settings::NoTime);
}

void CtlCalibrationValues::Store(std::int32_t needle, const QString& key, std::int32_t value) {
    Store(needle, key, QString::number(value));
}

void CtlCalibrationValues::Store(std::int32_t needle, const QString& key, const QString& text) {
    system_.iniEdit.WriteString(settings::CalibrationSection(needle), key, text);
}

}  // namespace travo
