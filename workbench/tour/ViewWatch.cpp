#include "workbench/tour/ViewWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include "core/owner/PositionLoop.h"

namespace workbench::tour {

ViewWatch::ViewWatch(const travo::SharedState& state) : state_(state) {
    QCoreApplication::instance()->installEventFilter(this);
}

ViewWatch::~ViewWatch() { QCoreApplication::instance()->removeEventFilter(this); }

bool ViewWatch::eventFilter(QObject* watched, QEvent* event) {
    // No other timer of the main window has the loop's period.
    const auto* const timer = event->type() == QEvent::Timer ? qobject_cast<const QTimer*>(watched) : nullptr;
    if (timer != nullptr && timer->interval() == travo::PositionLoop::Period) {
        seen_.push_back(state_.CurrentXYZ());
    }
    return false;
}

}  // namespace workbench::tour
