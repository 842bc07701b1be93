#include "workbench/tour/CalibrationKeys.h"

#include <QDateTime>
#include <QRegularExpression>
#include <cstdlib>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

constexpr qint64 SecondsOfTwoMinutes = 120;
const QString NoTime = QStringLiteral("-1");

QString Section(std::int32_t needle) { return QStringLiteral("Manipulator Calibration:%1").arg(needle); }

// prefix with "XYZ:" and the number of the axis.
PositionXYZ ReadAxes(Stage& stage, std::int32_t needle, const QString& prefix) {
    PositionXYZ values{};
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        const QString key = prefix + QStringLiteral(",XYZ:%1").arg(axis);
        const QString text = StoredSetting(stage, Section(needle), key);
        bool isNumber = false;
        values[axis] = text.toInt(&isNumber);
        Require(isNumber,
                NeedleName(needle) + ": the key " + key.toStdString() + " holds " + text.toStdString());
    }
    return values;
}

}  // namespace

CalibrationKeys ReadCalibrationKeys(Stage& stage, std::int32_t needle) {
    CalibrationKeys keys;
    for (std::size_t point = 0; point < keys.points.size(); ++point) {
        keys.points[point] = ReadAxes(stage, needle, QStringLiteral("Index:%1").arg(point));
    }
    keys.zero = ReadAxes(stage, needle, QStringLiteral("ZERO"));
    keys.centre = ReadAxes(stage, needle, QStringLiteral("Center"));
    keys.time = StoredSetting(stage, Section(needle), QStringLiteral("Time"));
    keys.reTime = StoredSetting(stage, Section(needle), QStringLiteral("ReTime"));
    return keys;
}

CalibrationKeys ClearedKeys() {
    constexpr PositionXYZ unset{travo::NoPositionValue, travo::NoPositionValue, travo::NoPositionValue};
    CalibrationKeys keys;
    keys.points.fill(unset);
    keys.zero = unset;
    keys.time = NoTime;
    keys.reTime = NoTime;
    return keys;
}

void RequirePresentTime(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^\\d\\d/\\d\\d/\\d\\d {4}\\d\\d:\\d\\d$"));
    Require(form.match(text).hasMatch(), "stored as a time: " + text.toStdString());
    // Two figures are a year of this century.
    const QDateTime time =
        QDateTime::fromString(QStringLiteral("20") + text, QStringLiteral("yyyy/MM/dd    HH:mm"));
    Require(std::abs(time.secsTo(QDateTime::currentDateTime())) < SecondsOfTwoMinutes,
            "the time stored is not the present one: " + text.toStdString());
}

}  // namespace workbench::tour
