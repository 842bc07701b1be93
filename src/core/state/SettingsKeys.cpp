#include "core/state/SettingsKeys.h"

#include <QLocale>
#include <array>
#include <charconv>
#include <cmath>

namespace travo::settings {

QString FileName() { return QStringLiteral("KVData.ini"); }

QString WindowKey(std::int32_t window) { return QString::number(window); }

QString CalibrationSection(std::int32_t needle) {
    return QStringLiteral("Manipulator Calibration:%1").arg(needle);
}

QString CalibrationPointKey(std::int32_t point, std::int32_t axis) {
    return QStringLiteral("Index:%1,XYZ:%2").arg(point).arg(axis);
}

QString ZeroKey(std::int32_t axis) { return QStringLiteral("ZERO,XYZ:%1").arg(axis); }

QString CenterKey(std::int32_t axis) { return QStringLiteral("Center,XYZ:%1").arg(axis); }

QString MyPath(const QString& FilePath, QChar separator) {
    return FilePath.endsWith(separator) ? FilePath : FilePath + separator;
}

QString FloatText(double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); }

QString FloatText(float value) {
    // Never with an exponent: these are read back as whole numbers.
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

double FloatValue(const QString& text) {
    bool good = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &good);
    return good && std::isfinite(value) ? value : 0.0;
}

}  // namespace travo::settings
