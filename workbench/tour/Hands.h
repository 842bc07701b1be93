// The operator's hands on the main window: controls are found by the names that assistive programs read,
// and worked by mouse and keys through the window.
#pragma once

#include <QString>

#include "workbench/tour/Stage.h"

class QWidget;

namespace workbench::tour {

// A name is that of a control's human name, "Test mirror" or "Cell A X". ActFailure where no control, or
// more than one, of that name is on show.
class Hands {
public:
    explicit Hands(Stage& stage) : stage_(stage) {}

    // Moves the mouse onto the control and clicks where an operator would see it. ActFailure when it is
    // disabled or something else lies in front of it.
    void Press(const QString& name);
    // Waits until the main window has the keys; a click on it would bring them.
    void TakeTheKeys();
    // Clicks into the box and types over what it holds.
    void Type(const QString& name, const QString& text);

    // The text of a label or box.
    QString Read(const QString& name) const;
    bool OnShow(const QString& name) const;
    bool Enabled(const QString& name) const;
    // Of a two-state button.
    bool PressedIn(const QString& name) const;

    // Presses the tab of that name and requires that the panel, by its object name, has come.
    void OpenPanel(const QString& tab, const QString& panel);
    // Object name of the panel on show, empty for none.
    QString ShownPanel() const;
    // The main window has a panel of that object name, on show or not.
    bool HasPanel(const QString& panel) const;

private:
    QWidget& Control(const QString& name) const;
    void Click(QWidget& control, const QString& name);

    Stage& stage_;
};

}  // namespace workbench::tour
