// The system's single-byte code page, in which settings file and debug log are written.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>

namespace travo::platform {

// One byte for each character; a character that Windows-1252 lacks becomes one "?", also where it
// takes two units of the text.
QByteArray ToWindows1252(const QString& text);

// One character for each byte. The five bytes without a character of their own (81, 8D, 8F, 90, 9D)
// become the control characters of the same number and go back to the same bytes.
QString FromWindows1252(QByteArrayView bytes);

// Whether two texts are equal but for the case of their letters, those with accents included.
bool EqualWithoutCase(QByteArrayView a, QByteArrayView b);

// A number that is the same for texts that are equal without their case.
std::uint32_t HashWithoutCase(QByteArrayView text);

}  // namespace travo::platform
