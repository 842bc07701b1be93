// A control that assistive programs can press.
#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace travo {

class Pressable {
public:
    virtual ~Pressable() = default;
    // What a click of the mouse would do now: nothing where it would not reach the control.
    virtual void Press() = 0;
    virtual QAccessible::Role AccessibleRole() const = 0;
    // What assistive programs are told of its state beyond what they are told of every button.
    virtual void AddToState(QAccessible::State&) const {}
    // The name while no accessible name is set.
    virtual QString NameWithoutName() const = 0;
};

// Whether a click of the mouse would reach the control: it is enabled and on show, and no modal window
// shuts it off.
bool TakesPress(const QWidget& control);

// The control cannot be worked any more: it is disabled, or not on show in its window.
bool HasGoneOff(const QWidget& control);

}  // namespace travo
