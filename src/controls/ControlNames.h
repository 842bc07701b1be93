// The names by which tests, screen readers and the operator know a control.
#pragma once

#include <QString>

class QWidget;

namespace travo {

// "usrKVCheckButton1(2)".
QString Indexed(const QString& name, int index);

// Object name (the control's own, with its index), accessible name (the human one) and tooltip. A
// NumberLabel takes the human name as its description: its name is its text.
void Identify(QWidget& control, const QString& objectName, const QString& humanName,
              const QString& toolTip = QString());

}  // namespace travo
