#include "platform/qt/AnnouncementQueue.h"

#include <algorithm>

namespace travo::platform::qt {

bool AnnouncementQueue::Add(const Announcement& announcement) {
    if (announcement.argument) {
        const auto before = std::find_if(waiting_.begin(), waiting_.end(), [&](const Announcement& waiting) {
            return waiting.operation == announcement.operation;
        });
        if (before != waiting_.end()) {
            before->argument = announcement.argument;
            return true;
        }
    }
    if (waiting_.size() >= MostWaiting) {
        return false;
    }
    waiting_.push_back(announcement);
    return true;
}

std::optional<Announcement> AnnouncementQueue::Next() {
    if (inFlight_ || waiting_.empty()) {
        return std::nullopt;
    }
    inFlight_ = true;
    const Announcement next = waiting_.front();
    waiting_.pop_front();
    return next;
}

void AnnouncementQueue::Clear() {
    waiting_.clear();
    inFlight_ = false;
}

}  // namespace travo::platform::qt
