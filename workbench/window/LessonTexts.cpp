#include "workbench/window/LessonTexts.h"

#include <cmath>

#include "workbench/window/BenchText.h"

namespace workbench {

const std::array<LessonStep, LessonStepCount>& LessonSteps() {
    static const std::array<LessonStep, LessonStepCount> steps = {{
        {QStringLiteral("Connect"),
         QStringLiteral("Start TRAVO. It opens its three ports by itself. If one stays shut here: tab "
                        "Connection, SET in its row.")},
        {QStringLiteral("Pick needle 1 at 2×"),
         QStringLiteral("TRAVO starts at 0.35×. Press 2× in its Magnification window, then Calibration, "
                        "needle 1. Here press 1.")},
        {QStringLiteral("Bring the tip to A, B, C"),
         QStringLiteral("Double-click beside mark A: the needle goes there coarse. Finish with the arrow "
                        "keys, Shift for fine. Press A in TRAVO. Then B and C.")},
        {QStringLiteral("Find focus, store"),
         QStringLiteral("The focal plane rose by 100: answer OK. Go back to A, then Page Up at step 100 "
                        "lifts the tip into it. Press Z, then SET in TRAVO.")},
        {QStringLiteral("Aim at a cell, store it"),
         QStringLiteral("Drag the view frame onto a cell, or use the mirror pad. In TRAVO: Cell position, "
                        "SET in row A.")},
        {QStringLiteral("Send the needle"),
         QStringLiteral("In TRAVO: Experiment, needle 1, cell A, Move. Watch it go.")},
        {QStringLiteral("See how well it landed"),
         QStringLiteral("Press Look. The disc is the cell, the cross its true centre. The line below says "
                        "how far off the tip is.")},
        {QStringLiteral("Close"),
         QStringLiteral("Close TRAVO and answer OK. The needles stay where they are.")},
    }};
    return steps;
}

QString StoredOffText(double distance) {
    return QStringLiteral("Stored, but the tip was %1 units off. Once more.").arg(NumberText(distance));
}

QString DoneInText(double seconds) {
    const auto whole = static_cast<long long>(std::floor(seconds));
    return QStringLiteral("Done in %1 min %2 s").arg(whole / 60).arg(whole % 60);
}

QString LessonOverText() {
    return QStringLiteral("Now break something: each fault is one click, and All clear ends them all.");
}

}  // namespace workbench
