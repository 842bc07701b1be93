// What goes over the wires, in bytes and in words.
#pragma once

#include <array>

#include "workbench/window/BenchPlate.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/BenchSwitch.h"
#include "workbench/window/Scene.h"
#include "workbench/window/TrafficFilter.h"
#include "workbench/window/TrafficList.h"
#include "workbench/window/TrafficModel.h"

namespace workbench {

class TrafficPlate : public BenchPlate {
public:
    explicit TrafficPlate(QWidget* parent);

    // Takes what is new.
    void Show(const Scene& scene);
    void ShowSmall(bool small);

protected:
    void PaintMore(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Place();
    void TogglePause();
    void ToggleFilter(TrafficWire wire);
    QRect ListPlace() const;

    TrafficModel model_;
    bool small_ = false;
    std::array<TrafficFilter*, TrafficWireCount> filters_{};
    BenchSwitch* pause_ = nullptr;
    BenchPush* copy_ = nullptr;
    BenchPush* clear_ = nullptr;
    TrafficList* list_ = nullptr;
};

}  // namespace workbench
