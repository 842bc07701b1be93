#include "workbench/window/WorkbenchLayout.h"

namespace workbench {

namespace {

constexpr QSize SmallUnder{1200, 800};
constexpr int SideWidth = 352;  // right column
constexpr int ScoreHeight = 46;
constexpr int BarHeight = 40;   // over the plan
constexpr int LineHeight = 28;  // under the plan
constexpr int AboveScore = 6;
constexpr int TabHeight = 34;
constexpr int JoystickHeight = 252;
constexpr int FocusHeight = 98;
constexpr int ColumnGap = 8;        // between the plates of the right column
constexpr int LeastForThree = 530;  // the middle's height at which all three have room
constexpr int FaultColumns = 6;
constexpr int FaultMargins = 24;
constexpr int FaultGap = 5;

struct Measures {
    int margin, gap, header, foot, card, heights, chip;
};
constexpr Measures Large = {12, 8, 44, 244, 252, 92, 97};
constexpr Measures Small = {8, 6, 40, 210, 204, 84, 84};

// Everything between header and foot, left of the right column.
void PlaceMiddle(WorkbenchLayout& layout, const Measures& m, const QRect& middle) {
    const int x = middle.x();
    const int width = middle.width();
    const int height = middle.height() - ScoreHeight - AboveScore;
    const int planHeight = height - BarHeight - LineHeight;
    layout.bar = {x, middle.y(), width, BarHeight};
    layout.plan = {x, middle.y() + BarHeight, width - m.heights, planHeight};
    layout.heights = {x + width - m.heights, middle.y() + BarHeight, m.heights, planHeight};
    layout.line = {x, middle.y() + height - LineHeight, width, LineHeight};
    layout.score = {x, middle.y() + height + AboveScore, width, ScoreHeight};
}

void PlaceSide(WorkbenchLayout& layout, const Measures& m, const QRect& side) {
    const int x = side.x();
    const int y = side.y();
    layout.focus = {x, y + side.height() - FocusHeight, SideWidth, FocusHeight};
    if (side.height() >= LeastForThree) {
        layout.joystick = {x, y, SideWidth, JoystickHeight};
        layout.mirror = {x, y + JoystickHeight + ColumnGap, SideWidth,
                         side.height() - JoystickHeight - FocusHeight - 2 * ColumnGap};
        return;
    }
    layout.tabs = {x, y, SideWidth, TabHeight};
    layout.joystick = {x, y + TabHeight, SideWidth, side.height() - TabHeight - m.gap - FocusHeight};
    layout.mirror = {x, y + TabHeight, SideWidth, side.height() - TabHeight};
}

}  // namespace

WorkbenchLayout LayOut(const QSize& asked, bool card) {
    const QSize size = asked.expandedTo(LeastWindowSize);
    WorkbenchLayout layout;
    layout.small = size.width() < SmallUnder.width() || size.height() < SmallUnder.height();
    const Measures& m = layout.small ? Small : Large;
    const int top = m.header + m.gap;
    const int height = size.height() - m.header - m.foot - 2 * m.gap - m.margin;
    const int side = size.width() - m.margin - SideWidth;
    const int left = m.margin + (card ? m.card + m.gap : 0);
    layout.header = {0, 0, size.width(), m.header};
    if (card) {
        layout.card = {m.margin, top, m.card, height};
    }
    PlaceMiddle(layout, m, {left, top, side - m.gap - left, height});
    PlaceSide(layout, m, {side, top, SideWidth, height});
    const int faults = FaultMargins + FaultColumns * m.chip + (FaultColumns - 1) * FaultGap;
    const int foot = size.height() - m.margin - m.foot;
    layout.traffic = {m.margin, foot, size.width() - 2 * m.margin - m.gap - faults, m.foot};
    layout.faults = {size.width() - m.margin - faults, foot, faults, m.foot};
    layout.chipWidth = m.chip;
    return layout;
}

}  // namespace workbench
