// The first ten minutes: eight steps, each ticked by what truly happened.
#pragma once

#include <QPointF>
#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "workbench/window/LessonTexts.h"
#include "workbench/window/PlanSight.h"
#include "workbench/window/Scene.h"

namespace workbench {

// The three calibration marks, by index from 0: A, B, C.
inline constexpr int MarkCount = 3;
// From the centre of the view, in common units: A (0, -60), B (-80, 60), C (80, 60).
const std::array<QPointF, MarkCount>& MarkOffsets();

class Lesson {
public:
    // Looks at one reading, at a time in ms that never runs back, and at what the plan shows. Steps are
    // looked at in their order, only the next one, and the one behind it when it is ticked.
    void Take(const Scene& scene, const PlanSight& sight, std::int64_t now);
    // Begins anew.
    void Again() { *this = Lesson(); }

    // How many are ticked, 0 to 8; the next one is number Done() + 1.
    int Done() const { return done_; }
    bool IsOver() const { return done_ == LessonStepCount; }
    // Of the mark of that index, 0 to 2: the tip has rested on it since step 3 was next.
    bool MarkTouched(int mark) const { return touched_[static_cast<std::size_t>(mark)]; }
    // The marks belong on the plan: step 3 or 4 is next.
    bool AsksForMarks() const { return done_ == 2 || done_ == 3; }
    // What stands above the text of the next step: empty, or why step 3 is next once more.
    const QString& Notice() const { return notice_; }
    // "Done in 9 min 42 s", from the tick of step 1 to that of step 8; empty before that.
    QString DoneText() const;
    // "2 of 8"; small "2/8".
    QString CountText(bool small) const;
    // Of step 1 to 8, as screen readers tell it: "Step 3 of 8, next: Bring the tip to A, B, C"; "done" for
    // those ahead of it, nothing for those behind it.
    QString StepText(int step) const;

private:
    // How tip and focal plane stood before the objective went down.
    struct Stand {
        Place tip;
        bool tipRests = false;
        QPointF view;
        double focus = 0.0;
    };

    bool IsNextTicked(const Scene& scene, const PlanSight& sight, std::int64_t now);
    bool PickedAtTwo(const Scene& scene, std::int64_t now);
    bool MarksTouched(const Scene& scene);
    bool Stored(const Scene& scene);
    bool Aimed(const Scene& scene);
    bool Sent(const Scene& scene) const;
    bool Looked(const Scene& scene, const PlanSight& sight, std::int64_t now);
    void TouchMarks(const Scene& scene);
    bool Lasted(bool holds, std::int64_t least, std::int64_t now);

    int done_ = 0;
    std::array<bool, MarkCount> touched_{};
    int markNeedle_ = 0;  // the needle that touched them
    QString notice_;
    std::int64_t began_ = 0;
    std::int64_t ended_ = 0;
    std::optional<std::int64_t> since_;  // since when the condition of a step that must last has held
    PlanSight sight_;                    // of the reading before
    std::optional<Stand> stand_;         // of the last reading before this one with the focus at rest
    std::size_t record_ = 0;             // the next record of the reading that no step has looked at
    std::optional<QPointF> cell_;        // the cell that step 5 was ticked by
    int landings_ = 0;                   // in the reading before
    int landingsAtSend_ = 0;             // of those, when step 6 was ticked
};

}  // namespace workbench
