// What the live camera is yet to be told, and what it has not answered yet.
#pragma once

#include <QLatin1String>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace travo::platform::qt {

struct Announcement {
    QLatin1String operation;
    std::optional<std::int16_t> argument;
};

// Knows no bus: whoever has one asks for the next when something may have become due.
class AnnouncementQueue {
public:
    // So many may wait behind the one in flight. More means that the camera has long been left behind.
    static constexpr std::size_t MostWaiting = 64;

    // Takes one more. One with an argument takes the place of a waiting one of the same operation: the
    // value before is out of date. False, with nothing changed: too many wait.
    bool Add(const Announcement& announcement);
    // The next to be sent, which is in flight from now on; none while one is, or where none waits.
    std::optional<Announcement> Next();
    // The one in flight has been answered.
    void Answered() { inFlight_ = false; }
    void Clear();

private:
    std::deque<Announcement> waiting_;
    bool inFlight_ = false;
};

}  // namespace travo::platform::qt
