// What the first ten minutes say.
#pragma once

#include <QString>
#include <array>

namespace workbench {

inline constexpr int LessonStepCount = 8;

struct LessonStep {
    QString title;
    QString text;
};
// Steps 1 to 8, by index from 0.
const std::array<LessonStep, LessonStepCount>& LessonSteps();

// "Stored, but the tip was 12.3 units off. Once more.", above the text of step 3.
QString StoredOffText(double distance);
// "Done in 9 min 42 s"
QString DoneInText(double seconds);
// What stands below it.
QString LessonOverText();

}  // namespace workbench
