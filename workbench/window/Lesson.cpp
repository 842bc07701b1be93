#include "workbench/window/Lesson.h"

#include <algorithm>
#include <cmath>

#include "workbench/window/WireReader.h"

namespace workbench {

namespace {

constexpr int TwoTimes = 2;               // index of the magnification 2×
constexpr double OnMark = 3.0;            // in plan, common units
constexpr double InFocus = 5.0;           // of height
constexpr double OnCell = 3.0;            // the view's centre from the cell's
constexpr double SentToCell = 30.0;       // the place at rest from the cell's centre
constexpr double LookScale = 4.0;         // pixels a unit
constexpr std::int64_t AtTwoFor = 2000;   // ms
constexpr std::int64_t LookedFor = 1000;  // ms
constexpr std::int64_t ShutFor = 1000;    // ms
constexpr double MsPerSecond = 1000.0;

bool ViewRests(const Scene& scene) { return scene.mirror.now == scene.mirror.rest; }

bool Received(const TrafficRecord& record, const char* wire, const char* command) {
    return record.source == wire && record.kind == "in" && MeaningOf(record).bytes == QLatin1String(command);
}

// "moveto 9900 12500 12500 = 0 2 0.100"
bool MoveTaken(const TrafficRecord& record) {
    return record.source == "driver" && record.bytes.starts_with("moveto ") &&
           record.bytes.find(" = 0") != std::string::npos;
}

}  // namespace

const std::array<QPointF, MarkCount>& MarkOffsets() {
    static const std::array<QPointF, MarkCount> offsets = {QPointF(0, -60), QPointF(-80, 60),
                                                           QPointF(80, 60)};
    return offsets;
}

void Lesson::Take(const Scene& scene, const PlanSight& sight, std::int64_t now) {
    record_ = 0;
    // Landings that were forgotten are counted anew.
    landingsAtSend_ = std::min(landingsAtSend_, scene.landing.count);
    while (!IsOver() && IsNextTicked(scene, sight, now)) {
        ++done_;
        since_.reset();
        notice_.clear();
        began_ = done_ == 1 ? now : began_;
        ended_ = now;
        landingsAtSend_ = std::min(landings_, scene.landing.count);
    }
    sight_ = sight;
    landings_ = scene.landing.count;
    if (scene.focus.z == scene.focus.rest) {
        const SceneNeedle& needle = scene.PickedNeedle();
        stand_ = {needle.tip, !needle.moving, scene.view, scene.focus.rest};
    }
}

bool Lesson::IsNextTicked(const Scene& scene, const PlanSight& sight, std::int64_t now) {
    switch (done_) {
        case 0:
            return AllOpen(scene);
        case 1:
            return PickedAtTwo(scene, now);
        case 2:
            return MarksTouched(scene);
        case 3:
            return Stored(scene);
        case 4:
            return Aimed(scene);
        case 5:
            return Sent(scene);
        case 6:
            return Looked(scene, sight, now);
        default:
            return Lasted(AllShut(scene), ShutFor, now);
    }
}

// A condition that must hold for a time, without a break.
bool Lesson::Lasted(bool holds, std::int64_t least, std::int64_t now) {
    if (!holds) {
        since_.reset();
        return false;
    }
    since_ = since_.value_or(now);
    return now - *since_ >= least;
}

bool Lesson::PickedAtTwo(const Scene& scene, std::int64_t now) {
    const bool lasted = Lasted(scene.magnification == TwoTimes, AtTwoFor, now);
    return lasted && scene.picked == scene.selected;
}

void Lesson::TouchMarks(const Scene& scene) {
    const SceneNeedle& needle = scene.PickedNeedle();
    if (needle.moving || !ViewRests(scene)) {
        return;
    }
    for (std::size_t mark = 0; mark < touched_.size(); ++mark) {
        if (PlanDistance(needle.tip.Plan(), scene.view + MarkOffsets()[mark]) > OnMark) {
            continue;
        }
        if (markNeedle_ != scene.picked) {
            // Another needle is calibrated from its own first mark on.
            touched_ = {};
            markNeedle_ = scene.picked;
        }
        touched_[mark] = true;
    }
}

bool Lesson::MarksTouched(const Scene& scene) {
    TouchMarks(scene);
    const bool all = std::all_of(touched_.begin(), touched_.end(), [](bool touched) { return touched; });
    while (record_ < scene.traffic.size()) {
        if (Received(scene.traffic[record_++], "motor", "RELMOVEZ10000") && all) {
            return true;
        }
    }
    return false;
}

bool Lesson::Stored(const Scene& scene) {
    while (record_ < scene.traffic.size()) {
        if (!Received(scene.traffic[record_++], "motor", "RELMOVEZ-10000")) {
            continue;
        }
        const SceneNeedle& needle = scene.PickedNeedle();
        const Stand stand = stand_.value_or(Stand{needle.tip, !needle.moving, scene.view, scene.focus.rest});
        const double off = PlanDistance(stand.tip.Plan(), stand.view + MarkOffsets()[0]);
        const double height = std::abs(stand.tip.z - stand.focus);
        if (stand.tipRests && off <= OnMark && height <= InFocus) {
            return true;
        }
        done_ = 2;
        touched_ = {};
        notice_ = StoredOffText(std::hypot(off, height));
        return false;
    }
    return false;
}

bool Lesson::Aimed(const Scene& scene) {
    while (record_ < scene.traffic.size()) {
        if (!Received(scene.traffic[record_++], "mirror", "rD2R") || !ViewRests(scene)) {
            continue;
        }
        for (const SceneCell& cell : scene.cells) {
            if (PlanDistance(scene.view, cell.centre.Plan()) <= OnCell) {
                cell_ = cell.centre.Plan();
                return true;
            }
        }
    }
    return false;
}

bool Lesson::Sent(const Scene& scene) const {
    const bool taken = std::any_of(scene.traffic.begin() + static_cast<std::ptrdiff_t>(record_),
                                   scene.traffic.end(), MoveTaken);
    return taken && PlanDistance(scene.PickedNeedle().rest.Plan(), *cell_) <= SentToCell;
}

bool Lesson::Looked(const Scene& scene, const PlanSight& sight, std::int64_t now) {
    const bool landed = scene.landing.count > landingsAtSend_ && LandingStands(scene);
    const bool inSight = landed && sight.scale >= LookScale && sight.visible.contains(scene.landing.centre) &&
                         sight.visible.contains(scene.Needle(scene.landing.needle).tip.Plan());
    if (!(sight == sight_)) {
        since_.reset();
    }
    return Lasted(inSight, LookedFor, now);
}

QString Lesson::DoneText() const {
    return IsOver() ? DoneInText(static_cast<double>(ended_ - began_) / MsPerSecond) : QString();
}

QString Lesson::CountText(bool small) const {
    return (small ? QStringLiteral("%1/%2") : QStringLiteral("%1 of %2")).arg(done_).arg(LessonStepCount);
}

QString Lesson::StepText(int step) const {
    const QString title = LessonSteps()[static_cast<std::size_t>(step - 1)].title;
    const QString state = step <= done_       ? QStringLiteral(", done")
                          : step == done_ + 1 ? QStringLiteral(", next")
                                              : QString();
    return QStringLiteral("Step %1 of %2%3: %4").arg(step).arg(LessonStepCount).arg(state, title);
}

}  // namespace workbench
