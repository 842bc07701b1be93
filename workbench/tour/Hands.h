// The operator's hands on a window: controls are found by the names that assistive programs read, and
// worked by mouse and keys through the window.
#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

#include "workbench/tour/Stage.h"

class QWidget;

namespace workbench::tour {

// A name is that of a control's human name, "Test mirror" or "Cell A X". ActFailure where no control, or
// more than one, of that name is on show.
class Hands {
public:
    // On the main window, whichever run of the program has it.
    explicit Hands(Stage& stage) : stage_(stage) {}
    // On another window, which outlives them.
    Hands(Stage& stage, QWidget& window) : stage_(stage), window_(&window) {}

    // Moves the mouse onto the control and clicks where an operator would see it. ActFailure when it is
    // disabled or something else lies in front of it.
    void Press(const QString& name);
    // Clicks at a place of a control, in pixels from its upper left corner, be it disabled.
    void PressAt(const QString& name, const QPoint& place);
    // Takes a window without a system's frame by its lower right corner and brings it to that size.
    void DragToSize(const QSize& size);
    // Waits until the window has the keys; a click on it would bring them.
    void TakeTheKeys();
    // Clicks into the box and types over what it holds.
    void Type(const QString& name, const QString& text);

    // The text of a label or box.
    QString Read(const QString& name) const;
    bool OnShow(const QString& name) const;
    // Of a two-state button.
    bool PressedIn(const QString& name) const;
    // What a control shows, in plain pixels.
    QImage Look(const QString& name) const;

    // Presses the tab of that name and requires that the panel, by its object name, has come.
    void OpenPanel(const QString& tab, const QString& panel);
    // Object name of the panel on show, empty for none.
    QString ShownPanel() const;

private:
    QWidget& Window() const;
    QWidget& Control(const QString& name) const;
    // Where on the window a place of a control is; ActFailure where something lies in front of it.
    QPoint OnWindow(QWidget& control, const QString& name, const QPoint& place) const;
    void Click(QWidget& control, const QString& name);

    Stage& stage_;
    QWidget* window_ = nullptr;  // none for the main window
};

}  // namespace workbench::tour
