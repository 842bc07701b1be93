#include "workbench/window/TrafficRow.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/TrafficModel.h"

namespace workbench {

namespace {

// From the left of the list.
constexpr double TimeX = 7;
constexpr double WireX = 105;
constexpr double ArrowX = 157;
constexpr double BytesX = 179;
constexpr double MeaningX = 373;
constexpr double MeaningSmallX = 269;
constexpr double Gap = 12;        // between bytes that are long and their meaning
constexpr double LeastRoom = 30;  // for a meaning; below it stands in the tooltip alone
constexpr double Baseline = 14.5;
constexpr double RightMargin = 6;

// Right: to the instrument. Left: from it. A disc: an event.
void PaintWay(QPainter& painter, const QPointF& left, Way way, const QColor& ink) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (way == Way::Event) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(left + QPointF(6, 0), 2.6, 2.6);
        return;
    }
    const bool isTo = way == Way::ToInstrument;
    painter.setPen(QPen(isTo ? ink : palette::SimDeep, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawLine(left, left + QPointF(12, 0));
    const double tip = isTo ? 12 : 0;
    const double back = isTo ? 8 : 4;
    painter.drawPolyline(
        QPolygonF({left + QPointF(back, -4), left + QPointF(tip, 0), left + QPointF(back, 4)}));
}

QString Cut(const QFont& font, const QString& text, double room) {
    return QFontMetricsF(font).elidedText(text, Qt::ElideRight, room);
}

}  // namespace

TrafficRow::TrafficRow(const TrafficModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

QSize TrafficRow::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.rect.width(), Height};
}

void TrafficRow::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    static const QFont time = MonoFont(type::Fine);
    static const QFont wire = TextFont(type::Small, QFont::DemiBold);
    static const QFont bytes = MonoFont(type::Small);
    static const QFont words = TextFont(type::Small, QFont::Normal);
    const TrafficLine& line = model_.LineAt(index.row());
    const bool isPicked = option.state.testFlag(QStyle::State_Selected);
    if (isPicked || line.bad) {
        painter->fillRect(option.rect, isPicked ? palette::SimWash : palette::Blush);
    }
    const QColor ink = line.bad ? palette::CoralDeepText : palette::Ink;
    const QPointF at = option.rect.topLeft();
    const double baseline = at.y() + Baseline;
    const double right = option.rect.right() - RightMargin;
    Write(*painter, {model_.TimeText(line), {at.x() + TimeX, baseline}, time, palette::Ink2});
    Write(*painter, {TrafficModel::WireText(line.wire),
                     {at.x() + WireX, baseline},
                     wire,
                     ink,
                     Anchor::Start,
                     ArrowX - WireX - 4});
    PaintWay(*painter, {at.x() + ArrowX, baseline - 4.5}, line.way, ink);
    const QString shown = Cut(bytes, line.bytes, right - at.x() - BytesX);
    Write(*painter, {shown, {at.x() + BytesX, baseline}, bytes, ink});
    const double from =
        std::max(at.x() + (small_ ? MeaningSmallX : MeaningX), at.x() + BytesX + WidthOf(bytes, shown) + Gap);
    if (right - from >= LeastRoom) {
        Write(*painter, {Cut(words, line.meaning, right - from),
                         {from, baseline},
                         words,
                         line.bad ? ink : palette::Ink2});
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(palette::SimDeep);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

}  // namespace workbench
