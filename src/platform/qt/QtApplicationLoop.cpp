#include "platform/qt/QtApplicationLoop.h"

namespace travo::platform::qt {

void QtApplicationLoop::PreferX11() {
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
}

QtApplicationLoop::QtApplicationLoop(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments) {
    EndDisplayWatch();
    // No display name: Qt would put it behind every title.
    setApplicationName(QStringLiteral("TRAVO"));
    // The main window says when the program ends; a box that closes before it is on show must not.
    setQuitOnLastWindowClosed(false);
}

bool QtApplicationLoop::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (procedure_) {
            procedure_();
        }
    }
    return true;
}

bool QtApplicationLoop::event(QEvent* event) {
    if (event->type() == QEvent::Quit && end_) {
        event->accept();
        end_();
        return true;
    }
    return QApplication::event(event);
}

}  // namespace travo::platform::qt
