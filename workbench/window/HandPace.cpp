#include "workbench/window/HandPace.h"

#include <algorithm>
#include <utility>

namespace workbench {

HandPace::HandPace(Ask ask, int milliseconds) : ask_(std::move(ask)), milliseconds_(milliseconds) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Flush(); });
}

void HandPace::Say(const std::string& line) {
    Say([line] { return line; });
}

void HandPace::Say(std::function<std::string()> line) {
    waiting_ = std::move(line);
    if (!since_.isValid() || since_.elapsed() >= milliseconds_) {
        SayNow();
    } else if (!timer_.isActive()) {
        timer_.start(static_cast<int>(std::max<qint64>(0, milliseconds_ - since_.elapsed())));
    }
}

void HandPace::Flush() {
    if (waiting_) {
        SayNow();
    }
}

void HandPace::SayNow() {
    timer_.stop();
    const auto line = std::exchange(waiting_, nullptr);
    since_.start();
    if (const std::string text = line(); !text.empty()) {
        ask_(text);
    }
}

}  // namespace workbench
