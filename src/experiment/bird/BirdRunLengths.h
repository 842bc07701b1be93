// Run lengths of a bitmap file, of which a part of the picture is wanted.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <cstdint>
#include <functional>

namespace travo {

// Gives the next bytes, at least one; none at the end.
using BirdByteSource = std::function<QByteArray()>;

// The palette indices of a part of a picture of `whole` pixels, row after row; both count rows as the file
// does, which begins with the lowest. Pairs of nibbles (4 bits to the pixel) or bytes (8 bits). Index 0 where
// the run lengths leave a pixel out or end early; what runs over the end of a row is dropped. No more is read
// than leads to the part's last row.
QByteArray ExpandRunLengths(const BirdByteSource& source, const QSize& whole, const QRect& part,
                            bool areNibbles);

}  // namespace travo
