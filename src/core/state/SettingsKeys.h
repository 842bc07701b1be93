// The names of the settings file, where more than one place needs them.
#pragma once

#include <QString>
#include <cstdint>

namespace travo::settings {

// Name of the file; it lies in the program's folder.
QString FileName();

// "Manipulator Calibration:2" for needle 2.
QString CalibrationSection(std::int32_t needle);
// "Index:3,XYZ:0" for point 3, axis X; "ZERO,XYZ:2" and "Center,XYZ:1" for an axis.
QString CalibrationPointKey(std::int32_t point, std::int32_t axis);
QString ZeroKey(std::int32_t axis);
QString CenterKey(std::int32_t axis);

// FilePath with the platform's separator added unless it already ends in one.
QString MyPath(const QString& FilePath, QChar separator);

// A floating value as the shortest text that reads back as the same value, with a point.
QString FloatText(double value);
// The same without an exponent, for values that are read back as whole numbers.
QString FloatText(float value);
// The value of such a text; 0 for what is no number.
double FloatValue(const QString& text);

}  // namespace travo::settings
