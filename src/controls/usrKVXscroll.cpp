#include "controls/usrKVXscroll.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/ControlAccess.h"
#include "controls/Palette.h"
#include "controls/PlainButton.h"

namespace travo {

namespace {
// In design pixels.
constexpr double ArrowWidth = 36;
constexpr double ThumbWidth = 26;
}  // namespace

usrKVXscroll::usrKVXscroll(QWidget* parent)
    : QAbstractSlider(parent), backColor_(palette::Ground), focusMark_(*this, *this) {
    setOrientation(Qt::Horizontal);
    setRange(-255, 255);
    setPageStep(16);
    // A drag is told by `Scroll`; the value follows when the thumb is let go.
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    InstallControlAccess();
    connect(this, &QAbstractSlider::valueChanged, this, [this] { Q_EMIT Change(); });
    connect(this, &QAbstractSlider::sliderMoved, this, [this] { Q_EMIT Scroll(); });
}

void usrKVXscroll::path(const QString& name) {
    path_ = name;
    update();
}

void usrKVXscroll::inipath(const QString& folder) {
    pictures_.Folder(folder);
    update();
}

void usrKVXscroll::BackColor(const QColor& colour) {
    backColor_ = colour;
    update();
}

void usrKVXscroll::DesignSizeChanged() {
    updateGeometry();
    update();
}

QRectF usrKVXscroll::LeftArrow() const { return {0, 0, ArrowWidth * Scale(), static_cast<double>(height())}; }

QRectF usrKVXscroll::RightArrow() const {
    const double arrow = ArrowWidth * Scale();
    return {width() - arrow, 0, arrow, static_cast<double>(height())};
}

QRectF usrKVXscroll::Thumb() const {
    const double thumb = ThumbWidth * Scale();
    const double way = RightArrow().left() - LeftArrow().right() - thumb;
    const int span = maximum() - minimum();
    const double part = span > 0 ? static_cast<double>(sliderPosition() - minimum()) / span : 0.5;
    return {LeftArrow().right() + std::max(way, 0.0) * part, 0, thumb, static_cast<double>(height())};
}

int usrKVXscroll::ValueAt(double thumbLeft) const {
    const double way = RightArrow().left() - LeftArrow().right() - ThumbWidth * Scale();
    if (way <= 0) {
        return value();
    }
    const double part = std::clamp((thumbLeft - LeftArrow().right()) / way, 0.0, 1.0);
    return minimum() + static_cast<int>(std::lround(part * (maximum() - minimum())));
}

usrKVXscroll::Piece usrKVXscroll::PieceAt(const QPointF& place) const {
    if (!QRectF(rect()).contains(place)) {
        return Piece::None;
    }
    if (LeftArrow().contains(place)) {
        return Piece::Left;
    }
    if (RightArrow().contains(place)) {
        return Piece::Right;
    }
    const QRectF thumb = Thumb();
    if (thumb.contains(place)) {
        return Piece::Thumb;
    }
    return place.x() < thumb.left() ? Piece::BarLeft : Piece::BarRight;
}

void usrKVXscroll::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressedAt_ = event->position();
    held_ = PieceAt(pressedAt_);
    switch (held_) {
        case Piece::Left:
        case Piece::Right:
        case Piece::BarLeft:
        case Piece::BarRight: {
            const SliderAction action = held_ == Piece::Left      ? SliderSingleStepSub
                                        : held_ == Piece::Right   ? SliderSingleStepAdd
                                        : held_ == Piece::BarLeft ? SliderPageStepSub
                                                                  : SliderPageStepAdd;
            triggerAction(action);
            setRepeatAction(action);
            break;
        }
        case Piece::Thumb:
            grip_ = event->position().x() - Thumb().left();
            setSliderDown(true);
            break;
        case Piece::None:
            break;
    }
    update();
}

void usrKVXscroll::mouseMoveEvent(QMouseEvent* event) {
    if (held_ == Piece::Thumb) {
        setSliderPosition(ValueAt(event->position().x() - grip_));
        return;
    }
    const Piece under = PieceAt(event->position());
    if (under != under_) {
        under_ = under;
        update();
    }
}

void usrKVXscroll::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        LetGo();
    }
}

void usrKVXscroll::mouseDoubleClickEvent(QMouseEvent* event) {
    const Piece piece = PieceAt(event->position());
    if (event->button() != Qt::LeftButton || piece == Piece::Left || piece == Piece::Right) {
        mousePressEvent(event);
        return;
    }
    LetGo();
    setValue(Neutral);
}

void usrKVXscroll::LetGo() {
    const bool wasDragged = held_ == Piece::Thumb;
    held_ = Piece::None;
    setRepeatAction(SliderNoAction);
    update();
    if (wasDragged) {
        setSliderDown(false);
    }
}

void usrKVXscroll::sliderChange(SliderChange change) {
    const bool pages = held_ == Piece::BarLeft || held_ == Piece::BarRight;
    if (pages && PieceAt(pressedAt_) != held_) {
        // The thumb has come to where the bar is held.
        setRepeatAction(SliderNoAction);
    }
    QAbstractSlider::sliderChange(change);
}

void usrKVXscroll::leaveEvent(QEvent* event) {
    under_ = Piece::None;
    update();
    QAbstractSlider::leaveEvent(event);
}

void usrKVXscroll::hideEvent(QHideEvent* event) {
    LetGo();
    QAbstractSlider::hideEvent(event);
}

void usrKVXscroll::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        LetGo();
    }
    QAbstractSlider::changeEvent(event);
}

QString usrKVXscroll::PieceState(Piece piece) const {
    if (!isEnabled()) {
        return QStringLiteral("disabled");
    }
    return held_ == piece ? QStringLiteral("down") : QStringLiteral("up");
}

void usrKVXscroll::PaintPiece(QPainter& painter, const QString& piece, const QString& state,
                              const QRectF& place) {
    const QString name = path_ + QLatin1Char('-') + piece + QLatin1Char('-') + state;
    const QPixmap picture =
        pictures_.Picture(name, place.size().toSize(), devicePixelRatioF(), Scale(), SkinFit::Proportion);
    if (picture.isNull()) {
        PaintPlainPicture(painter, place, QString(), Scale());
    } else {
        painter.drawPixmap(QPointF(std::round(place.x()), std::round(place.y())), picture);
    }
}

void usrKVXscroll::PaintTrack(QPainter& painter) {
    painter.fillRect(rect(), backColor_);
    const QString name =
        path_ + (isEnabled() ? QStringLiteral("-track-up") : QStringLiteral("-track-disabled"));
    const QPixmap picture = pictures_.Picture(name, size(), devicePixelRatioF(), Scale(), SkinFit::Stretch);
    if (picture.isNull()) {
        PaintPlainPicture(painter, QRectF(rect()), QString(), Scale());
    } else {
        painter.drawPixmap(QPointF(0, 0), picture);
    }
}

void usrKVXscroll::PaintHoverRing(QPainter& painter) const {
    const double ring = 3 * Scale();
    const QRectF place = under_ == Piece::Left    ? LeftArrow()
                         : under_ == Piece::Right ? RightArrow()
                                                  : Thumb();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::Ring, ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place.adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2), 5 * Scale(),
                            5 * Scale());
}

void usrKVXscroll::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintTrack(painter);
    PaintPiece(painter, QStringLiteral("left"), PieceState(Piece::Left), LeftArrow());
    PaintPiece(painter, QStringLiteral("right"), PieceState(Piece::Right), RightArrow());
    PaintPiece(painter, QStringLiteral("thumb"), PieceState(Piece::Thumb), Thumb());
    const bool isOnPiece = under_ == Piece::Left || under_ == Piece::Right || under_ == Piece::Thumb;
    if (isEnabled() && held_ == Piece::None && isOnPiece) {
        PaintHoverRing(painter);
    }
}

}  // namespace travo
