#include "platform/qt/QtPresses.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

namespace travo::platform::qt {

namespace {

// By how much a stamp lies behind another, on a clock that wraps.
std::int32_t Later(std::uint32_t stamp, std::uint32_t other) {
    return static_cast<std::int32_t>(stamp - other);
}

}  // namespace

QtPresses::QtPresses() : clock_([this] { return time_.Now(); }) {}

QtPresses::QtPresses(StampClock clock) : clock_(std::move(clock)) {}

void QtPresses::BeginStandStill() {
    if (!installed_ && QCoreApplication::instance() != nullptr) {
        QCoreApplication::instance()->installEventFilter(this);
        installed_ = true;
    }
    const std::optional<std::uint32_t> now = clock_();
    if (!awaited_ || !now) {
        // Else what was done in the last stand-still is still to come, and is dropped with this one's.
        from_ = now ? std::optional(*now - Before) : std::nullopt;
    }
    awaited_ = false;
}

void QtPresses::EndStandStill() {
    const std::optional<std::uint32_t> now = clock_();
    awaited_ = from_ && now;
    to_ = now.value_or(0);
}

bool QtPresses::DoneInStandStill(const QInputEvent& event) {
    const auto stamp = static_cast<std::uint32_t>(event.timestamp());
    if (!awaited_ || event.timestamp() == 0) {
        return false;
    }
    if (Later(stamp, to_) > 0) {
        // Events come in the order of their stamps.
        awaited_ = false;
        return false;
    }
    return Later(stamp, *from_) >= 0;
}

bool QtPresses::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWindowType() || !event->spontaneous()) {
        return false;
    }
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            if (DoneInStandStill(*static_cast<QKeyEvent*>(event))) {
                // Taken by a control, as it were: no shortcut acts on it.
                event->accept();
                return true;
            }
            return false;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return DropsKey(*static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return DropsMouse(*receiver, *static_cast<QMouseEvent*>(event));
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
            return DoneInStandStill(*static_cast<QInputEvent*>(event));
        default:
            return false;
    }
}

bool QtPresses::DropsKey(const QKeyEvent& event) {
    const int key = event.key();
    if (event.type() == QEvent::KeyRelease) {
        return keys_.contains(key);
    }
    // What a held key repeats belongs to its press.
    if (event.isAutoRepeat() && keys_.contains(key)) {
        return true;
    }
    if (DoneInStandStill(event)) {
        keys_.insert(key);
        return true;
    }
    keys_.remove(key);
    return false;
}

bool QtPresses::DropsPress(const QMouseEvent& event) {
    droppedPressBefore_ = std::exchange(droppedPress_, DoneInStandStill(event));
    buttons_.setFlag(event.button(), droppedPress_);
    return droppedPress_;
}

bool QtPresses::DropsMouse(QObject& window, const QMouseEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            return DropsPress(event);
        case QEvent::MouseButtonDblClick: {
            // It comes behind its own press.
            if (!droppedPress_ && droppedPressBefore_) {
                // The first of the two was dropped: what is left of them is one press.
                QMouseEvent press(QEvent::MouseButtonPress, event.position(), event.scenePosition(),
                                  event.globalPosition(), event.button(), event.buttons(), event.modifiers(),
                                  event.pointingDevice());
                QCoreApplication::sendEvent(&window, &press);
                return true;
            }
            return droppedPress_;
        }
        default: {
            const bool dropped = buttons_.testFlag(event.button());
            buttons_.setFlag(event.button(), false);
            return dropped;
        }
    }
}

}  // namespace travo::platform::qt
