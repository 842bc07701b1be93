#include "platform/qt/QtClock.h"

#include <QThread>
#include <QTimer>
#include <utility>

#include "platform/qt/QtTermination.h"

namespace travo::platform::qt {

namespace {

class QtTimer : public Timer {
public:
    explicit QtTimer(std::function<void()> tick) {
        QObject::connect(&timer_, &QTimer::timeout, std::move(tick));
    }

    void Interval(int milliseconds) override { timer_.setInterval(milliseconds); }
    void Enabled(bool on) override {
        if (on && !timer_.isActive()) {
            timer_.start();
        } else if (!on) {
            timer_.stop();
        }
    }
    bool Enabled() const override { return timer_.isActive(); }

private:
    QTimer timer_;
};

}  // namespace

void QtClock::Sleep(std::int64_t milliseconds) {
    QtTermination::StandsStill();
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

std::unique_ptr<Timer> QtTimers::Create(std::function<void()> tick) {
    return std::make_unique<QtTimer>(std::move(tick));
}

}  // namespace travo::platform::qt
