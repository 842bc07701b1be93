// A two-state button that shows or hides the lines of one wire; in a small window it has no slot.
#pragma once

#include "workbench/window/BenchSwitch.h"

namespace workbench {

class TrafficFilter : public BenchSwitch {
public:
    TrafficFilter(const ControlName& name, const QString& text, QWidget* parent);

    void ShowSmall(bool small);

protected:
    void PaintButton(QPainter& painter) override;

private:
    bool small_ = false;
};

}  // namespace workbench
