#include "workbench/window/PlanReadout.h"

#include <optional>

#include "workbench/window/BenchText.h"
#include "workbench/window/PlanHits.h"
#include "workbench/window/PlanMirror.h"

namespace workbench {

namespace {

QString Gap() { return QStringLiteral("   "); }

QString PlaceText(const QPointF& place) {
    return QStringLiteral("X %1").arg(NumberText(place.x())) + Gap() +
           QStringLiteral("Y %1").arg(NumberText(place.y()));
}

QString ThingText(const Scene& scene, const PlanScale& plan, const QPointF& pixel, bool marks) {
    if (const int tip = TipAt(scene, plan, pixel); tip > 0) {
        return QStringLiteral("tip of needle %1").arg(tip);
    }
    if (const int cell = CellAt(scene, plan, pixel); cell >= 0) {
        return QStringLiteral("on cell %1").arg(cell + 1);
    }
    if (const int mark = marks ? MarkAt(scene, plan, pixel) : -1; mark >= 0) {
        return QStringLiteral("mark %1").arg(QChar(u'A' + mark));
    }
    if (const int needle = ShaftAt(scene, plan, pixel); needle > 0) {
        return QStringLiteral("on needle %1").arg(needle);
    }
    return {};
}

QString CellText(const SceneCell& cell, int number) {
    return QStringLiteral("cell %1: ").arg(number) + PlaceText(cell.centre.Plan()) + Gap() +
           QStringLiteral("Z %1").arg(NumberText(cell.centre.z)) + Gap() +
           QStringLiteral("radius %1").arg(NumberText(cell.radius, 0)) + Gap() +
           QStringLiteral("mirror %1, %2").arg(NumberText(cell.mirrorX, 0), NumberText(cell.mirrorY, 0));
}

QString TipText(const SceneNeedle& needle) {
    return PlaceText(needle.tip.Plan()) + Gap() + QStringLiteral("Z %1").arg(NumberText(needle.tip.z));
}

QString NeedleText(const SceneNeedle& needle, int number) {
    const QString name = QStringLiteral("needle %1: ").arg(number);
    return needle.connected ? name + TipText(needle) : name + QStringLiteral("not connected");
}

QString CrossingText(const SceneCrossing& crossing, std::int64_t beganAt) {
    return QStringLiteral("crossing of %1 and %2 at %3: ")
               .arg(crossing.needleA)
               .arg(crossing.needleB)
               .arg(ClockText(beganAt, crossing.time)) +
           PlaceText(crossing.place);
}

}  // namespace

QStringList ReadoutParts(const Scene& scene, const PlanScale& plan, const QPointF& pixel, bool marks) {
    const QPointF place = plan.PlaceAt(pixel);
    QStringList parts = {PlaceText(place)};
    if (const auto counts = MirrorCountsFor(place)) {
        parts += QStringLiteral("mirror %1, %2").arg(NumberText(counts->x, 0), NumberText(counts->y, 0));
    }
    if (const QString thing = ThingText(scene, plan, pixel, marks); !thing.isEmpty()) {
        parts += thing;
    }
    if (TipAt(scene, plan, pixel) != scene.picked) {
        const double away = PlanDistance(place, scene.PickedNeedle().tip.Plan());
        parts += QStringLiteral("%1 from needle %2").arg(NumberText(away)).arg(scene.picked);
    }
    return parts;
}

QString ReadoutText(QStringList parts, const std::function<double(const QString&)>& width, double room) {
    while (parts.size() > 1 && width(parts.join(Gap())) > room) {
        parts.removeLast();
    }
    return parts.join(Gap());
}

QString ReadoutHint() { return QStringLiteral("Wheel: zoom. Right button: drag. Double-click: send."); }

QString ToldText(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    if (const int crossing = CrossingAt(scene, plan, pixel); crossing >= 0) {
        return CrossingText(scene.crossings[static_cast<std::size_t>(crossing)], scene.beganAt);
    }
    if (const int tip = TipAt(scene, plan, pixel); tip > 0) {
        return NeedleText(scene.Needle(tip), tip);
    }
    if (const int cell = CellAt(scene, plan, pixel); cell >= 0) {
        return CellText(scene.cells[static_cast<std::size_t>(cell)], cell + 1);
    }
    if (const int needle = ShaftAt(scene, plan, pixel); needle > 0) {
        return NeedleText(scene.Needle(needle), needle);
    }
    return {};
}

QString PlanDescription(const Scene& scene) {
    QStringList sentences = {
        QStringLiteral("Picked %1.")
            .arg(NeedleText(scene.PickedNeedle(), scene.picked).replace(Gap(), QStringLiteral(", ")))};
    for (int number = 1; number <= static_cast<int>(scene.needles.size()); ++number) {
        const SceneNeedle& needle = scene.Needle(number);
        if (needle.connected && !(needle.tip == needle.rest)) {
            sentences += QStringLiteral("Needle %1 goes to %2.")
                             .arg(number)
                             .arg(PlaceText(needle.rest.Plan()).replace(Gap(), QStringLiteral(", ")));
        }
    }
    if (scene.crossingsInAll == 0) {
        sentences += QStringLiteral("No crossings.");
    } else {
        sentences += scene.crossingsInAll == 1 ? QStringLiteral("1 crossing.")
                                               : QStringLiteral("%1 crossings.").arg(scene.crossingsInAll);
    }
    return sentences.join(QLatin1Char(' '));
}

}  // namespace workbench
