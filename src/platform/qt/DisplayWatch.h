// Stands by while the application object comes into being: without a display the toolkit would abort the
// program.
#pragma once

#include <QString>

namespace travo::platform::qt {

// One at a time. From its begin to its end, what the toolkit has to say is kept back: where it gives up, the
// program says in one sentence that it has no display and ends with exit code 1; else all of it is said at
// the end.
class DisplayWatch {
public:
    DisplayWatch();
    ~DisplayWatch() { EndDisplayWatch(); }
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;

    // The application object is there.
    void EndDisplayWatch();

private:
    bool watching_ = true;
};

}  // namespace travo::platform::qt
