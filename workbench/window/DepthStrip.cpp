#include "workbench/window/DepthStrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/PlanScale.h"
#include "workbench/window/SceneReader.h"
#include "workbench/world/Microscope.h"

namespace workbench {

namespace {

constexpr int Pause = 40;  // ms between two lines of a drag
constexpr double NotchAngle = 120.0;
constexpr double Top = 40.0;       // pixels from the upper edge, as all that follow
constexpr double BelowEnd = 16.0;  // from the lower edge
constexpr double RulerLeft = 32.0;
constexpr double NumberRight = 29.0;
constexpr double CellsAt = 39.0;
constexpr double CellRadius = 3.6;
constexpr double ColumnsFrom = 46.0;
constexpr double ColumnsMargins = 52.0;
constexpr double FlagHeight = 9.0;
constexpr double FlagHalf = 4.5;
constexpr double FlagReach = 5.5;  // beside and below a flag, for a hand
constexpr double FocusReach = 8.0;
constexpr int Needles = 4;

}  // namespace

DepthStrip::DepthStrip(Ask ask, std::function<void(int)> picked, QWidget* parent)
    : QWidget(parent), ask_(std::move(ask)), picked_(std::move(picked)), pace_(ask_, Pause) {
    setObjectName(QStringLiteral("heights"));
    setAccessibleName(QStringLiteral("Heights"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void DepthStrip::Show(const Scene& scene) {
    const bool same = scene.needles == scene_.needles && scene.picked == scene_.picked &&
                      scene.focus == scene_.focus && scene.cells == scene_.cells;
    scene_ = scene;
    scene_.traffic.clear();
    if (!same) {
        Describe();
        update();
    }
}

void DepthStrip::Describe() {
    if (AnythingMoves(scene_)) {
        return;
    }
    QStringList heights = {QStringLiteral("Focal plane %1").arg(NumberText(scene_.focus.z))};
    for (int number = 1; number <= Needles; ++number) {
        heights += QStringLiteral("needle %1 %2").arg(number).arg(NumberText(scene_.Needle(number).tip.z));
    }
    setAccessibleDescription(heights.join(QStringLiteral(", ")));
}

double DepthStrip::ColumnOf(int needle, double width) {
    return ColumnsFrom + (width - ColumnsMargins) / Needles * (needle - 0.5);
}

void DepthStrip::LieAs(const DepthScale& depth) {
    depth_ = depth;
    update();
}

void DepthStrip::resizeEvent(QResizeEvent*) {
    depth_.top = Top;
    depth_.bottom = std::max(Top + 1.0, height() - BelowEnd);
}

double DepthStrip::FlagAt(double height) const {
    return depth_.Pixel(std::clamp(height, depth_.Lowest(), depth_.Highest()));
}

// The nearest of the flags under a hand, 0 for none.
int DepthStrip::NeedleAt(const QPointF& pixel) const {
    int found = 0;
    double nearest = FlagReach;
    for (int number = 1; number <= Needles; ++number) {
        const SceneNeedle& needle = scene_.Needle(number);
        const double flag = FlagAt(needle.tip.z);
        const double beside = std::abs(pixel.x() - ColumnOf(number, width()));
        const bool onIt = pixel.y() >= flag - FlagHeight - FlagReach && pixel.y() <= flag + FlagReach;
        if (needle.connected && onIt && beside <= nearest) {
            found = number;
            nearest = beside;
        }
    }
    return found;
}

bool DepthStrip::IsOnFocus(const QPointF& pixel) const {
    return pixel.x() >= width() - FlagHeight &&
           std::abs(pixel.y() - depth_.Pixel(scene_.focus.z)) <= FocusReach;
}

void DepthStrip::wheelEvent(QWheelEvent* event) {
    event->accept();
    const double notches = event->angleDelta().y() / NotchAngle;
    if (notches != 0.0) {
        LieAs(depth_.ZoomedAbout(event->position().y(), std::pow(ZoomStep, -notches)));
    }
}

void DepthStrip::mousePressEvent(QMouseEvent* event) {
    if (Holds()) {
        return;
    }
    button_ = event->button();
    pressed_ = event->position().y();
    last_ = pressed_;
    if (button_ == Qt::LeftButton) {
        TakeHold(event->position());
    } else if (button_ == Qt::RightButton) {
        hold_ = Hold::Strip;
    }
}

void DepthStrip::TakeHold(const QPointF& pixel) {
    if (IsOnFocus(pixel)) {
        hold_ = Hold::Focus;
        focusCounts_ = scene_.focus.counts;
        return;
    }
    const int needle = NeedleAt(pixel);
    if (needle > 0 && CountsOf(ask_("world counts " + std::to_string(needle)), counts_)) {
        hold_ = Hold::Needle;
        needle_ = needle;
        if (picked_) {
            picked_(needle);
        }
    }
}

void DepthStrip::mouseMoveEvent(QMouseEvent* event) {
    DragTo(event->position().y());
    last_ = event->position().y();
}

void DepthStrip::DragTo(double pixel) {
    const double up = depth_.HeightAt(pixel) - depth_.HeightAt(pressed_);
    switch (hold_) {
        case Hold::Needle:
            pace_.Say(MoveLine(needle_, DraggedUp(counts_, up)));
            break;
        case Hold::Focus:
            focusGoal_ = focusCounts_ + static_cast<int>(std::lround(up * FocusCountsPerUnit));
            JogFocus();
            break;
        case Hold::Strip:
            LieAs(depth_.PannedBy(pixel - last_));
            break;
        case Hold::Nothing:
            break;
    }
}

// From where the focus will come to rest when the line is said: it may still be under way. A jog of nothing
// would stop it there.
void DepthStrip::JogFocus() {
    pace_.Say([this] {
        TakeAnswer(scene_, "focus state", ask_("focus state"));
        const int way = focusGoal_ - scene_.focus.countsAtRest;
        return way == 0 ? std::string() : "focus jog " + std::to_string(way);
    });
}

void DepthStrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == button_) {
        pace_.Flush();
        hold_ = Hold::Nothing;
        button_ = Qt::NoButton;
    }
}

void DepthStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        DepthScale depth = depth_;
        depth.middle = scene_.focus.z;
        depth.reach = FirstDepthReach;
        LieAs(depth);
    } else {
        mousePressEvent(event);
    }
}

void DepthStrip::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void DepthStrip::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void DepthStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette::Night2);
    painter.fillRect(0, 0, 1, height(), palette::NightHair);
    DrawText(painter, QStringLiteral("Z"), {12.0, 22.0}, TextFont(type::Button, QFont::Bold),
             palette::NightInk);
    PaintTicks(painter);
    PaintCells(painter);
    PaintFocus(painter);
    for (int number = 1; number <= Needles; ++number) {
        PaintNeedle(painter, number);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(FlatPen(palette::NightInk, 2.0));
        painter.drawRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
    }
}

void DepthStrip::PaintTicks(QPainter& painter) const {
    const double step = depth_.TickStep();
    const QFont font = TextFont(type::Least, QFont::Normal);
    for (double tick = std::ceil(depth_.Lowest() / step) * step; tick <= depth_.Highest(); tick += step) {
        const double y = depth_.Pixel(tick);
        painter.setPen(FlatPen(palette::Grid2, 1.0));
        painter.drawLine(QPointF(RulerLeft, Sharp(y)), QPointF(width(), Sharp(y)));
        const QString number = NumberText(tick, 0);
        DrawText(painter, number, {NumberRight, y + 4.0}, Fitted(font, number, NumberRight - 2.0),
                 palette::NightText, Anchor::End);
    }
}

void DepthStrip::PaintCells(QPainter& painter) const {
    painter.setPen(QPen(palette::Cell, 1.4));
    painter.setBrush(palette::CellFill);
    for (const SceneCell& cell : scene_.cells) {
        if (depth_.IsShown(cell.centre.z)) {
            painter.drawEllipse(QPointF(CellsAt, depth_.Pixel(cell.centre.z)), CellRadius, CellRadius);
        }
    }
}

void DepthStrip::PaintFocus(QPainter& painter) const {
    if (!depth_.IsShown(scene_.focus.z)) {
        return;
    }
    const double y = depth_.Pixel(scene_.focus.z);
    const double right = width();
    painter.setPen(FlatPen(palette::View, 2.4));
    painter.drawLine(QPointF(RulerLeft, y), QPointF(right, y));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::View);
    painter.drawPolygon(
        QPolygonF({QPointF(right, y - 6.0), QPointF(right - FlagHeight, y), QPointF(right, y + 6.0)}));
}

void DepthStrip::PaintNeedle(QPainter& painter, int number) const {
    const SceneNeedle& needle = scene_.Needle(number);
    const bool picked = number == scene_.picked;
    const QColor colour = needle.connected ? palette::NeedleColour(number) : palette::NightDim;
    const double x = ColumnOf(number, width());
    const double flag = FlagAt(needle.tip.z);
    QPen line = FlatPen(colour, 1.4);
    if (!needle.connected) {
        line.setDashPattern({3.0 / 1.4, 4.0 / 1.4});
    }
    painter.setPen(line);
    painter.drawLine(QPointF(x, Top - 6.0), QPointF(x, flag));
    if (!(needle.tip == needle.rest)) {
        painter.setPen(QPen(colour, 1.6));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(x, FlagAt(needle.rest.z)), FlagHalf, FlagHalf);
    }
    const bool shown = depth_.IsShown(needle.tip.z);
    painter.setPen(QPen(shown ? palette::Night2 : colour, 1.0));
    painter.setBrush(shown ? colour : palette::Night2);
    painter.drawPolygon(QPolygonF({QPointF(x - FlagHalf, flag - FlagHeight),
                                   QPointF(x + FlagHalf, flag - FlagHeight), QPointF(x, flag)}));
    DrawText(painter, QString::number(number), {x, 24.0}, TextFont(type::Button, QFont::Bold),
             picked ? palette::NightInk : colour, Anchor::Middle);
    if (picked) {
        painter.setPen(FlatPen(palette::NightInk, 1.6));
        painter.drawLine(QPointF(x - 5.0, 28.5), QPointF(x + 5.0, 28.5));
    }
}

}  // namespace workbench
