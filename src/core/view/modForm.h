// What the windows without a system frame have in its place: shape, drawn edges, pointer, drag, resize.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <QSizeF>
#include <Qt>
#include <array>
#include <cstdint>

class QWidget;

namespace travo {

// How far inside an edge, in logical units, a press still takes hold of it.
constexpr double ResizeMargin = 30;
// The least part of its design size, on either axis, that a window can be resized to.
constexpr double LeastPart = 0.65;
// Width and height in pixels of the ellipses that round a window's top corners.
constexpr int CornerEllipse = 4;

// The edges that follow the mouse.
enum class ResizeMode : std::int16_t {
    None = 0,
    Right = 1,
    Bottom = 2,
    Left = 3,
    Top = 4,
    BottomRight = 5,
    TopLeft = 6,
    BottomLeft = 7,
    TopRight = 8
};

// ---- Geometry alone ----

// The edges that a press takes hold of. Window and mouse in logical units, the mouse from the window's top
// left corner; outside of the window the nearest edges count.
ResizeMode ResizeModeAt(const QSizeF& window, const QPointF& mouse);
Qt::CursorShape PointerOf(ResizeMode mode);

// `part` of a design size in whole pixels, never below it.
QSize PartOf(const QSize& design, double partOfWidth, double partOfHeight);

// A base size, in device-independent pixels, from which the design size is a whole number of steps. On a
// screen whose pixels are finer by `ratio` Qt tells the window system a step of one device-independent pixel,
// rounded, and a window manager takes off what is more than whole steps: at 1.5 a pixel of most windows.
QSize StepBase(const QSize& design, double ratio);

// The window's new place for a mouse at `mouse`, counted from the top left corner of `window`. No smaller
// than `least`; the edges that do not follow the mouse stay where they are, at the limit too. Pixels.
QRect Resized(ResizeMode mode, const QRect& window, const QPoint& mouse, const QSize& least);

// Round at the top, square at the bottom. Pixels.
QRegion WindowShape(const QSize& window);

// Places of the drawn frame. Pixels.
struct FramePlaces {
    std::array<QRect, 2> corners;  // left and right
    std::array<QRect, 4> lines;    // top, right, bottom, left
};
FramePlaces FrameAround(const QSize& window, const QSize& leftCorner, const QSize& rightCorner);

// ---- On a window ----

// The drawn frame: children of the window.
struct WindowFrame {
    QWidget* imgConer1;             // left
    QWidget* imgConer2;             // right
    std::array<QWidget*, 4> lines;  // top, right, bottom, left
};

// The window system's own drag of a window.
class WindowMove {
public:
    virtual ~WindowMove() = default;
    // To be called while the left mouse button is down; the window follows the mouse until its release.
    virtual void Start(QWidget& window) = 0;
};

class SystemWindowMove : public WindowMove {
public:
    void Start(QWidget& window) override;
};

// At each resize: gives the window its shape and puts the frame along its edges.
void ApplyWindowShape(QWidget& window, const WindowFrame& frame);

// At a press of the left button at X, Y (pixels, from the window's top left corner): the resize mode.
// Away from every edge it is none, any capture of the mouse is released and the window system's drag of
// the window starts.
ResizeMode ResizeHitTest(QWidget& window, double X, double Y, WindowMove& windowMove);

// At a move of the mouse: sets the pointer that goes with what a press there would resize.
void ResizePointer(QWidget& window, double X, double Y);

}  // namespace travo
