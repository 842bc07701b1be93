#include "workbench/window/BenchTab.h"

#include <QPainter>
#include <QPainterPath>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double Radius = 6;
constexpr double Baseline = 23;
}  // namespace

BenchTab::BenchTab(const ControlName& name, const QString& text, QWidget* parent)
    : BenchButton(name, text, parent) {
    setCheckable(true);
}

void BenchTab::ShowLatched(bool latched) {
    if (isChecked() != latched) {
        setChecked(latched);
    }
}

void BenchTab::AddToState(QAccessible::State& state) const {
    BenchButton::AddToState(state);
    state.selectable = true;
    state.selected = isChecked();
}

void BenchTab::PaintButton(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place = QRectF(rect()).adjusted(0.5, 0.5, -0.5, Radius + 1);
    QPainterPath shape;
    shape.addRoundedRect(place, Radius, Radius);
    painter.setPen(QPen(palette::Hair, 1));
    painter.setBrush(isChecked() ? palette::Well : palette::TabIdle);
    painter.drawPath(shape);
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Sim);
        painter.drawRoundedRect(QRectF(10, 3.5, width() - 20, 3), 1.5, 1.5);
    }
    Write(painter, {text(),
                    {width() / 2.0, Baseline},
                    TextFont(type::Caption, isChecked() ? QFont::Bold : QFont::DemiBold),
                    !isEnabled()  ? palette::Off
                    : isChecked() ? palette::Ink
                                  : palette::Ink2,
                    Anchor::Middle,
                    width() - 16.0});
}

}  // namespace workbench
