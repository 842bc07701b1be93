#include "workbench/live/PicturePainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <functional>

#include "workbench/live/Blur.h"
#include "workbench/live/Things.h"

namespace workbench::live {

namespace {

QRectF WholePicture() { return QRectF(QPointF(), QSizeF(PictureSize)); }

// A blurred thing is drawn as much smaller as nobody can tell: that makes large blurs cheap.
int Shrink(double radius) { return radius > 14.0 ? 4 : radius > 5.0 ? 2 : 1; }

// Draws a thing that covers the bounds, blurred, where the picture shows any of it.
void PaintBlurred(QPainter& painter, const QRectF& bounds, double radius,
                  const std::function<void(QPainter&)>& paint) {
    const double margin = 2.0 * radius + 2.0;
    const QRectF seen = bounds.adjusted(-margin, -margin, margin, margin) &
                        WholePicture().adjusted(-margin, -margin, margin, margin);
    if (!bounds.adjusted(-margin, -margin, margin, margin).intersects(WholePicture())) {
        return;
    }
    if (radius < 1.0) {
        paint(painter);
        return;
    }
    const int shrink = Shrink(radius);
    const QRect area = seen.toAlignedRect();
    QImage layer((area.width() + shrink - 1) / shrink, (area.height() + shrink - 1) / shrink,
                 QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    QPainter own(&layer);
    own.setRenderHint(QPainter::Antialiasing);
    own.scale(1.0 / shrink, 1.0 / shrink);
    own.translate(-area.topLeft());
    paint(own);
    own.end();
    BlurImage(layer, radius / shrink);
    painter.drawImage(QRectF(area.topLeft(), QSizeF(layer.size()) * shrink), layer);
}

// The lamp's light through the empty dish, brightest in the middle.
QImage Light() {
    QImage light(PictureSize, QImage::Format_RGB32);
    QPainter painter(&light);
    QRadialGradient shine(WholePicture().center(), 0.64 * PictureSize.width());
    shine.setColorAt(0.0, QColor(236, 231, 216));
    shine.setColorAt(0.7, QColor(219, 213, 196));
    shine.setColorAt(1.0, QColor(178, 171, 154));
    painter.fillRect(WholePicture(), shine);
    return light;
}

QFont Lettering(double pixels) {
    QFont font(QStringList{QStringLiteral("Open Sans"), QStringLiteral("Noto Sans"),
                           QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")},
               -1, QFont::DemiBold);
    font.setPixelSize(static_cast<int>(std::lround(pixels)));
    return font;
}

}  // namespace

QImage PaintPicture(const WorkbenchClient::CameraState& scene) {
    if (scene.fieldOfView[0] <= 0.0) {
        return PaintEmptyPicture(QStringLiteral("The microscope stands between two objectives."));
    }
    // Always the same, and the dearest part of the picture.
    static const QImage light = Light();
    QImage picture = light;
    const View view({scene.viewCentre[0], scene.viewCentre[1]}, FieldOf(&scene, 0), PictureSize);
    const auto radius = [&](double z) { return BlurRadius(z - scene.focusZ, view.PixelsPerUnit()); };
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    PaintBlurred(painter, WholePicture(), radius(0.0), [&](QPainter& own) { PaintGrain(own, view); });
    for (const auto& cell : scene.cells) {
        PaintBlurred(painter, CellBounds(cell, view), radius(cell.place[2]),
                     [&](QPainter& own) { PaintCell(own, cell, view); });
    }
    for (const auto& needle : scene.needles) {
        if (needle.connected) {
            PaintBlurred(painter, NeedleBounds(needle, view), radius(needle.tip[2]),
                         [&](QPainter& own) { PaintNeedle(own, needle, view); });
        }
    }
    return picture;
}

QImage PaintEmptyPicture(const QString& why) {
    QImage picture(PictureSize, QImage::Format_RGB32);
    picture.fill(QColor(62, 74, 84));
    QPainter painter(&picture);
    painter.setFont(Lettering(20.0));
    painter.setPen(QColor(226, 237, 245));
    painter.drawText(WholePicture().adjusted(60.0, 0.0, -60.0, 0.0), Qt::AlignCenter | Qt::TextWordWrap, why);
    return picture;
}

void PaintWorkbenchMark(QPainter& painter, const QRectF& rectangle) {
    painter.save();
    const double height = std::max(14.0, rectangle.height() / 22.0);
    const QString word = QStringLiteral("WORKBENCH");
    const QFont font = Lettering(height * 0.72);
    const double width = QFontMetricsF(font).horizontalAdvance(word) + height;
    const QRectF plate(rectangle.right() - width - height * 0.5, rectangle.top() + height * 0.5, width,
                       height * 1.2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(35, 70, 93, 225));
    painter.drawRoundedRect(plate, 3.0, 3.0);
    painter.setFont(font);
    painter.setPen(QColor(244, 250, 254));
    painter.drawText(plate, Qt::AlignCenter, word);
    painter.restore();
}

}  // namespace workbench::live
