// The mirror and the objective.
#pragma once

#include <array>

#include "workbench/window/BenchPlate.h"
#include "workbench/window/BenchSwitch.h"
#include "workbench/window/Hand.h"
#include "workbench/window/MirrorPad.h"
#include "workbench/window/NumberRead.h"
#include "workbench/window/Scene.h"

namespace workbench {

class MirrorPlate : public BenchPlate {
public:
    MirrorPlate(Hand hand, QWidget* parent);

    void Show(const Scene& scene);

private:
    void AddMirror();
    void AddObjectives();
    void PressPad(int area);

    Hand hand_;
    MirrorPad* pad_ = nullptr;
    NumberRead* x_ = nullptr;
    NumberRead* y_ = nullptr;
    LampRead* limitX_ = nullptr;
    LampRead* limitY_ = nullptr;
    BenchSwitch* motors_ = nullptr;
    // By the index of the magnification: 0 stands between two objectives.
    std::array<BenchSwitch*, 4> objectives_{};
};

}  // namespace workbench
