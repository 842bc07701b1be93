#include "experiment/bird/FormBirdViewPicture.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <utility>

#include "controls/ControlNames.h"

namespace travo {

FormBirdViewPicture::FormBirdViewPicture(Pressed pressed, QWidget* parent)
    : QWidget(parent), pressed_(std::move(pressed)) {
    setCursor(Qt::ArrowCursor);
    Identify(*this, QStringLiteral("picBird"), QStringLiteral("Picture"));
}

void FormBirdViewPicture::Show(const QImage& canvas, const QSize& size) {
    resize(size);
    const double ratio = devicePixelRatioF();
    // Where the scale is no whole number, the last pixel that is partly ours is covered as well.
    const auto pixelsOf = [ratio](int length) { return static_cast<int>(std::ceil(length * ratio)); };
    const QSize pixels(pixelsOf(size.width()), pixelsOf(size.height()));
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
