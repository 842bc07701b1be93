// Message boxes on Qt's.
#pragma once

#include <functional>

#include "platform/MessageBoxes.h"
#include "platform/qt/QtEventLoop.h"

class QMessageBox;

namespace travo::platform::qt {

class QtMessageBoxes : public MessageBoxes {
public:
    explicit QtMessageBoxes(QtEventLoop& loop) : loop_(loop) {}

    BoxAnswer Show(const QString& text, BoxButtons buttons, BoxIcon icon) override;
    BoxAnswer ShowSo(const QString& text, BoxButtons buttons, BoxIcon icon,
                     const BoxOpening& opening) override;

    // From now on every box, the present ones included, is answered as if closed without a button:
    // the session ends and nobody is there to answer.
    void Dismiss();

private:
    QtEventLoop& loop_;
    bool dismissed_ = false;
};

}  // namespace travo::platform::qt
