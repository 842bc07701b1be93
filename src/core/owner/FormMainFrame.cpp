#include "core/owner/FormMainFrame.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <array>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {

constexpr double CardRadius = 6;
constexpr double TrailLine = 2;
constexpr double LargeDot = 8.5;
constexpr double LargeDotMiddle = 3.6;
constexpr double Dot = 6;
constexpr double DotEdge = 1.6;
// Baseline of the step names below the trail's line.
constexpr int NameDrop = 24;

constexpr std::array<const char*, 5> StepNames{"Connection", "Calibration", "Escape", "Cell position",
                                               "Experiment"};

// In tab mode the card is open at the top, where the selected tab runs into it.
void PaintCard(QPainter& painter, const FormMainLayout& layout) {
    const QRectF card = QRectF(layout.Panel()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::Ground);
    const QPen edge(palette::Edge, 1);
    if (layout.Selected() == FormMainLayout::Mode::Steps) {
        painter.setPen(edge);
        painter.drawRoundedRect(card, CardRadius, CardRadius);
        return;
    }
    const double top = layout.Panel().top();
    QPainterPath outline(QPointF(card.left(), top));
    outline.lineTo(card.left(), card.bottom() - CardRadius);
    outline.quadTo(card.bottomLeft(), card.bottomLeft() + QPointF(CardRadius, 0));
    outline.lineTo(card.right() - CardRadius, card.bottom());
    outline.quadTo(card.bottomRight(), card.bottomRight() - QPointF(0, CardRadius));
    outline.lineTo(card.right(), top);
    painter.drawPath(outline);
    painter.strokePath(outline, edge);
}

void PaintDot(QPainter& painter, const QPointF& middle, int step, int shownStep) {
    if (step == shownStep) {
        painter.setPen(QPen(palette::SlateEdge, 1));
        painter.setBrush(palette::Slate);
        painter.drawEllipse(middle, LargeDot, LargeDot);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Coral);
        painter.drawEllipse(middle, LargeDotMiddle, LargeDotMiddle);
        return;
    }
    painter.setPen(QPen(palette::Edge, DotEdge));
    painter.setBrush(step < shownStep ? palette::Slate : palette::Ground);
    painter.drawEllipse(middle, Dot, Dot);
}

void PaintTrail(QPainter& painter, const FormMainLayout& layout, int shownStep) {
    const int y = layout.TrailY();
    painter.setPen(QPen(palette::FrameEdge, TrailLine, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(layout.TrailX(0), y, layout.TrailX(static_cast<int>(StepNames.size()) - 1), y);
    for (int step = 0; step < static_cast<int>(StepNames.size()); ++step) {
        const int x = layout.TrailX(step);
        PaintDot(painter, QPointF(x, y), step, shownStep);
        const bool shown = step == shownStep;
        const QFont font = TextFont(type::Caption, shown ? QFont::Bold : QFont::Normal);
        const QString name = QLatin1String(StepNames.at(static_cast<std::size_t>(step)));
        painter.setFont(font);
        painter.setPen(shown ? palette::Ink : palette::Ink2);
        painter.drawText(QPointF(x - QFontMetricsF(font).horizontalAdvance(name) / 2, y + NameDrop), name);
    }
}

}  // namespace

void PaintMainFrame(QPainter& painter, const QSize& inner, const FormMainLayout& layout,
                    std::int16_t shownStep) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), inner), palette::Frame);
    PaintCard(painter, layout);
    if (layout.Selected() == FormMainLayout::Mode::Steps) {
        PaintTrail(painter, layout, shownStep);
    }
    painter.setPen(QPen(palette::FrameEdge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0.5, 0.5, inner.width() - 1.0, inner.height() - 1.0));
}

}  // namespace travo
