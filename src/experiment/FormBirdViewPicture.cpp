#include "experiment/FormBirdViewPicture.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "controls/ControlNames.h"

namespace travo {

FormBirdViewPicture::FormBirdViewPicture(Pressed pressed, QWidget* parent)
    : QWidget(parent), pressed_(std::move(pressed)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::ArrowCursor);
    Identify(*this, QStringLiteral("picBird"), QStringLiteral("Picture"));
}

void FormBirdViewPicture::Show(const QImage& canvas, const QSize& size) {
    resize(size);
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size) * ratio).toSize();
    if (shown_.size() != pixels) {
        shown_ = QImage(pixels, QImage::Format_RGB32);
    }
    shown_.setDevicePixelRatio(ratio);
    scaler_.Scale(canvas, shown_);
    update();
}

void FormBirdViewPicture::paintEvent(QPaintEvent*) {
    if (!shown_.isNull()) {
        QPainter(this).drawImage(QPointF(0, 0), shown_);
    }
}

void FormBirdViewPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        pressed_(event->position());
    }
}

}  // namespace travo
