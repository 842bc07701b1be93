#include "controls/ControlNames.h"

#include <QWidget>

#include "controls/NumberLabel.h"

namespace travo {

QString Indexed(const QString& name, int index) { return QStringLiteral("%1(%2)").arg(name).arg(index); }

void Identify(QWidget& control, const QString& objectName, const QString& humanName, const QString& toolTip) {
    control.setObjectName(objectName);
    control.setToolTip(toolTip);
    if (auto* const label = qobject_cast<NumberLabel*>(&control)) {
        label->HumanName(humanName);
    } else {
        control.setAccessibleName(humanName);
    }
}

}  // namespace travo
