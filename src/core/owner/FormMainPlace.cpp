#include "core/owner/FormMainPlace.h"
#include "core/ground/LogicalUnits.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace travo {

namespace {

QList<QRect> Screens() {
    QList<QRect> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens << screen->availableGeometry();
    }
    return screens;
}

}  // namespace

FormMainPlace::FormMainPlace(QWidget& window) : window_(window) { window_.installEventFilter(this); }

void FormMainPlace::Place(const WindowPlace& place) {
    window_.resize(PixelsWithin(place.Width), PixelsWithin(place.Height));
    const QPoint stored(PixelsWithin(place.Left), PixelsWithin(place.Top));
    const QPoint seen = OntoScreen(QRect(stored, window_.size()), Screens());
    if (seen != stored) {
        shiftedFrom_ = stored;
    }
    window_.move(seen);
}

MeasuredWindowPlace FormMainPlace::Measured() const {
    const bool isNormal = !window_.isMaximized() && !window_.isFullScreen() && !window_.isMinimized();
    const QRect inner = isNormal ? window_.geometry() : window_.normalGeometry();
    const QPoint frame = isNormal ? window_.pos() : inner.topLeft() - inFrame_;
    return {UnitsOf(frame.y()), UnitsOf(frame.x()), UnitsOf(inner.height()), UnitsOf(inner.width())};
}

bool FormMainPlace::eventFilter(QObject* watched, QEvent* event) {
    // Some window systems draw the frame round an unmoved window: it is there when the window is painted.
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize || event->type() == QEvent::Paint) {
        FrameSeen();
    }
    return QObject::eventFilter(watched, event);
}

void FormMainPlace::FrameSeen() {
    if (!window_.isVisible() || window_.isMaximized() || window_.isFullScreen() || window_.isMinimized()) {
        return;
    }
    inFrame_ = window_.geometry().topLeft() - window_.pos();
    if (shiftedFrom_ && window_.frameGeometry().size() != window_.size()) {
        const QRect stored(*shiftedFrom_, window_.frameGeometry().size());
        shiftedFrom_.reset();
        window_.move(OntoScreen(stored, Screens()));
    }
}

}  // namespace travo
