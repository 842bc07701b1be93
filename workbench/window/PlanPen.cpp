#include "workbench/window/PlanPen.h"

#include <cmath>

#include "workbench/window/BenchType.h"

namespace workbench {

void DrawText(QPainter& painter, const QString& text, const QPointF& at, const QFont& font,
              const QColor& colour, Anchor anchor) {
    double x = at.x();
    if (anchor != Anchor::Start) {
        const double width = WidthOf(font, text);
        x -= anchor == Anchor::End ? width : width / 2.0;
    }
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(QPointF(x, at.y()), text);
}

QPen FlatPen(const QColor& colour, double width) {
    return {colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

double Sharp(double x) { return std::floor(x) + 0.5; }

}  // namespace workbench
