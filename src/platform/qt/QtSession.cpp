#include "platform/qt/QtSession.h"

#include <QGuiApplication>
#include <QLibrary>
#include <utility>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <unistd.h>
#endif

namespace travo::platform::qt {

namespace {

// A procedure of the library has no other way to reach whoever listens.
std::function<void()> lost;

#ifndef Q_OS_WIN

// Of libICE, which the toolkit's X11 part brings along where it knows session managers.
using Connection = void*;
using ErrorHandler = void (*)(Connection);
using SetErrorHandler = ErrorHandler (*)(ErrorHandler);
using ConnectionNumber = int (*)(Connection);

ConnectionNumber connectionNumber = nullptr;

// The toolkit goes on watching the descriptor, which from now on would have news without end: one that never
// has any takes its place.
void Silence(int descriptor) {
    static int silent[2] = {-1, -1};
    if (silent[0] >= 0 || pipe2(silent, O_CLOEXEC) == 0) {
        dup3(silent[0], descriptor, O_CLOEXEC);
    }
}

void OnLoss(Connection connection) {
    Silence(connectionNumber(connection));
    if (lost) {
        lost();
    }
}

// The library's own handling of a lost connection ends the program on the spot.
void TakeOverLoss() {
    QLibrary library(QStringLiteral("ICE"), 6);
    const auto setHandler = reinterpret_cast<SetErrorHandler>(library.resolve("IceSetIOErrorHandler"));
    connectionNumber = reinterpret_cast<ConnectionNumber>(library.resolve("IceConnectionNumber"));
    if (setHandler != nullptr && connectionNumber != nullptr) {
        setHandler(OnLoss);
    }
}

#else

void TakeOverLoss() {}

#endif

}  // namespace

QtSession::QtSession(std::function<void()> save, std::function<void()> end)
    : save_(std::move(save)), end_(std::move(end)) {
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Save(); });
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, [this] { Save(); });
    lost = [this] { Lost(); };
    TakeOverLoss();
}

QtSession::~QtSession() { lost = nullptr; }

void QtSession::Save() {
    toldToSave_ = true;
    save_();
}

void QtSession::Lost() {
    if (std::exchange(toldToSave_, false)) {
        QMetaObject::invokeMethod(this, end_, Qt::QueuedConnection);
    }
}

}  // namespace travo::platform::qt
