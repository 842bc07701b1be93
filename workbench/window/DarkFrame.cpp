#include "workbench/window/DarkFrame.h"

#include <QPainter>

#include "workbench/window/BenchPalette.h"

namespace workbench {

DarkFrame::DarkFrame(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

// The plan repaints many times a second: nothing of it lies under this.
void DarkFrame::resizeEvent(QResizeEvent*) {
    setMask(QRegion(rect()) - QRegion(rect().adjusted(2, 2, -2, -2)));
}

void DarkFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::SlateEdge, 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

}  // namespace workbench
