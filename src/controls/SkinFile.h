// A picture file of the skin as it was found: read and parsed, not yet judged.
#pragma once

#include <QByteArray>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace travo {

struct SkinFile {
    // A picture file is a few kilobytes; more than this is not read.
    static constexpr qint64 MostBytes = 1024 * 1024;

    QByteArray bytes;        // empty when the file is missing or cannot be read
    bool isTooLong = false;  // `bytes` holds no more than MostBytes + 1
    bool isWhole = false;    // well-formed to its end, and its root is an SVG picture
    QSizeF size;             // natural size in design pixels, as the root says; invalid where it does not
    QRectF viewBox;          // as the root says; null where it does not
    bool hasFace = false;    // groups at the root's own level
    bool hasGlyph = false;
    bool hasGlyphLeft = false;
};

// Raises nothing: whatever stands at `fileName` gives a record.
SkinFile ReadSkinFile(const QString& fileName);
SkinFile ParseSkinFile(const QByteArray& bytes);

}  // namespace travo
