#include "core/view/modForm.h"
#include "core/ground/LogicalUnits.h"

#include <QCursor>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace travo {

namespace {

// From here down the window's sides are straight and its corners square. Pixels.
constexpr int SquareFrom = 3;

bool MovesRight(ResizeMode mode) {
    return mode == ResizeMode::Right || mode == ResizeMode::BottomRight || mode == ResizeMode::TopRight;
}
bool MovesBottom(ResizeMode mode) {
    return mode == ResizeMode::Bottom || mode == ResizeMode::BottomRight || mode == ResizeMode::BottomLeft;
}
bool MovesLeft(ResizeMode mode) {
    return mode == ResizeMode::Left || mode == ResizeMode::TopLeft || mode == ResizeMode::BottomLeft;
}
bool MovesTop(ResizeMode mode) {
    return mode == ResizeMode::Top || mode == ResizeMode::TopLeft || mode == ResizeMode::TopRight;
}

// How many pixels of a row a corner's arc leaves outside: those whose middle lies beyond it.
int CutOff(int row) {
    constexpr double Radius = CornerEllipse / 2.0;
    const double up = Radius - row - 0.5;
    return std::max(0, static_cast<int>(std::ceil(Radius - 0.5 - std::sqrt(Radius * Radius - up * up))));
}

QRegion RoundedRectangle(const QSize& size) {
    QRegion region(QRect(QPoint(0, 0), size));
    for (int row = 0; row < CornerEllipse / 2; ++row) {
        const int cut = CutOff(row);
        for (const int y : {row, size.height() - 1 - row}) {
            region -= QRect(0, y, cut, 1);
            region -= QRect(size.width() - cut, y, cut, 1);
        }
    }
    return region;
}

int StepBase(int design, double ratio) {
    const auto native = [ratio](int length) { return static_cast<int>(std::lround(length * ratio)); };
    const int step = std::max(native(1), 1);
    int base = 0;
    while (base < design && (native(design) - native(base)) % step != 0) {
        ++base;
    }
    return base;
}

QSizeF InUnits(const QSize& pixels) { return QSizeF(pixels) * LogicalUnitsPerPixel; }

ResizeMode ModeOn(const QWidget& window, double X, double Y) {
    return ResizeModeAt(InUnits(window.size()), QPointF(X, Y) * LogicalUnitsPerPixel);
}

}  // namespace

ResizeMode ResizeModeAt(const QSizeF& window, const QPointF& mouse) {
    const bool right = mouse.x() >= window.width() - ResizeMargin;
    const bool left = mouse.x() < ResizeMargin;
    const bool bottom = mouse.y() >= window.height() - ResizeMargin;
    const bool top = mouse.y() < ResizeMargin;
    // The first that holds: in a window narrower than both margins the right and the bottom win.
    if (right && bottom) {
        return ResizeMode::BottomRight;
    }
    if (left && top) {
        return ResizeMode::TopLeft;
    }
    if (left && bottom) {
        return ResizeMode::BottomLeft;
    }
    if (right && top) {
        return ResizeMode::TopRight;
    }
    if (right) {
        return ResizeMode::Right;
    }
    if (left) {
        return ResizeMode::Left;
    }
    if (bottom) {
        return ResizeMode::Bottom;
    }
    return top ? ResizeMode::Top : ResizeMode::None;
}

Qt::CursorShape PointerOf(ResizeMode mode) {
    switch (mode) {
        case ResizeMode::BottomRight:
        case ResizeMode::TopLeft:
            return Qt::SizeFDiagCursor;
        case ResizeMode::BottomLeft:
        case ResizeMode::TopRight:
            return Qt::SizeBDiagCursor;
        case ResizeMode::Right:
        case ResizeMode::Left:
            return Qt::SizeHorCursor;
        case ResizeMode::Bottom:
        case ResizeMode::Top:
            return Qt::SizeVerCursor;
        case ResizeMode::None:
            break;
    }
    return Qt::ArrowCursor;
}

QSize PartOf(const QSize& design, double partOfWidth, double partOfHeight) {
    // 0.65 has no exact double: a whole result must not be lifted to the next pixel.
    constexpr double Noise = 1e-9;
    return {static_cast<int>(std::ceil(design.width() * partOfWidth - Noise)),
            static_cast<int>(std::ceil(design.height() * partOfHeight - Noise))};
}

QSize StepBase(const QSize& design, double ratio) {
    return {StepBase(design.width(), ratio), StepBase(design.height(), ratio)};
}

QRect Resized(ResizeMode mode, const QRect& window, const QPoint& mouse, const QSize& least) {
    QRect place = window;
    if (MovesLeft(mode)) {
        const int width = std::max(window.width() - mouse.x(), least.width());
        place.setLeft(window.right() + 1 - width);
    }
    if (MovesTop(mode)) {
        const int height = std::max(window.height() - mouse.y(), least.height());
        place.setTop(window.bottom() + 1 - height);
    }
    if (MovesRight(mode)) {
        place.setWidth(std::max(mouse.x(), least.width()));
    }
    if (MovesBottom(mode)) {
        place.setHeight(std::max(mouse.y(), least.height()));
    }
    return place;
}

QRegion WindowShape(const QSize& window) {
    const QRect squareBelow(0, SquareFrom, window.width(), window.height() - SquareFrom);
    return RoundedRectangle(window) | squareBelow;
}

FramePlaces FrameAround(const QSize& window, const QSize& leftCorner, const QSize& rightCorner) {
    const int width = window.width();
    const int height = window.height();
    return {{QRect(QPoint(0, 0), leftCorner), QRect(QPoint(width - rightCorner.width(), 0), rightCorner)},
            {QRect(0, 0, width, 1), QRect(width - 1, 0, 1, height), QRect(0, height - 1, width, 1),
             QRect(0, 0, 1, height)}};
}

void SystemWindowMove::Start(QWidget& window) {
    if (QWindow* const handle = window.windowHandle()) {
        handle->startSystemMove();
    }
}

void ApplyWindowShape(QWidget& window, const WindowFrame& frame) {
    window.setMask(WindowShape(window.size()));
    const FramePlaces places = FrameAround(window.size(), frame.imgConer1->size(), frame.imgConer2->size());
    frame.imgConer1->setGeometry(places.corners[0]);
    frame.imgConer2->setGeometry(places.corners[1]);
    for (std::size_t line = 0; line < places.lines.size(); ++line) {
        frame.lines[line]->setGeometry(places.lines[line]);
    }
    window.update();
}

ResizeMode ResizeHitTest(QWidget& window, double X, double Y, WindowMove& windowMove) {
    const ResizeMode mode = ModeOn(window, X, Y);
    if (mode == ResizeMode::None) {
        if (QWidget* const holder = QWidget::mouseGrabber()) {
            holder->releaseMouse();
        }
        windowMove.Start(window);
    }
    return mode;
}

void ResizePointer(QWidget& window, double X, double Y) {
    const Qt::CursorShape shape = PointerOf(ModeOn(window, X, Y));
    if (window.cursor().shape() != shape) {
        window.setCursor(shape);
    }
}

}  // namespace travo
