// Draws one picture of the skin at any size and display scale.
#pragma once

#include <QImage>
#include <QSize>
#include <QSvgRenderer>

#include "controls/SkinFile.h"

namespace travo {

// How a picture without groups fills its rectangle.
enum class SkinFit { Proportion, Stretch };

class SkinDrawing {
public:
    // `file` must have passed SkinFault. A picture that the reader of drawings refuses all the same is
    // not valid and draws nothing.
    explicit SkinDrawing(const SkinFile& file);

    bool IsValid() const { return renderer_.isValid(); }
    // In design pixels.
    const QSizeF& NaturalSize() const { return naturalSize_; }

    // A transparent image of `pixels` device pixels with the picture on it. `scale` is device pixels for
    // one design pixel, above 0. A picture with groups: `face` is rendered at its own size times `scale`
    // and laid on in nine parts, `glyph` is rendered at its own size times `scale` and centred, so that
    // nothing is distorted; `glyph-left` keeps to the left edge. Any other is drawn whole by `fit`;
    // `scale` then plays no part.
    QImage Draw(const QSize& pixels, double scale, SkinFit fit);

private:
    QImage DrawFace(const QSize& pixels, double scale);
    void DrawGlyph(QImage& image, double scale);
    void DrawWhole(QImage& image, SkinFit fit);
    void RenderGroup(QPainter& painter, const QString& group, const QRectF& place);

    QSvgRenderer renderer_;
    QSizeF naturalSize_;
    bool hasGroups_;
    bool keepsLeft_;
};

}  // namespace travo
