#include "platform/qt/DisplayWatch.h"

#include <QByteArray>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace travo::platform::qt {

namespace {

// A message handler has no other place for what it keeps.
std::vector<std::pair<QtMsgType, QString>> keptBack;

[[noreturn]] void EndWithoutDisplay() {
    const QByteArray display = qgetenv("DISPLAY");
    if (display.isEmpty()) {
        std::fprintf(stderr, "TRAVO needs a display, and DISPLAY names none.\n");
    } else {
        std::fprintf(stderr, "TRAVO needs a display, and \"%s\" cannot be opened.\n", display.constData());
    }
    std::fflush(stderr);
    // Nothing has been made yet that would have to be released.
    std::_Exit(1);
}

void KeepBack(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) {
        EndWithoutDisplay();
    }
    keptBack.emplace_back(type, text);
}

}  // namespace

DisplayWatch::DisplayWatch() { qInstallMessageHandler(KeepBack); }

void DisplayWatch::EndDisplayWatch() {
    if (!std::exchange(watching_, false)) {
        return;
    }
    qInstallMessageHandler(nullptr);
    for (const auto& [type, text] : std::exchange(keptBack, {})) {
        qt_message_output(type, QMessageLogContext(), text);
    }
}

}  // namespace travo::platform::qt
