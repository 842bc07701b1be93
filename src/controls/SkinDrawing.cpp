#include "controls/SkinDrawing.h"

#include <qdrawutil.h>

#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace travo {

namespace {

// Width of a face's border in design pixels: corners, lip and slot lie within it.
constexpr double FaceBorder = 12;

QImage Transparent(const QSize& pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QSize Whole(const QSizeF& size) {
    return {std::max(1, static_cast<int>(std::lround(size.width()))),
            std::max(1, static_cast<int>(std::lround(size.height())))};
}

int Border(double scale, int faceSide, int side) {
    const int third = std::min(faceSide, side) / 3;
    return std::min(static_cast<int>(std::lround(FaceBorder * scale)), third);
}

}  // namespace

SkinDrawing::SkinDrawing(const SkinFile& file)
    : naturalSize_(file.size), hasGroups_(file.hasFace), keepsLeft_(file.hasGlyphLeft) {
    renderer_.load(file.bytes);
}

QImage SkinDrawing::Draw(const QSize& pixels, double scale, SkinFit fit) {
    if (!IsValid() || pixels.isEmpty()) {
        return {};
    }
    if (!hasGroups_) {
        QImage image = Transparent(pixels);
        DrawWhole(image, fit);
        return image;
    }
    QImage image = DrawFace(pixels, scale);
    DrawGlyph(image, scale);
    return image;
}

QImage SkinDrawing::DrawFace(const QSize& pixels, double scale) {
    QImage face = Transparent(Whole(naturalSize_ * scale));
    {
        QPainter painter(&face);
        RenderGroup(painter, QStringLiteral("face"), QRectF(QPointF(0, 0), face.size()));
    }
    if (face.size() == pixels) {
        return face;
    }
    QImage image = Transparent(pixels);
    const int across = Border(scale, face.width(), pixels.width());
    const int down = Border(scale, face.height(), pixels.height());
    QPainter painter(&image);
    qDrawBorderPixmap(&painter, image.rect(), QMargins(across, down, across, down),
                      QPixmap::fromImage(std::move(face)));
    return image;
}

void SkinDrawing::DrawGlyph(QImage& image, double scale) {
    const QSizeF size = naturalSize_ * scale;
    // On whole pixels, so that the strokes of a centred glyph are as sharp as those of a lone one.
    const double x = keepsLeft_ ? 0 : std::round((image.width() - size.width()) / 2);
    const double y = std::round((image.height() - size.height()) / 2);
    QPainter painter(&image);
    RenderGroup(painter, keepsLeft_ ? QStringLiteral("glyph-left") : QStringLiteral("glyph"),
                QRectF(QPointF(x, y), size));
}

void SkinDrawing::DrawWhole(QImage& image, SkinFit fit) {
    QSizeF size = image.size();
    if (fit == SkinFit::Proportion) {
        size = naturalSize_.scaled(size, Qt::KeepAspectRatio);
    }
    const QPointF corner(std::round((image.width() - size.width()) / 2),
                         std::round((image.height() - size.height()) / 2));
    QPainter painter(&image);
    renderer_.render(&painter, QRectF(corner, size));
}

// `place` is where the whole picture would stand; the group keeps its place in it.
void SkinDrawing::RenderGroup(QPainter& painter, const QString& group, const QRectF& place) {
    const QRectF bounds = renderer_.boundsOnElement(group);
    const double across = place.width() / naturalSize_.width();
    const double down = place.height() / naturalSize_.height();
    renderer_.render(&painter, group,
                     QRectF(place.x() + bounds.x() * across, place.y() + bounds.y() * down,
                            bounds.width() * across, bounds.height() * down));
}

}  // namespace travo
