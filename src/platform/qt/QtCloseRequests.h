// The window system's word to close a window while a box stands before it, which the toolkit drops.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QWidget>
#include <functional>

namespace travo::platform::qt {

// Under X11; elsewhere it hears of nothing.
class QtCloseRequests : public QAbstractNativeEventFilter {
public:
    // The window must live longer. The procedure is called for each such word while the window is blocked;
    // the window's own close comes as ever while it is not.
    QtCloseRequests(const QWidget& window, std::function<void()> procedure);
    ~QtCloseRequests() override;
    QtCloseRequests(const QtCloseRequests&) = delete;
    QtCloseRequests& operator=(const QtCloseRequests&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    const QWidget& window_;
    std::function<void()> procedure_;
    std::uint32_t protocols_ = 0;
    std::uint32_t deleteWindow_ = 0;
};

}  // namespace travo::platform::qt
