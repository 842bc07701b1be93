#include "controls/ScaledLayout.h"

#include <QWidget>
#include <algorithm>
#include <cmath>

#include "controls/DesignSized.h"

namespace travo {

namespace {
int Whole(double value) { return static_cast<int>(std::lround(value)); }
}  // namespace

void ScaledLayout::Add(QWidget& control, const QRectF& rectangle) {
    places_.push_back({&control, rectangle});
    if (auto* const sized = dynamic_cast<DesignSized*>(&control)) {
        sized->DesignSize(rectangle.size());
    }
}

void ScaledLayout::Apply(const QSizeF& present) const {
    for (const Place& place : places_) {
        if (auto* const sized = dynamic_cast<DesignSized*>(place.control)) {
            sized->PlacedSize(Placed(place.rectangle, present).size());
        }
        place.control->setGeometry(PlacedOnPixels(place.rectangle, present));
    }
}

double ScaledLayout::Scale(const QSizeF& present) const {
    return std::min(present.width() / design_.width(), present.height() / design_.height());
}

QRectF ScaledLayout::Placed(const QRectF& rectangle, const QSizeF& present) const {
    const double across = present.width() / design_.width();
    const double down = present.height() / design_.height();
    return {rectangle.x() * across, rectangle.y() * down, rectangle.width() * across,
            rectangle.height() * down};
}

QRect ScaledLayout::PlacedOnPixels(const QRectF& rectangle, const QSizeF& present) const {
    const QRectF placed = Placed(rectangle, present);
    const int left = Whole(placed.left());
    const int top = Whole(placed.top());
    return {left, top, Whole(placed.right()) - left, Whole(placed.bottom()) - top};
}

}  // namespace travo
