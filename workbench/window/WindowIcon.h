// The workbench's icon: the program's in violet.
#pragma once

#include <QIcon>

namespace workbench {

QIcon WorkbenchIcon();

}  // namespace workbench
