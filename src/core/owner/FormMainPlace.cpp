#include "core/owner/FormMainPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace travo {

namespace {

// Logical units to the pixel.
constexpr int UnitsPerPixel = 15;

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
    window_.resize(place.Width / UnitsPerPixel, place.Height / UnitsPerPixel);
    const QPoint stored(place.Left / UnitsPerPixel, place.Top / UnitsPerPixel);
    const QPoint seen = OntoScreen(QRect(stored, window_.size()), Screens());
    if (seen != stored) {
        shiftedFrom_ = stored;
    }
    window_.move(seen);
}

MeasuredWindowPlace FormMainPlace::Measured() const {
    const auto units = [](int pixels) { return static_cast<float>(pixels * UnitsPerPixel); };
    const bool isNormal = !window_.isMaximized() && !window_.isFullScreen() && !window_.isMinimized();
    const QRect inner = isNormal ? window_.geometry() : window_.normalGeometry();
    const QPoint frame = isNormal ? window_.pos() : inner.topLeft() - inFrame_;
    return {units(frame.y()), units(frame.x()), units(inner.height()), units(inner.width())};
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
