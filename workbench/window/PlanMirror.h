// Mirror counts for places of the common frame.
#pragma once

#include <QPointF>
#include <optional>

#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"

namespace workbench {

struct MirrorCounts {
    int x = 0;
    int y = 0;

    bool operator==(const MirrorCounts&) const = default;
};

// How far the mirror brings the centre of the view, in common units to both sides of the origin.
QPointF MirrorReach();
// The whole counts whose view's centre is nearest to a place; none for a place beyond the mirror's reach.
std::optional<MirrorCounts> MirrorCountsFor(const QPointF& place);
// The same for a hand that drags the view's frame: at most the ends of the mirror's range, and within 8
// pixels of a cell that cell's own counts.
MirrorCounts MirrorCountsDragged(const QPointF& place, const Scene& scene, const PlanScale& plan);

}  // namespace workbench
