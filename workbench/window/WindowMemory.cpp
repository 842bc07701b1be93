#include "workbench/window/WindowMemory.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "workbench/window/WorkbenchLayout.h"

namespace workbench {

namespace {

constexpr const char* PlaceKey = "window/place";
constexpr const char* CardKey = "window/card";
// The desk on which program, camera and workbench stand side by side.
constexpr QSize LeastDesk{1900, 1150};
// What a window system may put over a window; the first opening leaves room for it.
constexpr int TitleRoom = 24;
constexpr int HeaderHeight = 44;

}  // namespace

WindowMemory WindowMemory::OfUser() {
    return WindowMemory(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                        QStringLiteral("/travo-workbench/window.ini"));
}

WindowMemory::WindowMemory(QString file) : file_(std::move(file)) {}

WindowMemory::Kept WindowMemory::Read() const {
    const QSettings settings(file_, QSettings::IniFormat);
    Kept kept;
    kept.isCardShown = settings.value(QString::fromLatin1(CardKey), true).toBool();
    const QRect place = settings.value(QString::fromLatin1(PlaceKey)).toRect();
    if (place.width() >= LeastWindowSize.width() && place.height() >= LeastWindowSize.height()) {
        kept.place = place;
    }
    return kept;
}

void WindowMemory::Write(const Kept& kept) const {
    QDir().mkpath(QFileInfo(file_).absolutePath());
    QSettings settings(file_, QSettings::IniFormat);
    settings.setValue(QString::fromLatin1(CardKey), kept.isCardShown);
    if (kept.place) {
        settings.setValue(QString::fromLatin1(PlaceKey), *kept.place);
    }
}

std::optional<QRect> OpeningPlace(const std::optional<QRect>& kept, const QRect& available) {
    if (kept && available.contains(QRect(kept->topLeft(), QSize(kept->width(), HeaderHeight)))) {
        return kept;
    }
    if (available.width() < LeastDesk.width() || available.height() < LeastDesk.height()) {
        return std::nullopt;
    }
    return QRect(QPoint(available.right() + 1 - FirstWindowSize.width(), available.top() + TitleRoom),
                 FirstWindowSize);
}

}  // namespace workbench
