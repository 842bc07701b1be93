// The round pad of the mirror: its areas, what they are called and which way they move. It is the pad of the
// program's own window, area for area.
#pragma once

#include <QPointF>
#include <QString>

namespace workbench {

// Areas are numbered 1 to 8 on the outer ring and 9 to 16 on the inner one, each clockwise from the top; 17
// is the middle, 0 is none.
inline constexpr int NoPadArea = 0;
inline constexpr int PadMiddle = 17;
inline constexpr int PadAreaCount = 17;

// The area at a point, in pixels from the left upper corner of a pad with sides of `side` pixels.
int PadAreaAt(const QPointF& point, double side);

// The way of an area of 1 to 16 in mirror counts, X and Y: 10 on the outer ring, 1 on the inner one. The
// right side lowers X, the upper one raises Y. Nothing for the middle and for none.
struct PadWay {
    int x = 0;
    int y = 0;

    bool operator==(const PadWay&) const = default;
};
PadWay PadWayOf(int area);

// What people call an area of 1 to 17: "Outer upper right", "Inner left", "Centre".
QString PadAreaName(int area);

}  // namespace workbench
