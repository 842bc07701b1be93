// Where the plates of the window are: a function from its size and whether the card is shown.
#pragma once

#include <QRect>
#include <QSize>

namespace workbench {

// The inner size of the window at first, and the least one.
inline constexpr QSize FirstWindowSize{1280, 860};
inline constexpr QSize LeastWindowSize{1024, 700};

// Rectangles in device-independent pixels of the window.
struct WorkbenchLayout {
    // Under 1200 wide or 800 high: smaller margins, header, foot, card, heights and chips.
    bool small = false;
    QRect header;
    QRect card;  // null while hidden
    QRect bar;   // of the plan
    QRect plan;
    QRect heights;
    QRect line;  // under plan and heights
    QRect score;
    QRect tabs;  // null where the right column is high enough for all three plates
    QRect joystick;
    QRect mirror;  // with tabs in the place of joystick and focus: one tab shows these two, the other this
    QRect focus;
    QRect traffic;
    QRect faults;
    int chipWidth = 0;  // of a fault

    bool HasTabs() const { return !tabs.isNull(); }
};

// A size below LeastWindowSize counts as that, in width and height apart.
WorkbenchLayout LayOut(const QSize& size, bool card);

}  // namespace workbench
