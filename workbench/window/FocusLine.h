// Shows which control the keyboard works: an ink line of 2 pixels, 2 outside the control.
#pragma once

#include <QPointer>
#include <QWidget>

namespace workbench {

// Stands over all that is in a window and takes no mouse. The line is there while a watched control has the
// focus and the keyboard brought it there or has pressed it since; a click of the mouse shows none.
class FocusLine : public QWidget {
public:
    explicit FocusLine(QWidget& window);

    void Watch(QWidget& control);
    // The control that bears the line, or none.
    const QWidget* Control() const { return control_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Bear(QWidget* control);
    void Follow();

    QPointer<QWidget> control_;
};

}  // namespace workbench
