#include "workbench/window/TruthView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "workbench/window/PlanHits.h"
#include "workbench/window/PlanMirror.h"
#include "workbench/window/PlanReadout.h"

namespace workbench {

namespace {

constexpr int NeedlePause = 40;  // ms between two lines of a drag
constexpr int MirrorPause = 60;
constexpr double NotchAngle = 120.0;
constexpr double PanNotch = 60.0;   // pixels
constexpr double ClickReach = 4.0;  // pixels that a hand may shake at a click

std::string MirrorLine(const MirrorCounts& counts) {
    return "mirror move " + std::to_string(counts.x) + " " + std::to_string(counts.y);
}

}  // namespace

TruthView::TruthView(Ask ask, TruthNews news, QWidget* parent)
    : QWidget(parent),
      ask_(std::move(ask)),
      news_(std::move(news)),
      needlePace_(ask_, NeedlePause),
      mirrorPace_(ask_, MirrorPause) {
    setObjectName(QStringLiteral("truth"));
    setAccessibleName(QStringLiteral("True plan"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    plan_.size = size();
}

void TruthView::Show(const Scene& scene) {
    scene_ = scene;
    scene_.traffic.clear();
    FollowOn();
    Describe();
    TellPointer();
    Renew();
}

void TruthView::ShowLesson(const PlanLesson& lesson) {
    lesson_ = lesson;
    Renew();
}

void TruthView::Follow(PlanFollow follow) { LieAs(Followed(follow, scene_, plan_), follow); }

void TruthView::Zoom(double factor) {
    LieAs(plan_.ZoomedAbout({plan_.size.width() / 2.0, plan_.size.height() / 2.0}, factor),
          PlanFollow::Nothing);
}

void TruthView::Look() {
    if (scene_.landing.count > 0) {
        LieAs(LookedAt(scene_.landing, plan_), PlanFollow::Nothing);
    }
}

void TruthView::LieAs(const PlanScale& plan, PlanFollow follow) {
    const bool rescaled = plan.scale != plan_.scale;
    plan_ = plan;
    if (follow != std::exchange(follow_, follow) && news_.follows) {
        news_.follows(follow);
    }
    if (rescaled && news_.scale) {
        news_.scale(plan_.scale);
    }
    TellPointer();
    Renew();
}

// A plan that moves under a hand would move what the hand holds.
void TruthView::FollowOn() {
    if (!Holds() && follow_ != PlanFollow::Nothing) {
        LieAs(Followed(follow_, scene_, plan_), follow_);
    }
}

void TruthView::Renew() {
    TruthPicture picture = PictureOf(scene_, plan_, lesson_, hasFocus());
    if (!(picture == picture_)) {
        picture_ = std::move(picture);
        update();
    }
}

void TruthView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintTruth(painter, picture_);
}

void TruthView::resizeEvent(QResizeEvent* event) {
    plan_.size = event->size();
    FollowOn();
    Renew();
}

void TruthView::Describe() {
    if (AnythingMoves(scene_)) {
        return;
    }
    const QString description = PlanDescription(scene_);
    if (description != accessibleDescription()) {
        setAccessibleDescription(description);
    }
}

void TruthView::TellPointer() {
    QStringList parts;
    if (pointer_.has_value()) {
        parts = ReadoutParts(scene_, plan_, *pointer_, MarksShown(scene_, lesson_.asksForMarks));
    }
    if (parts != parts_) {
        parts_ = parts;
        if (news_.pointer) {
            news_.pointer(parts_);
        }
    }
}

void TruthView::Tell(const QString& text) {
    if (text.isEmpty() && !told_) {
        return;
    }
    told_ = !text.isEmpty();
    if (news_.told) {
        news_.told(text);
    }
}

void TruthView::ShowCursor(const QPointF& pixel) {
    const bool grips = TipAt(scene_, plan_, pixel) > 0 || IsOnViewFrame(scene_, plan_, pixel);
    const Qt::CursorShape shape = grips ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape) {
        setCursor(shape);
    }
}

void TruthView::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPointF notches = QPointF(event->angleDelta()) / NotchAngle;
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        LieAs(plan_.PannedBy(notches * PanNotch), PlanFollow::Nothing);
    } else if (notches.y() != 0.0) {
        LieAs(plan_.ZoomedAbout(event->position(), std::pow(ZoomStep, notches.y())), PlanFollow::Nothing);
    }
}

void TruthView::mousePressEvent(QMouseEvent* event) {
    if (Holds()) {
        return;
    }
    button_ = event->button();
    pressed_ = event->position();
    last_ = pressed_;
    place_ = plan_.PlaceAt(pressed_);
    if (button_ == Qt::LeftButton) {
        TakeHold(pressed_);
    } else if (button_ == Qt::RightButton || button_ == Qt::MiddleButton) {
        hold_ = Hold::Plan;
    }
}

void TruthView::TakeHold(const QPointF& pixel) {
    const int tip = TipAt(scene_, plan_, pixel);
    if (tip > 0 && CountsOf(ask_("world counts " + std::to_string(tip)), counts_)) {
        hold_ = Hold::Tip;
        needle_ = tip;
        along_ = DirectionOf(scene_.Needle(tip), tip);
        if (news_.picked) {
            news_.picked(tip);
        }
    } else if (tip == 0 && IsOnViewFrame(scene_, plan_, pixel)) {
        hold_ = Hold::View;
        view_ = scene_.view;
    }
}

void TruthView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF pixel = event->position();
    if (Holds()) {
        DragTo(pixel);
    } else {
        ShowCursor(pixel);
    }
    last_ = pixel;
    pointer_ = pixel;
    if (PlanDistance(pixel, pressed_) > ClickReach) {
        Tell({});
    }
    TellPointer();
}

void TruthView::DragTo(const QPointF& pixel) {
    const QPointF place = plan_.PlaceAt(pixel);
    switch (hold_) {
        case Hold::Tip:
            if (PlanDistance(pixel, pressed_) > 0.0) {
                needlePace_.Say(MoveLine(needle_, DraggedAlong(counts_, along_, place_, place)));
            }
            break;
        case Hold::View:
            mirrorPace_.Say(MirrorLine(MirrorCountsDragged(view_ + place - place_, scene_, plan_)));
            break;
        case Hold::Plan:
            LieAs(plan_.PannedBy(pixel - last_), PlanFollow::Nothing);
            break;
        case Hold::Nothing:
            break;
    }
}

void TruthView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != button_) {
        return;
    }
    LetGo();
    if (event->button() == Qt::LeftButton && PlanDistance(event->position(), pressed_) <= ClickReach) {
        Tell(ToldText(scene_, plan_, event->position()));
    }
}

void TruthView::LetGo() {
    needlePace_.Flush();
    mirrorPace_.Flush();
    hold_ = Hold::Nothing;
    button_ = Qt::NoButton;
}

void TruthView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        pressed_ = event->position();
        Send(event->position());
    } else {
        mousePressEvent(event);
    }
}

// The picked needle, coarse, at the height that its tip has.
void TruthView::Send(const QPointF& pixel) {
    const QPointF place = plan_.PlaceAt(pixel);
    const std::string aim = AimLine(scene_.picked, {place.x(), place.y(), scene_.PickedNeedle().tip.z});
    NeedleCounts counts;
    if (CountsOf(ask_(aim), counts)) {
        ask_(MoveLine(scene_.picked, Coarse(counts)));
    }
}

void TruthView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal) {
        Zoom(ZoomStep);
    } else if (event->key() == Qt::Key_Minus) {
        Zoom(1.0 / ZoomStep);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TruthView::leaveEvent(QEvent* event) {
    if (!Holds()) {
        pointer_.reset();
        Tell({});
        TellPointer();
    }
    QWidget::leaveEvent(event);
}

void TruthView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    Renew();
}

void TruthView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    Renew();
}

}  // namespace workbench
