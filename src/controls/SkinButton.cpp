#include "controls/SkinButton.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "controls/ControlAccess.h"
#include "controls/Palette.h"
#include "controls/PlainButton.h"

namespace travo {

SkinButton::SkinButton(QWidget* parent) : QAbstractButton(parent), focusMark_(*this, *this) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    InstallControlAccess();
}

void SkinButton::path(const QString& name) {
    path_ = name;
    update();
}

void SkinButton::inipath(const QString& folder) {
    pictures_.Folder(folder);
    update();
}

void SkinButton::Press() {
    if (!TakesPress(*this)) {
        return;
    }
    setFocus(Qt::MouseFocusReason);
    click();
}

QSize SkinButton::sizeHint() const { return DesignSize().toSize(); }

void SkinButton::DesignSizeChanged() {
    updateGeometry();
    update();
}

bool SkinButton::event(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        // A button that is switched off while it is held down must not go off when it is let go.
        setDown(false);
    }
    if (event->type() == QEvent::Hide) {
        // A tab that goes under the pointer must not come back with its ring.
        setAttribute(Qt::WA_UnderMouse, false);
    }
    return QAbstractButton::event(event);
}

void SkinButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap picture =
        pictures_.Picture(PictureName(), size(), devicePixelRatioF(), ScaleAt(QSizeF(size())));
    if (picture.isNull()) {
        PaintPlainButton(painter, *this, NameWithoutName(), ScaleAt(QSizeF(size())));
    } else {
        painter.drawPixmap(QPointF(0, 0), picture);
    }
    if (ShowsHover()) {
        PaintHoverRing(painter);
    }
}

bool SkinButton::ShowsHover() const { return isEnabled() && underMouse() && !isDown(); }

void SkinButton::PaintHoverRing(QPainter& painter) const {
    const double scale = ScaleAt(QSizeF(size()));
    // The smallest buttons keep most of their face.
    const double ring = std::min(3 * scale, std::min(width(), height()) / 8.0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::Ring, ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2), 5 * scale,
                            5 * scale);
}

}  // namespace travo
