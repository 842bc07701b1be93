// Reads the picture file that the live camera writes.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QString>

#include "core/Arithmetic.h"

namespace travo {

// The still cannot be read; the text says why.
class BirdStillFailure : public Failure {
public:
    using Failure::Failure;
};

// A device-independent bitmap file of any depth, as RGB32 with a fourth byte of 0xFF. At most 16384 pixels
// on a side and 64 million in all. What is no complete picture of what its own header says raises
// BirdStillFailure: half a still would be taken for the field.
QImage DecodeBirdStill(const QByteArray& bytes);

// The picture in an ordinary file, which is read once and whole. Raises BirdStillFailure also where the
// file is missing, no ordinary file, cannot be read, or has been written to meanwhile.
QImage ReadBirdStill(QFile& file);
QImage ReadBirdStill(const QString& path);

}  // namespace travo
