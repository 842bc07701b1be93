// What the window's own widgets tell assistive programs.
#pragma once

#include <QAccessible>
#include <QString>
#include <QStringList>

class QWidget;

namespace workbench {

// A widget whose role, actions and state are its own to tell. Name and description are the widget's.
class Told {
public:
    virtual ~Told() = default;
    virtual QAccessible::Role AccessibleRole() const = 0;
    // The actions in their order, the first one being what a click of the mouse does. Each is done by its
    // name.
    virtual QStringList AccessibleActions() const { return {}; }
    // Nothing where a click of the mouse would not reach the widget.
    virtual void DoAccessibleAction(const QString&) {}
    // Added to what is told of every widget.
    virtual void AddToState(QAccessible::State&) const {}
    // The keys that work it, as people write them; empty for none.
    virtual QString AccessibleKeys() const { return {}; }
    // A value that is on show, empty for none.
    virtual QString AccessibleValue() const { return {}; }
};

// Lets Qt ask for the accessible face of every widget that is Told. A second call changes nothing.
void InstallBenchAccess();

// Whether a click of the mouse would reach a widget: enabled, and not behind a modal window. One on a tab
// that is not shown is reached by its keys all the same.
bool TakesPress(const QWidget& widget);

// Has screen readers say at once what a widget's name says.
void TellAlert(QWidget& widget);

}  // namespace workbench
