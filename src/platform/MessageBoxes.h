// Message boxes of the windowing layer.
#pragma once

#include <QString>

namespace travo::platform {

enum class BoxButtons { OK, OKCancel, YesNo };
enum class BoxAnswer { OK, Cancel, Yes, No };
enum class BoxIcon { None, Stop };

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows a modal box without a title of its own and serves the event loop until it is answered.
    // The text is shown as plain text, whatever it holds. A box closed without a button answers OK
    // where it has only that, else Cancel or No. A text of more characters than a screen can show is cut.
    // Raises nothing.
    virtual BoxAnswer Show(const QString& text, BoxButtons buttons, BoxIcon icon) = 0;
};

}  // namespace travo::platform
