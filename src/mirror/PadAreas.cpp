#include "mirror/PadAreas.h"

#include <QStringList>
#include <array>

#include "core/Arithmetic.h"

namespace travo {

namespace {

// Design pixels. The limits of the bars count from the picture's corner, the radii from its centre.
constexpr double Middle = 82.5;
constexpr double CentreRadius = 27.5;
constexpr double InnerRadius = 50.5;
constexpr double OuterRadius = 82.5;
constexpr double BarFrom = 70;
constexpr double BarTo = 95;
// Both scales of the pad count in units of an ordinary display.
constexpr double OrdinaryUnitsPerPixel = 15;

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

// Between `from`, which is no part of it, and `to`, which is: 1. Before it 0, behind it 2.
int Band(double value, double from, double to) { return value <= from ? 0 : value <= to ? 1 : 2; }

// The outer area of a sector. `across` and `down` are pixels of the display for a design pixel.
std::int16_t Sector(double x, double y, double across, double down) {
    const int row = Band(y, BarFrom * down, BarTo * down);
    switch (Band(x, BarFrom * across, BarTo * across)) {
        case 0:
            return std::array<std::int16_t, 3>{8, 7, 6}.at(static_cast<std::size_t>(row));
        case 1:
            return y <= Middle * down ? 1 : 5;
        default:
            return std::array<std::int16_t, 3>{2, 3, 4}.at(static_cast<std::size_t>(row));
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
    const double x = pointer.x() * OrdinaryUnitsPerPixel / view.unitsPerPixelHorizontal;
    const double y = convert(pointer.y() * OrdinaryUnitsPerPixel / view.unitsPerPixelVertical);
    const double across = view.scale / (view.unitsPerPixelHorizontal / OrdinaryUnitsPerPixel);
    const double down = view.scale / (view.unitsPerPixelVertical / OrdinaryUnitsPerPixel);
    // On a display whose pixels are not square the wheel stays round to the eye.
    const double ratio = across / down;
    const double distance =
        Squared(x - convert(Middle * across)) + Squared((y - convert(Middle * down)) * ratio);
    if (distance <= Squared(CentreRadius * across)) {
        return PadCentre;
    }
    if (distance <= Squared(InnerRadius * across)) {
        return static_cast<std::int16_t>(Sector(x, y, across, down) + RingAreas);
    }
    return distance <= Squared(OuterRadius * across) ? Sector(x, y, across, down) : NoPadArea;
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
