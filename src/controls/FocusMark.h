// Shows which control the keyboard works.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "controls/DesignSized.h"

namespace travo {

// An ink line of 2 design pixels round a control, 2 outside it. It stands while the control has the
// focus and the keyboard brought it there or was used since; a mouse click shows no line.
class FocusMark : public QObject {
    Q_OBJECT

public:
    // Both outlive the mark; they are the same object.
    FocusMark(QWidget& control, const DesignSized& design);
    ~FocusMark() override;

    bool IsShown() const { return line_ != nullptr; }

    // The reason for a focus that is passed on from a control, so that the next one shows its line where this
    // one did. A control without a mark passes it on as from the keyboard.
    static Qt::FocusReason ReasonToPassOn(const QWidget& control);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FocusIn(Qt::FocusReason reason);
    void Show();
    void Hide();
    void Follow();

    QWidget& control_;
    const DesignSized& design_;
    // A child of the control's parent, which may go first.
    QPointer<QWidget> line_;
    bool keyboardUsed_ = false;
};

}  // namespace travo
