#include "core/owner/FormMainFirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <utility>

namespace travo {

namespace {

class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& window, std::chrono::milliseconds atTheLatest, std::function<void()> procedure)
        : QObject(&window), procedure_(std::move(procedure)) {
        setObjectName(QStringLiteral("FirstPaint"));
        window.installEventFilter(this);
        limit_.setSingleShot(true);
        connect(&limit_, &QTimer::timeout, this, &FirstPaint::Finish);
        limit_.start(atTheLatest);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            // What lies in the window is painted next, and then all of it is sent to the screen.
            watched->removeEventFilter(this);
            limit_.start(0);
        }
        return false;
    }

private:
    void Finish() {
        deleteLater();
        procedure_();
    }

    std::function<void()> procedure_;
    QTimer limit_;
};

}  // namespace

void CallAfterFirstPaint(QWidget& window, std::chrono::milliseconds atTheLatest,
                         std::function<void()> procedure) {
    // The window owns it.
    new FirstPaint(window, atTheLatest, std::move(procedure));
}

}  // namespace travo
