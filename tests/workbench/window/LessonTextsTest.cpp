#include "workbench/window/LessonTexts.h"

#include <gtest/gtest.h>

namespace workbench {

TEST(LessonTextsTest, TheEightStepsSayWhatTheCardSays) {
    const auto& steps = LessonSteps();
    EXPECT_EQ(steps[0].title, QStringLiteral("Connect"));
    EXPECT_EQ(steps[0].text,
              QStringLiteral("Start TRAVO. It opens its three ports by itself. If one stays shut "
                             "here: tab Connection, SET in its row."));
    EXPECT_EQ(steps[1].title, QStringLiteral("Pick needle 1 at 2×"));
    EXPECT_EQ(steps[1].text,
              QStringLiteral("TRAVO starts at 0.35×. Press 2× in its Magnification window, then "
                             "Calibration, needle 1. Here press 1."));
    EXPECT_EQ(steps[2].title, QStringLiteral("Bring the tip to A, B, C"));
    EXPECT_EQ(steps[2].text,
              QStringLiteral(
                  "Double-click beside mark A: the needle goes there coarse. Finish with the arrow keys, "
                  "Shift for fine. Press A in TRAVO. Then B and C."));
    EXPECT_EQ(steps[3].title, QStringLiteral("Find focus, store"));
    EXPECT_EQ(
        steps[3].text,
        QStringLiteral("The focal plane rose by 100: answer OK. Go back to A, then Page Up at step 100 lifts "
                       "the tip into it. Press Z, then SET in TRAVO."));
    EXPECT_EQ(steps[4].title, QStringLiteral("Aim at a cell, store it"));
    EXPECT_EQ(steps[4].text,
              QStringLiteral("Drag the view frame onto a cell, or use the mirror pad. In TRAVO: Cell "
                             "position, SET in row A."));
    EXPECT_EQ(steps[5].title, QStringLiteral("Send the needle"));
    EXPECT_EQ(steps[5].text, QStringLiteral("In TRAVO: Experiment, needle 1, cell A, Move. Watch it go."));
    EXPECT_EQ(steps[6].title, QStringLiteral("See how well it landed"));
    EXPECT_EQ(steps[6].text,
              QStringLiteral("Press Look. The disc is the cell, the cross its true centre. The line "
                             "below says how far off the tip is."));
    EXPECT_EQ(steps[7].title, QStringLiteral("Close"));
    EXPECT_EQ(steps[7].text, QStringLiteral("Close TRAVO and answer OK. The needles stay where they are."));
    EXPECT_EQ(LessonOverText(),
              QStringLiteral("Now break something: each fault is one click, and All clear ends "
                             "them all."));
}

}  // namespace workbench
