#include "mirror/view/PadAreas.h"

#include <QStringList>
#include <array>

#include "core/ground/Arithmetic.h"
#include "core/ground/LogicalUnits.h"

namespace travo {

namespace {

// Design pixels. The limits of the bars count from the picture's corner, the radii from its centre.
constexpr double Middle = 82.5;
constexpr double CentreRadius = 27.5;
constexpr double InnerRadius = 50.5;
constexpr double OuterRadius = 82.5;
constexpr double BarFrom = 70;
constexpr double BarTo = 95;
constexpr std::int32_t OuterStep = 10;
constexpr std::int32_t InnerStep = 1;

// Clockwise from the top. Y and X: which way the mirror goes, as a factor of the step.
struct Direction {
    const char* name;
    int Y;
    int X;
};
constexpr std::array<Direction, 8> Directions{{{"top", 1, 0},
                                               {"upper right", 1, -1},
                                               {"right", 0, -1},
                                               {"lower right", -1, -1},
                                               {"bottom", -1, 0},
                                               {"lower left", -1, 1},
                                               {"left", 0, 1},
                                               {"upper left", 1, 1}}};
constexpr auto RingAreas = static_cast<std::int16_t>(Directions.size());

constexpr std::int16_t XAxis = 0;
constexpr std::int16_t YAxis = 1;

// A design length as the pixels of one axis of the display. One division, at the end: the middle of a pad of
// 231 pixels is 115.5, and not a little less.
class Axis {
public:
    Axis(double side, double unitsPerPixel)
        : over_(side * LogicalUnitsPerPixel), under_(PadSide * unitsPerPixel) {}

    double operator()(double designLength) const { return designLength * over_ / under_; }

private:
    double over_;
    double under_;
};

// 0 up to the bar's beginning, 1 up to its end, 2 beyond.
std::size_t Band(double value, const Axis& axis) {
    return value <= axis(BarFrom) ? 0 : value <= axis(BarTo) ? 1 : 2;
}

// As on the outer ring.
std::int16_t Sector(double x, double y, const Axis& across, const Axis& down) {
    static constexpr std::array<std::int16_t, 3> Left{8, 7, 6};
    static constexpr std::array<std::int16_t, 3> Right{2, 3, 4};
    switch (Band(x, across)) {
        case 0:
            return Left.at(Band(y, down));
        case 1:
            return y <= down(Middle) ? 1 : 5;
        default:
            return Right.at(Band(y, down));
    }
}

double Squared(double value) { return value * value; }

bool IsOuter(std::int16_t area) { return area <= RingAreas; }

const Direction& DirectionOf(std::int16_t ringArea) {
    return Directions.at(static_cast<std::size_t>((ringArea - 1) % RingAreas));
}

// 1 to 17.
void CheckArea(std::int16_t area) { Bounded(area - 1, PadAreaCount); }

QString MoveText(const PadMove& move) {
    const auto axis = move.Index == XAxis ? QLatin1String("X") : QLatin1String("Y");
    const auto sign = move.Sign == 0 ? QLatin1String("+") : QLatin1String("-");
    return QStringLiteral("%1 %2%3").arg(axis, sign, QString::number(move.MoveAmount));
}

}  // namespace

std::int16_t PadArea(const QPointF& pointer, const PadView& view) {
    const Axis across(view.side, view.unitsPerPixelHorizontal);
    const Axis down(view.side, view.unitsPerPixelVertical);
    const double x = pointer.x() * LogicalUnitsPerPixel / view.unitsPerPixelHorizontal;
    const double y = convert(pointer.y() * LogicalUnitsPerPixel / view.unitsPerPixelVertical);
    // On a display whose pixels are not square the wheel stays round to the eye.
    const double ratio = view.unitsPerPixelVertical / view.unitsPerPixelHorizontal;
    const double distance =
        Squared(x - convert(across(Middle))) + Squared((y - convert(down(Middle))) * ratio);
    if (distance <= Squared(across(CentreRadius))) {
        return PadCentre;
    }
    if (distance <= Squared(across(InnerRadius))) {
        return static_cast<std::int16_t>(Sector(x, y, across, down) + RingAreas);
    }
    return distance <= Squared(across(OuterRadius)) ? Sector(x, y, across, down) : NoPadArea;
}

std::vector<PadMove> PadMoves(std::int16_t area) {
    Bounded(area, PadAreaCount + 1);
    std::vector<PadMove> moves;
    if (area == NoPadArea || area == PadCentre) {
        return moves;
    }
    const std::int32_t step = IsOuter(area) ? OuterStep : InnerStep;
    const Direction& direction = DirectionOf(area);
    for (const auto& [axis, way] : {std::pair(YAxis, direction.Y), std::pair(XAxis, direction.X)}) {
        if (way != 0) {
            moves.push_back({axis, static_cast<std::int16_t>(way > 0 ? 0 : 1), step});
        }
    }
    return moves;
}

QString PadAreaName(std::int16_t area) {
    CheckArea(area);
    if (area == PadCentre) {
        return QStringLiteral("Centre");
    }
    return (IsOuter(area) ? QStringLiteral("Outer ") : QStringLiteral("Inner ")) +
           QLatin1String(DirectionOf(area).name);
}

QString PadAreaHelp(std::int16_t area) {
    CheckArea(area);
    if (area == PadCentre) {
        return QStringLiteral("Mirror to the centre");
    }
    QStringList moves;
    for (const PadMove& move : PadMoves(area)) {
        moves << MoveText(move);
    }
    return QStringLiteral("Mirror ") + moves.join(QStringLiteral(", "));
}

}  // namespace travo
