// The part of the bird's-eye view's window that shows the canvas.
#pragma once

#include <QImage>
#include <QPointF>
#include <QWidget>
#include <functional>

#include "experiment/bird/BirdScaler.h"

namespace travo {

// Without a border. Names itself picBird.
class FormBirdViewPicture : public QWidget {
public:
    // A press of the left button, from the picture's top left corner in device-independent pixels.
    using Pressed = std::function<void(const QPointF& at)>;

    FormBirdViewPicture(Pressed pressed, QWidget* parent);

    // Takes that size, in device-independent pixels, and shows all of the canvas on the pixels that the
    // screen has there, as BirdScaler does. The canvas need not outlive the call.
    void Show(const QImage& canvas, const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    Pressed pressed_;
    BirdScaler scaler_;
    // In the screen's own pixels, so that painting is one copy.
    QImage shown_;
};

}  // namespace travo
