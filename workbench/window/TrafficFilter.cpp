#include "workbench/window/TrafficFilter.h"

#include "workbench/window/BenchSegment.h"
#include "workbench/window/BenchType.h"

namespace workbench {

TrafficFilter::TrafficFilter(const ControlName& name, const QString& text, QWidget* parent)
    : BenchSwitch(name, text, parent) {
    TextPixels(type::Small);
}

void TrafficFilter::ShowSmall(bool small) {
    small_ = small;
    update();
}

void TrafficFilter::PaintButton(QPainter& painter) {
    if (small_) {
        PaintSegment(painter, *this, type::Least);
    } else {
        BenchSwitch::PaintButton(painter);
    }
}

}  // namespace workbench
