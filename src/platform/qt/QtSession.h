// The desktop's session manager: its word to save, and its loss.
#pragma once

#include <QObject>
#include <functional>

namespace travo::platform::qt {

// One at a time in a process. Its word to end comes to the application object.
class QtSession : public QObject {
public:
    // save is called at each word to save, in the course of which the session manager waits; end is called
    // from the event loop when the session manager is lost after it has given that word.
    QtSession(std::function<void()> save, std::function<void()> end);
    ~QtSession() override;
    QtSession(const QtSession&) = delete;
    QtSession& operator=(const QtSession&) = delete;

private:
    void Save();
    void Lost();

    std::function<void()> save_;
    std::function<void()> end_;
    bool toldToSave_ = false;
};

}  // namespace travo::platform::qt
