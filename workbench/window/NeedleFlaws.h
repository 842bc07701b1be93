// What a needle may lack: the menus of its imperfections.
#pragma once

#include <functional>
#include <string>

#include "workbench/window/Scene.h"

class QMenu;

namespace workbench {

// Adds a menu for each imperfection of the picked needle to `menu`. `say` takes the command line.
void AddNeedleFlaws(QMenu& menu, const Scene& scene, const std::function<void(const std::string&)>& say);

}  // namespace workbench
