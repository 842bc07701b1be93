// All names of the settings file, and what counts where a key is missing.
#pragma once

#include <QLatin1String>
#include <QString>
#include <cstdint>

namespace travo::settings {

// Name of the file; it lies in the program's folder.
QString FileName();

// Where the still lies under the markers of the bird's-eye view; 0 where it is missing.
inline constexpr QLatin1String ShiftSection("FormBirdView_Shift");
inline constexpr QLatin1String ShiftXKey("X");
inline constexpr QLatin1String ShiftYKey("Y");

// Places of windows; see WindowPlace.
inline constexpr QLatin1String MainWindowSection("FormMain_Position");
inline constexpr QLatin1String BirdViewSection("FormBirdView_Position");
inline constexpr QLatin1String NeedleWindowSection("FormManiInfo_Position");
inline constexpr QLatin1String MirrorWindowSection("FormMirror_Position");
inline constexpr QLatin1String MagnificationWindowSection("FormMirror2_Position");
inline constexpr QLatin1String TopKey("Top");
inline constexpr QLatin1String LeftKey("Left");
inline constexpr QLatin1String HeightKey("Height");
inline constexpr QLatin1String WidthKey("Width");

// The operator's settings. A missing key reads as NotStored, and then the offsets are DefaultOffset and the
// switches 0.
inline constexpr QLatin1String UserSection("User_Value");
inline constexpr QLatin1String XYOffsetKey("XYOffset");
inline constexpr QLatin1String ZOffsetKey("ZOffset");
inline constexpr QLatin1String OffsetOFFKey("OffsetOFF");
inline constexpr QLatin1String ContactOFFKey("ContactOFF");
inline constexpr QLatin1String LineOFFKey("LineOFF");
inline constexpr QLatin1String BirdOPENKey("BirdOPEN");
inline constexpr std::int32_t NotStored = -1;
inline constexpr std::int32_t DefaultOffset = 100;

// Which windows were open at the end of the last run, by their numbers: "0" is the camera. Closed where it
// is missing.
inline constexpr QLatin1String WindowSection("Window");
QString WindowKey(std::int32_t window);
inline constexpr std::int32_t WindowOpen = 0;
inline constexpr std::int32_t WindowClosed = 1;

// Port numbers from 1; NoPort where the instrument is not connected, and where the key is missing.
inline constexpr QLatin1String PortSection("COMPort");
inline constexpr QLatin1String MirrorKey("Mirror");
inline constexpr QLatin1String MagnescaleKey("Magnescale");
inline constexpr QLatin1String MotorKey("Motor");
inline constexpr std::int32_t NoPort = -1;

// When a needle was calibrated and re-calibrated, as it is to be read; NoTime for never, and where it is
// missing.
inline constexpr QLatin1String TimeKey("Time");
inline constexpr QLatin1String ReTimeKey("ReTime");
inline constexpr QLatin1String NoTime("-1");

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
