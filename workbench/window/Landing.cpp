#include "workbench/window/Landing.h"

#include <QStringList>
#include <cmath>

#include "workbench/window/BenchText.h"

namespace workbench {

namespace {

constexpr double AtItsHeight = 0.05;  // below this, of a unit

QString Divider() { return QStringLiteral(" · "); }

QStringList PartsOf(const SceneLanding& landing) {
    const QString place = landing.cell == 0
                              ? QStringLiteral("needle %1 in the view").arg(landing.needle)
                              : QStringLiteral("needle %1 on cell %2").arg(landing.needle).arg(landing.cell);
    QStringList parts = {QStringLiteral("units"), place, HeightText(landing.height)};
    if (landing.count > 1) {
        parts += QStringLiteral("worst %1").arg(NumberText(landing.worst));
    }
    return parts;
}

}  // namespace

QString LandingValue(const SceneLanding& landing) {
    return landing.count == 0 ? QStringLiteral("none yet") : NumberText(landing.distance);
}

QString LandingDetail(const SceneLanding& landing) {
    return landing.count == 0 ? QString() : PartsOf(landing).join(Divider());
}

QString LandingDetail(const SceneLanding& landing, const std::function<double(const QString&)>& width,
                      double room) {
    if (landing.count == 0) {
        return {};
    }
    QStringList parts = PartsOf(landing);
    while (parts.size() > 1 && width(parts.join(Divider())) > room) {
        parts.removeLast();
    }
    return parts.join(Divider());
}

QString HeightText(double height) {
    if (std::abs(height) < AtItsHeight) {
        return QStringLiteral("at its height");
    }
    return (height > 0.0 ? QStringLiteral("%1 above") : QStringLiteral("%1 below"))
        .arg(NumberText(std::abs(height)));
}

QString LandingOnPlan(const SceneLanding& landing) {
    return QStringLiteral("%1 units from the centre").arg(NumberText(landing.distance));
}

}  // namespace workbench
