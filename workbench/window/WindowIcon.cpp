#include "workbench/window/WindowIcon.h"

#include <QString>

// Qt wants it called from outside of every namespace.
static void InstallIcons() { Q_INIT_RESOURCE(workbench_icon); }

namespace workbench {

QIcon WorkbenchIcon() {
    InstallIcons();
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/workbench/icon/workbench-%1.png").arg(side));
    }
    return icon;
}

}  // namespace workbench
