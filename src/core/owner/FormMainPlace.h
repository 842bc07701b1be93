// Where the main window stands on the desktop: put there at the start, measured at the end.
#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>
#include <optional>

#include "core/state/WindowPlace.h"

namespace travo {

// Watches its window from construction on: of the normal state only Qt's own word on the inner place is
// kept while the window is maximised or fills the screen, and the frame has another width then.
class FormMainPlace : public QObject {
public:
    // The window must outlive this.
    explicit FormMainPlace(QWidget& window);

    // Before the window is shown. A place off every screen is shifted onto one, frame and all: the frame is
    // known once the window system has drawn it, and a shifted window goes to its place then.
    void Place(const WindowPlace& place);

    // The frame's place and the inner size, of the normal state.
    MeasuredWindowPlace Measured() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FrameSeen();

    QWidget& window_;
    // From the frame's upper left corner to the inner one, as last seen in the normal state.
    QPoint inFrame_;
    // The stored place, while a window that was shifted from there waits for its frame.
    std::optional<QPoint> shiftedFrom_;
};

}  // namespace travo
