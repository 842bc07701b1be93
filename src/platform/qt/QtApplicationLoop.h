// The application object: what no handler has taken ends here and not the program.
#pragma once

#include <QApplication>
#include <functional>

namespace travo::platform::qt {

class QtApplicationLoop : public QApplication {
public:
    // To be called before the application object is made. Windows must keep their places, which
    // Wayland does not allow: where an X server is at hand, it is used.
    static void PreferX11();

    QtApplicationLoop(int& argumentCount, char** arguments);

    // Called when an event's handling has raised what nobody took; must itself raise nothing.
    void WhenUnexpectedFailure(std::function<void()> procedure) { procedure_ = std::move(procedure); }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    std::function<void()> procedure_;
};

}  // namespace travo::platform::qt
