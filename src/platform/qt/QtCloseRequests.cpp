#include "platform/qt/QtCloseRequests.h"

#include <QApplication>
#include <utility>

#ifdef Q_OS_LINUX
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#endif

namespace travo::platform::qt {

namespace {

#ifdef Q_OS_LINUX

xcb_atom_t Atom(xcb_connection_t* connection, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const xcb_intern_atom_cookie_t asked = xcb_intern_atom(connection, 0, length, name);
    struct Free {
        void operator()(xcb_intern_atom_reply_t* reply) const { std::free(reply); }
    };
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection, asked, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

#endif

// As the toolkit sees it: then it drops the word.
bool Blocked(const QWidget& window) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != &window;
}

}  // namespace

QtCloseRequests::QtCloseRequests(const QWidget& window, std::function<void()> procedure)
    : window_(window), procedure_(std::move(procedure)) {
#ifdef Q_OS_LINUX
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    // A platform without a screen offers the interface as well, and nothing behind it.
    if (x11 != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")) {
        protocols_ = Atom(x11->connection(), "WM_PROTOCOLS");
        deleteWindow_ = Atom(x11->connection(), "WM_DELETE_WINDOW");
        qApp->installNativeEventFilter(this);
    }
#endif
}

QtCloseRequests::~QtCloseRequests() { qApp->removeNativeEventFilter(this); }

bool QtCloseRequests::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
#ifdef Q_OS_LINUX
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE) {
        return false;
    }
    const auto* const word = static_cast<const xcb_client_message_event_t*>(message);
    if (word->type == protocols_ && word->data.data32[0] == deleteWindow_ &&
        word->window == window_.internalWinId() && Blocked(window_)) {
        procedure_();
    }
#endif
    return false;
}

}  // namespace travo::platform::qt
