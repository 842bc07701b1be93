#include "platform/Windows1252.h"

#include <algorithm>
#include <array>

namespace travo::platform {

namespace {

constexpr char16_t FirstOwn = 0x80;
constexpr char16_t FirstLatin = 0xA0;

// Bytes 80 to 9F, where the code page goes its own way; all others are the character's own number.
constexpr std::array<char16_t, FirstLatin - FirstOwn> Own{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char16_t unit) {
    if (unit < FirstOwn || (unit >= FirstLatin && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    const auto place = std::find(Own.begin(), Own.end(), unit);
    return place == Own.end() ? '?' : static_cast<char>(FirstOwn + (place - Own.begin()));
}

unsigned char LowerCase(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    const bool plain = code >= 'A' && code <= 'Z';
    const bool accented = code >= 0xC0 && code <= 0xDE && code != 0xD7;
    if (plain || accented) {
        return static_cast<unsigned char>(code + 0x20);
    }
    if (code == 0x8A || code == 0x8C || code == 0x8E) {
        return static_cast<unsigned char>(code + 0x10);
    }
    return code == 0x9F ? 0xFF : code;
}

}  // namespace

QByteArray ToWindows1252(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        bytes.append(ByteOf(text[i].unicode()));
        i += pair ? 1 : 0;
    }
    return bytes;
}

QString FromWindows1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return QChar(code >= FirstOwn && code < FirstLatin ? Own[code - FirstOwn] : char16_t{code});
    });
    return text;
}

bool EqualWithoutCase(QByteArrayView a, QByteArrayView b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char one, char other) { return LowerCase(one) == LowerCase(other); });
}

std::uint32_t HashWithoutCase(QByteArrayView text) {
    // FNV-1a.
    std::uint32_t hash = 2166136261U;
    for (const char byte : text) {
        hash = (hash ^ LowerCase(byte)) * 16777619U;
    }
    return hash;
}

}  // namespace travo::platform
