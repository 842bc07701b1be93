// Asks the bench how everything stands.
#pragma once

#include <string>

#include "workbench/window/Ask.h"
#include "workbench/window/Scene.h"

namespace workbench {

// Takes one answer into the scene. `question` is the line that was asked, as "world tip 2". An answer that is
// refused, or is not of the form that belongs to the question, changes nothing and gives false.
bool TakeAnswer(Scene& scene, const std::string& question, const std::string& answer);

// One whole reading, about twenty lines. `before` is the reading before, or a fresh Scene: what is not
// answered stays as it was there, its cells are asked for once, traffic goes on from its trafficNext, and
// picked and beganAt are taken over.
Scene ReadScene(const Ask& ask, const Scene& before);

}  // namespace workbench
