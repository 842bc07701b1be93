// The library under check, as TRAVO loads it.
#pragma once

#include <string>

#include "drivers/check/Messages.h"

namespace check {

// In the process that holds the library only: a faulty one takes its process with it.
class Library {
public:
    Answer Load(const std::string& path);
    // Every call has the values 0 ahead of it. Only for functions that Load has found.
    Answer Call(const Request& request);
    Answer Unload();

private:
    using GetPosition = std::int32_t (*)(std::int32_t*, std::int32_t*, std::int32_t*, std::int32_t*);
    using MoveTo = std::int32_t (*)(std::int32_t, std::int32_t, std::int32_t);
    using WithValue = std::int32_t (*)(std::int32_t*);
    using Select = std::int32_t (*)(std::int32_t, std::int32_t*);
    using Reconnect = std::int32_t (*)();
    using Stop = std::int32_t (*)(std::int32_t);

    void* handle_ = nullptr;
    GetPosition getPosition_ = nullptr;
    MoveTo moveTo_ = nullptr;
    Select select_ = nullptr;
    WithValue getCount_ = nullptr;
    Reconnect reconnect_ = nullptr;
    Stop stop_ = nullptr;
};

// The monotonic clock, in ns.
std::int64_t Now();

}  // namespace check
