#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QTimer>
#include <utility>

#include "platform/qt/QtTermination.h"

namespace travo::platform::qt {

void QtEventLoop::Serve() {
    const Wait wait(*this);
    QCoreApplication::processEvents();
}

void QtEventLoop::ServeUntilEventOr(std::int64_t milliseconds) {
    const Wait wait(*this);
    // The timer's own event ends the sleep; it holds nothing that must outlive this call.
    QTimer limit;
    limit.setSingleShot(true);
    limit.setTimerType(Qt::PreciseTimer);
    limit.start(static_cast<int>(milliseconds));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtEventLoop::Queue(std::function<void()> procedure) {
    QMetaObject::invokeMethod(&context_, std::move(procedure), Qt::QueuedConnection);
}

void QtEventLoop::QueueAfterWaits(std::function<void()> procedure) {
    if (Waiting()) {
        afterWaits_.push_back(std::move(procedure));
    } else {
        Queue(std::move(procedure));
    }
}

bool QtEventLoop::EndAsked() const { return QtTermination::Asked(); }

void QtEventLoop::Leave() {
    --depth_;
    if (depth_ > 0) {
        return;
    }
    for (auto& procedure : std::exchange(afterWaits_, {})) {
        // Asked again when its turn comes: the operation that has just waited may wait once more.
        Queue([this, procedure = std::move(procedure)]() mutable {
            if (Waiting()) {
                afterWaits_.push_back(std::move(procedure));
            } else {
                procedure();
            }
        });
    }
}

}  // namespace travo::platform::qt
