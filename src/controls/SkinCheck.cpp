#include "controls/SkinCheck.h"

namespace travo {

namespace {

bool IsSide(double length) { return length >= 1 && length <= LargestSkinSide; }

}  // namespace

std::optional<QString> SkinFault(const SkinFile& file) {
    if (file.bytes.isEmpty()) {
        return QStringLiteral("is missing or empty");
    }
    if (file.isTooLong) {
        return QStringLiteral("is too long");
    }
    if (!file.isWhole) {
        return QStringLiteral("is no picture, or is cut off");
    }
    if (!IsSide(file.size.width()) || !IsSide(file.size.height())) {
        return QStringLiteral("has no usable size");
    }
    // Drawn in design pixels: one unit of the picture is one pixel of its size.
    if (file.viewBox != QRectF(QPointF(0, 0), file.size)) {
        return QStringLiteral("is not drawn in pixels of its size");
    }
    if (file.hasFace != (file.hasGlyph || file.hasGlyphLeft)) {
        return QStringLiteral("has a face without a glyph, or the other way round");
    }
    return {};
}

}  // namespace travo
