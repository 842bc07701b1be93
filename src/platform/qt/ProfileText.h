// The text of a profile file: what it says, and what it becomes when a key is written or removed.
// Pure functions of bytes; names and values are Windows-1252.
//
// A line "[name]" opens a section, a line "name=value" in it is a key. A line that begins with ";",
// stands before the first section or has another form says nothing. Lines end in CR LF or LF; a NUL
// ends what is read of its line. Names match without regard to case, the first of equal ones counts.
// All that is not written or removed keeps its bytes. Time and memory are in proportion to the text.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>
#include <cstdint>
#include <optional>

namespace travo::platform {

// The value with the blanks round it and one pair of equal quotes (' or ") taken off; nothing where
// section or key is missing. A view into the text.
std::optional<QByteArrayView> ProfileValue(QByteArrayView text, QByteArrayView section, QByteArrayView key);

// Names in the order and spelling of the file, repeated ones as often as they stand there.
QByteArrayList ProfileSections(QByteArrayView text);
QByteArrayList ProfileKeys(QByteArrayView text, QByteArrayView section);

// The number at the beginning of a value: blanks, an optional sign, digits. 0 where no digit stands
// there; modulo 2 to the 32nd beyond 32 bits.
std::int32_t ProfileInteger(QByteArrayView value);

// Whether the file can hold the names and the value so that they are found again: no line breaks, no
// key that would read as a section, a comment or another key.
bool ProfileCanHold(QByteArrayView section, QByteArrayView key, QByteArrayView value);

// The text with the value written. A present key keeps its place and spelling, a new one goes behind
// the last line of its section that is not blank, a new section to the end. The written lines end in
// CR LF. Expects what ProfileCanHold allows.
QByteArray WithProfileValue(QByteArrayView text, QByteArrayView section, QByteArrayView key,
                            QByteArrayView value);

// The text without the key, or without the whole section with its comments; the same text where
// there is none.
QByteArray WithoutProfileKey(QByteArrayView text, QByteArrayView section, QByteArrayView key);
QByteArray WithoutProfileSection(QByteArrayView text, QByteArrayView section);

}  // namespace travo::platform
