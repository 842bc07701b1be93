// Lines that a hand gives faster than the bench is asked: at most one in so many ms, and always the latest.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <string>

#include "workbench/window/Ask.h"

namespace workbench {

class HandPace {
public:
    HandPace(Ask ask, int milliseconds);

    // Says the line now, or as soon as the time since the last one is over; a line that waits gives way to
    // it.
    void Say(const std::string& line);
    // The same for a line that depends on how things stand when it is said; an empty one is not said.
    void Say(std::function<std::string()> line);
    // Says what waits, now: the hand lets go.
    void Flush();

private:
    void SayNow();

    Ask ask_;
    int milliseconds_;
    std::function<std::string()> waiting_;
    QElapsedTimer since_;
    QTimer timer_;
};

}  // namespace workbench
