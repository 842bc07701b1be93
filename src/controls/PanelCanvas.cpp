#include "controls/PanelCanvas.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "controls/ControlAccess.h"

namespace travo {

namespace {
constexpr double PlateRadius = 6;
constexpr double SlotRadius = 5;
constexpr double SlotLine = 1.4;
}  // namespace

PanelCanvas::PanelCanvas(const QSizeF& design, const QString& programFolder, QWidget* parent)
    : QWidget(parent), layout_(design) {
    pictures_.Folder(programFolder);
    // Before anything asks for this panel's face, which Qt keeps from then on.
    InstallControlAccess();
}

void PanelCanvas::Ground(const QColor& colour) {
    ground_ = colour;
    update();
}

int PanelCanvas::Paint(const PanelItem& item) {
    painted_.push_back({item});
    update();
    return static_cast<int>(painted_.size()) - 1;
}

void PanelCanvas::Visible(int item, bool visible) {
    painted_.at(static_cast<std::size_t>(item)).isVisible = visible;
    update();
}

void PanelCanvas::Replace(int item, const PanelItem& content) {
    painted_.at(static_cast<std::size_t>(item)).item = content;
    update();
}

std::vector<PanelItem> PanelCanvas::Items() const {
    std::vector<PanelItem> items;
    for (const Painted& painted : painted_) {
        items.push_back(painted.item);
    }
    return items;
}

void PanelCanvas::Add(QWidget& control, const QRectF& rectangle) {
    layout_.Add(control, rectangle);
    control.setGeometry(layout_.PlacedOnPixels(rectangle, QSizeF(size())));
}

void PanelCanvas::resizeEvent(QResizeEvent*) { layout_.Apply(QSizeF(size())); }

void PanelCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Painted& painted : painted_) {
        if (painted.isVisible) {
            std::visit([this, &painter](const auto& item) { Draw(painter, item); }, painted.item);
        }
    }
}

void PanelCanvas::Draw(QPainter& painter, const Plate& plate) {
    const QRectF place(layout_.PlacedOnPixels(plate.place, QSizeF(size())));
    painter.setPen(QPen(palette::Hair, 1));
    painter.setBrush(palette::Well);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), PlateRadius * Scale(),
                            PlateRadius * Scale());
}

void PanelCanvas::Draw(QPainter& painter, const PaintedText& text) {
    const QPointF anchor = layout_.Placed(QRectF(text.x, text.middleY, 0, 0), QSizeF(size())).topLeft();
    const QFont font = TextFont(text.pixels * Scale(), text.weight);
    const QFontMetricsF measures(font);
    const double width = measures.horizontalAdvance(text.text);
    double x = anchor.x();
    if (text.alignment == Qt::AlignHCenter || text.alignment == Qt::AlignCenter) {
        x -= width / 2;
    } else if (text.alignment == Qt::AlignRight) {
        x -= width;
    }
    painter.setFont(font);
    painter.setPen(text.colour);
    painter.drawText(QPointF(x, std::round(anchor.y() + measures.capHeight() / 2)), text.text);
}

void PanelCanvas::Draw(QPainter& painter, const Rule& rule) {
    const QRectF place = layout_.Placed(QRectF(rule.left, rule.y, rule.right - rule.left, 0), QSizeF(size()));
    const double y = std::floor(place.y()) + 0.5;
    painter.setPen(QPen(palette::Hair, 1));
    painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
}

void PanelCanvas::Draw(QPainter& painter, const DashedSlot& slot) {
    const QRectF place(layout_.PlacedOnPixels(slot.place, QSizeF(size())));
    QPen pen(palette::Dashes, SlotLine * Scale());
    // Lengths of dash and gap in widths of the pen.
    pen.setDashPattern({5 / SlotLine, 4 / SlotLine});
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place, SlotRadius * Scale(), SlotRadius * Scale());
}

void PanelCanvas::Draw(QPainter& painter, const PaintedIcon& icon) {
    const QPointF middle = layout_.Placed(QRectF(icon.middleX, icon.middleY, 0, 0), QSizeF(size())).topLeft();
    const int side = static_cast<int>(std::lround(icon.side * Scale()));
    const QPixmap picture = pictures_.Picture(icon.name, QSize(side, side), devicePixelRatioF(), Scale());
    if (!picture.isNull()) {
        painter.drawPixmap(QPointF(std::round(middle.x() - side / 2.0), std::round(middle.y() - side / 2.0)),
                           picture);
    }
}

}  // namespace travo
