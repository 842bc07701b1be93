// The application object: what no handler has taken ends here and not the program.
#pragma once

#include <QApplication>
#include <functional>

#include "platform/qt/DisplayWatch.h"

namespace travo::platform::qt {

class QtApplicationLoop : private DisplayWatch, public QApplication {
public:
    // To be called before the application object is made. Windows must keep their places, which
    // Wayland does not allow: where an X server is at hand, it is used.
    static void PreferX11();

    // Without a display it says so on the standard error stream and ends the program with exit code 1.
    QtApplicationLoop(int& argumentCount, char** arguments);

    // Called when an event's handling has raised what nobody took; must itself raise nothing.
    void WhenUnexpectedFailure(std::function<void()> procedure) { procedure_ = std::move(procedure); }
    // Called when the session manager, or the system beneath the toolkit, has the program end. The program
    // ends by exit and not by quit, which asks every window to close.
    void WhenToldToEnd(std::function<void()> procedure) { end_ = std::move(procedure); }

    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    std::function<void()> procedure_;
    std::function<void()> end_;
};

}  // namespace travo::platform::qt
