#include "workbench/live/Things.h"

#include <QLineF>
#include <QPolygonF>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace workbench::live {

namespace {

// Half widths of a needle in common units: at the tip, and where the drawn-out part ends.
constexpr double TipHalfWidth = 0.8;
constexpr double ShaftHalfWidth = 14.0;
constexpr double TaperLength = 420.0;
// The wall of the capillary, seen from above.
constexpr double WallPixels = 1.8;

// Grain: at most one speck in each square of this side, in common units, and its largest radius.
struct GrainSize {
    double square;
    double radius;
};
constexpr GrainSize Coarse{60.0, 3.2};
constexpr GrainSize Fine{12.0, 0.9};
// Fine grain is drawn from this scale on, in pixels to the unit; below it would not be seen.
constexpr double FineGrainScale = 1.5;

// A number from 0 to 1 that belongs to a square: the grain does not move in the dish.
double Fixed(std::int64_t column, std::int64_t row, std::uint64_t which) {
    std::uint64_t mixed = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15U ^
                          static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4FU ^ which * 0x165667B19E3779F9U;
    mixed = (mixed ^ (mixed >> 31U)) * 0xBF58476D1CE4E5B9U;
    mixed ^= mixed >> 29U;
    return static_cast<double>(mixed >> 11U) / 9007199254740992.0;
}

void PaintGrainOf(QPainter& painter, const View& view, const GrainSize& size, std::uint64_t salt) {
    const QPointF first = view.Place({0.0, 0.0}) / size.square;
    const QPointF last = view.Place({view.Picture().width(), view.Picture().height()}) / size.square;
    for (auto row = std::llround(std::floor(first.y())) - 1; row <= std::llround(last.y()) + 1; ++row) {
        for (auto column = std::llround(std::floor(first.x())) - 1; column <= std::llround(last.x()) + 1;
             ++column) {
            if (Fixed(column, row, salt) < 0.45) {
                continue;
            }
            const QPointF place((static_cast<double>(column) + Fixed(column, row, salt + 1)) * size.square,
                                (static_cast<double>(row) + Fixed(column, row, salt + 2)) * size.square);
            const double radius =
                (0.35 + 0.65 * Fixed(column, row, salt + 3)) * size.radius * view.PixelsPerUnit();
            painter.setBrush(QColor(96, 84, 66, 40 + static_cast<int>(70.0 * Fixed(column, row, salt + 4))));
            painter.drawEllipse(view.Pixel(place), radius, radius * 0.8);
        }
    }
}

// A needle along its shaft, as far as the picture can show it.
struct NeedleShape {
    QPointF tip;
    QPointF along;   // one unit from the tip towards the rear
    QPointF across;  // one unit to the side
    double length;
    double taper;  // the drawn-out part of it

    QPointF At(double distance, double side) const { return tip + along * distance + across * side; }
    double HalfWidth() const { return TipHalfWidth + (ShaftHalfWidth - TipHalfWidth) * taper / TaperLength; }
};

NeedleShape ShapeOf(const WorkbenchClient::CameraState::Needle& needle, const View& view) {
    const QPointF tip(needle.tip[0], needle.tip[1]);
    const QLineF shaft(tip, QPointF(needle.rear[0], needle.rear[1]));
    const double length = shaft.length();
    const QPointF along =
        length > 0.0 ? QPointF(shaft.dx() / length, shaft.dy() / length) : QPointF(0.0, 0.0);
    const QPointF corner = view.Place({0.0, 0.0});
    const QPointF opposite = view.Place({view.Picture().width(), view.Picture().height()});
    const double farthest = std::max(QLineF(tip, corner).length(),
                                     QLineF(corner, opposite).length() + QLineF(tip, opposite).length());
    const double shown = std::min(length, std::max(farthest, TaperLength));
    return {tip, along, QPointF(-along.y(), along.x()), shown, std::min(TaperLength, length)};
}

// The outline, drawn in on all sides by so many common units.
QPolygonF NeedleBody(const NeedleShape& shape, const View& view, double inset) {
    const double fine = std::max(0.0, TipHalfWidth - inset);
    const double wide = std::max(0.0, shape.HalfWidth() - inset);
    QPolygonF body;
    for (const auto& [distance, half] :
         {std::pair{inset, fine}, std::pair{shape.taper, wide}, std::pair{shape.length, wide},
          std::pair{shape.length, -wide}, std::pair{shape.taper, -wide}, std::pair{inset, -fine}}) {
        body << view.Pixel(shape.At(distance, half));
    }
    return body;
}

}  // namespace

void PaintGrain(QPainter& painter, const View& view) {
    painter.setPen(Qt::NoPen);
    PaintGrainOf(painter, view, Coarse, 100);
    if (view.PixelsPerUnit() > FineGrainScale) {
        PaintGrainOf(painter, view, Fine, 200);
    }
}

QRectF CellBounds(const WorkbenchClient::CameraState::Cell& cell, const View& view) {
    const double radius = cell.radius * view.PixelsPerUnit() + 2.0;
    const QPointF centre = view.Pixel(cell.place[0], cell.place[1]);
    return {centre.x() - radius, centre.y() - radius, 2.0 * radius, 2.0 * radius};
}

void PaintCell(QPainter& painter, const WorkbenchClient::CameraState::Cell& cell, const View& view) {
    const double radius = cell.radius * view.PixelsPerUnit();
    const QPointF centre = view.Pixel(cell.place[0], cell.place[1]);
    QRadialGradient body(centre, radius);
    body.setColorAt(0.0, QColor(176, 190, 150, 150));
    body.setColorAt(0.72, QColor(150, 166, 126, 170));
    body.setColorAt(0.88, QColor(232, 236, 214, 190));
    body.setColorAt(1.0, QColor(74, 84, 58, 220));
    painter.setBrush(body);
    painter.setPen(QPen(QColor(58, 66, 46, 220), std::max(1.0, radius * 0.06)));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(92, 104, 76, 170));
    painter.drawEllipse(centre + QPointF(radius * 0.18, -radius * 0.12), radius * 0.34, radius * 0.30);
    painter.setBrush(QColor(52, 60, 44, 200));
    painter.drawEllipse(centre + QPointF(radius * 0.24, -radius * 0.14), radius * 0.11, radius * 0.11);
}

QRectF NeedleBounds(const WorkbenchClient::CameraState::Needle& needle, const View& view) {
    return NeedleBody(ShapeOf(needle, view), view, 0.0).boundingRect().adjusted(-2.0, -2.0, 2.0, 2.0);
}

void PaintNeedle(QPainter& painter, const WorkbenchClient::CameraState::Needle& needle, const View& view) {
    const NeedleShape shape = ShapeOf(needle, view);
    const double wall = WallPixels / view.PixelsPerUnit();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(52, 66, 78, 235));
    painter.drawPolygon(NeedleBody(shape, view, 0.0));
    painter.setBrush(QColor(190, 198, 200, 255));
    painter.drawPolygon(NeedleBody(shape, view, wall));
    painter.setBrush(QColor(226, 228, 222, 255));
    painter.drawPolygon(NeedleBody(shape, view, std::max(2.0 * wall, 0.55 * shape.HalfWidth())));
}

}  // namespace workbench::live
