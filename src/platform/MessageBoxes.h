// Message boxes of the windowing layer.
#pragma once

#include <QRect>
#include <QString>

namespace travo::platform {

enum class BoxButtons { OK, OKCancel, YesNo };
enum class BoxAnswer { OK, Cancel, Yes, No };
enum class BoxIcon { None, Stop };

// How a box opens, where it matters.
struct BoxOpening {
    // What the box asks about, in device-independent pixels of the desktop: it opens beside that, as far as
    // the screen has room. Empty: in the middle of the window that asks.
    QRect beside;
    // Cancel has the focus, not OK: Enter and Space change nothing.
    bool isFocusOnCancel = false;
};

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows a modal box without a title of its own and serves the event loop until it is answered.
    // The text is shown as plain text, whatever it holds. A box closed without a button answers OK
    // where it has only that, else Cancel or No. A text of more characters than a screen can show is cut.
    // Raises nothing.
    virtual BoxAnswer Show(const QString& text, BoxButtons buttons, BoxIcon icon) = 0;
    // The same, opened in that way where there is a screen to see it on.
    virtual BoxAnswer ShowSo(const QString& text, BoxButtons buttons, BoxIcon icon, const BoxOpening&) {
        return Show(text, buttons, icon);
    }
};

}  // namespace travo::platform
