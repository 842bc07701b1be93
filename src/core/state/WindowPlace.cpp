#include "core/state/WindowPlace.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"

namespace travo {

namespace {

std::int16_t ReadUnits(const clsIniEdit& ini, const QString& section, const QString& key,
                       std::int16_t otherwise) {
    const std::int16_t stored = ToInteger16(ini.GetInt(section, key, -1));
    return stored > -1 ? stored : otherwise;
}

void WriteUnits(clsIniEdit& ini, const QString& section, const QString& key, float units) {
    constexpr float Greatest = INT16_MAX;
    ini.WriteString(section, key, settings::FloatText(std::min(units, Greatest)));
}

}  // namespace

WindowPlace ReadWindowPlace(const clsIniEdit& ini, const QString& section, const WindowSize& defaultSize) {
    WindowPlace place;
    place.Top = ReadUnits(ini, section, settings::TopKey, 0);
    place.Left = ReadUnits(ini, section, settings::LeftKey, 0);
    place.Width = ReadUnits(ini, section, settings::WidthKey, defaultSize.Width);
    place.Height = ReadUnits(ini, section, settings::HeightKey, defaultSize.Height);
    return place;
}

void WriteWindowPlace(clsIniEdit& ini, const QString& section, const MeasuredWindowPlace& place) {
    WriteUnits(ini, section, settings::TopKey, place.Top);
    WriteUnits(ini, section, settings::LeftKey, place.Left);
    WriteUnits(ini, section, settings::HeightKey, place.Height);
    WriteUnits(ini, section, settings::WidthKey, place.Width);
}

QPoint OntoScreen(const QRect& frame, const QList<QRect>& screens) {
    // Enough to be seen and to be drawn back by.
    constexpr QSize Graspable(64, 32);
    if (screens.isEmpty()) {
        return frame.topLeft();
    }
    const QRect top(frame.topLeft(), QSize(frame.width(), Graspable.height()));
    for (const QRect& screen : screens) {
        const QRect seen = screen.intersected(top);
        if (seen.width() >= std::min(Graspable.width(), frame.width()) &&
            seen.height() >= Graspable.height()) {
            return frame.topLeft();
        }
    }
    const auto apart = [&](const QRect& screen) {
        const QPoint way = screen.center() - frame.center();
        return way.manhattanLength();
    };
    const QRect& nearest = *std::min_element(
        screens.begin(), screens.end(), [&](const QRect& a, const QRect& b) { return apart(a) < apart(b); });
    const int left = std::min(frame.left(), nearest.right() + 1 - frame.width());
    const int upper = std::min(frame.top(), nearest.bottom() + 1 - frame.height());
    return {std::max(left, nearest.left()), std::max(upper, nearest.top())};
}

}  // namespace travo
