#include "platform/qt/WindowSystemTime.h"

#include <QGuiApplication>

// Its macros take common words: nothing may be included behind it.
#include <X11/Xlib.h>

namespace travo::platform::qt {

// A connection of its own: on the application's the answer would stand behind all that waits there, and is
// read by Qt alone.
class WindowSystemTime::Server {
public:
    explicit Server(::Display& display)
        : display_(display),
          window_(XCreateSimpleWindow(&display, XDefaultRootWindow(&display), 0, 0, 1, 1, 0, 0, 0)),
          property_(XInternAtom(&display, "TRAVO_TIME", False)) {
        XSelectInput(&display_, window_, PropertyChangeMask);
    }
    ~Server() { XCloseDisplay(&display_); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Nothing added to a property is a change of it, and the news of the change bears the time.
    std::uint32_t Now() {
        const unsigned char nothing = 0;
        XChangeProperty(&display_, window_, property_, property_, 8, PropModeAppend, &nothing, 0);
        XEvent event;
        XWindowEvent(&display_, window_, PropertyChangeMask, &event);
        return static_cast<std::uint32_t>(event.xproperty.time);
    }

private:
    ::Display& display_;
    ::Window window_;
    ::Atom property_;
};

WindowSystemTime::WindowSystemTime() = default;
WindowSystemTime::~WindowSystemTime() = default;

std::optional<std::uint32_t> WindowSystemTime::Now() {
    if (!server_ && qGuiApp != nullptr) {
        if (const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
            if (::Display* const display = XOpenDisplay(XDisplayString(x11->display()))) {
                server_ = std::make_unique<Server>(*display);
            }
        }
    }
    return server_ ? std::optional(server_->Now()) : std::nullopt;
}

}  // namespace travo::platform::qt
