// Drops what the operator has pressed and typed while the program stood still.
#pragma once

#include <QObject>
#include <QSet>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/qt/WindowSystemTime.h"

class QInputEvent;
class QKeyEvent;
class QMouseEvent;

namespace travo::platform::qt {

// What was done during a stand-still comes only when events are served again, be it after the operation or
// in a message box of it. It is known by its stamp: an event that was not yet served when the stand-still
// ended, and that bears no later time. What was done shortly before a stand-still and was not served yet
// counts as done in it. Where the window system tells no time nothing is dropped.
class QtPresses : public QObject {
public:
    // Milliseconds on the clock that stamps the events, wrapping at 32 bits.
    using StampClock = std::function<std::optional<std::uint32_t>()>;

    // How long before a stand-still something may have been done that is dropped with it, in milliseconds.
    static constexpr std::uint32_t Before = 5000;

    QtPresses();
    // With another clock than the window system's.
    explicit QtPresses(StampClock clock);

    // Neither raises anything.
    void BeginStandStill();
    void EndStandStill();

protected:
    // Everything that the operator does comes to a window first.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool DoneInStandStill(const QInputEvent& event);
    bool DropsKey(const QKeyEvent& event);
    bool DropsMouse(QObject& window, const QMouseEvent& event);
    bool DropsPress(const QMouseEvent& event);

    WindowSystemTime time_;
    StampClock clock_;
    bool installed_ = false;
    // Something of the stand-still may still come.
    bool awaited_ = false;
    std::optional<std::uint32_t> from_;
    std::uint32_t to_ = 0;
    // Pressed last in a stand-still: repetitions and releases belong to what was dropped. What is dragged
    // without its press the toolkit gives to nobody.
    QSet<int> keys_;
    Qt::MouseButtons buttons_;
    // The present press and the one before it were dropped.
    bool droppedPress_ = false;
    bool droppedPressBefore_ = false;
};

}  // namespace travo::platform::qt
