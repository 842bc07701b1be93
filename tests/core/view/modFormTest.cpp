#include "core/view/modForm.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <ostream>
#include <vector>

inline void PrintTo(const QRect& rectangle, std::ostream* stream) {
    *stream << rectangle.x() << "," << rectangle.y() << " " << rectangle.width() << "x" << rectangle.height();
}

namespace travo::test {
namespace {

using enum ResizeMode;

// The window of the tables: 340 by 300 pixels.
const QSizeF Units(5100, 4500);

TEST(modFormTest, TheFirstRuleThatHoldsGivesTheMode) {
    struct Case {
        QPointF mouse;
        ResizeMode mode;
    };
    const Case cases[] = {{{5070, 4470}, BottomRight},
                          {{5099, 4499}, BottomRight},
                          {{0, 0}, TopLeft},
                          {{29.9, 29.9}, TopLeft},
                          {{29.9, 4470}, BottomLeft},
                          {{0, 4499}, BottomLeft},
                          {{5070, 29.9}, TopRight},
                          {{5099, 0}, TopRight},
                          {{5070, 30}, Right},
                          {{5070, 4469.9}, Right},
                          {{29.9, 30}, Left},
                          {{29.9, 4469.9}, Left},
                          {{30, 4470}, Bottom},
                          {{5069.9, 4470}, Bottom},
                          {{30, 29.9}, Top},
                          {{5069.9, 29.9}, Top},
                          {{30, 30}, None},
                          {{5069.9, 4469.9}, None},
                          {{2550, 2250}, None}};
    for (const Case& one : cases) {
        EXPECT_EQ(ResizeModeAt(Units, one.mouse), one.mode) << one.mouse.x() << ", " << one.mouse.y();
    }
}

TEST(modFormTest, OutsideOfTheWindowTheNearestEdgesCount) {
    EXPECT_EQ(ResizeModeAt(Units, {-300, -300}), TopLeft);
    EXPECT_EQ(ResizeModeAt(Units, {9000, 2000}), Right);
    EXPECT_EQ(ResizeModeAt(Units, {2000, -1}), Top);
}

TEST(modFormTest, InAWindowOfTwoMarginsAndLessRightAndBottomWin) {
    EXPECT_EQ(ResizeModeAt({45, 45}, {20, 20}), BottomRight);
    EXPECT_EQ(ResizeModeAt({45, 4500}, {20, 2000}), Right);
    EXPECT_EQ(ResizeModeAt({5100, 45}, {2000, 20}), Bottom);
}

TEST(modFormTest, ModesHaveTheirNumbers) {
    const ResizeMode inOrder[] = {None, Right, Bottom, Left, Top, BottomRight, TopLeft, BottomLeft, TopRight};
    for (std::int16_t number = 0; number <= 8; ++number) {
        EXPECT_EQ(static_cast<std::int16_t>(inOrder[number]), number);
    }
}

TEST(modFormTest, EveryModeHasItsPointer) {
    EXPECT_EQ(PointerOf(BottomRight), Qt::SizeFDiagCursor);
    EXPECT_EQ(PointerOf(TopLeft), Qt::SizeFDiagCursor);
    EXPECT_EQ(PointerOf(BottomLeft), Qt::SizeBDiagCursor);
    EXPECT_EQ(PointerOf(TopRight), Qt::SizeBDiagCursor);
    EXPECT_EQ(PointerOf(Right), Qt::SizeHorCursor);
    EXPECT_EQ(PointerOf(Left), Qt::SizeHorCursor);
    EXPECT_EQ(PointerOf(Bottom), Qt::SizeVerCursor);
    EXPECT_EQ(PointerOf(Top), Qt::SizeVerCursor);
    EXPECT_EQ(PointerOf(None), Qt::ArrowCursor);
}

// 340 by 300 at 500, 400; 0.65 of it is 221 by 195.
const QRect Window(500, 400, 340, 300);
const QSize Least(221, 195);

struct Drag {
    ResizeMode mode;
    QPoint mouse;
    QRect place;
};

void Expect(const std::vector<Drag>& drags) {
    for (const Drag& drag : drags) {
        EXPECT_EQ(Resized(drag.mode, Window, drag.mouse, Least), drag.place)
            << "mode " << static_cast<int>(drag.mode) << ", mouse " << drag.mouse.x() << ", "
            << drag.mouse.y();
    }
}

TEST(modFormTest, TheEdgesOfTheModeFollowTheMouse) {
    Expect({{None, {10, 10}, {500, 400, 340, 300}},
            {Right, {400, 999}, {500, 400, 400, 300}},
            {Bottom, {999, 350}, {500, 400, 340, 350}},
            {Left, {-60, 999}, {440, 400, 400, 300}},
            {Top, {999, -50}, {500, 350, 340, 350}},
            {BottomRight, {400, 350}, {500, 400, 400, 350}},
            {TopLeft, {-60, -50}, {440, 350, 400, 350}},
            {BottomLeft, {-60, 350}, {440, 400, 400, 350}},
            {TopRight, {400, -50}, {500, 350, 400, 350}}});
}

TEST(modFormTest, AtTheLimitTheEdgesStillFollow) {
    Expect({{Right, {221, 0}, {500, 400, 221, 300}},
            {Bottom, {0, 195}, {500, 400, 340, 195}},
            {Left, {119, 0}, {619, 400, 221, 300}},
            {Top, {0, 105}, {500, 505, 340, 195}},
            {BottomRight, {221, 195}, {500, 400, 221, 195}},
            {TopLeft, {119, 105}, {619, 505, 221, 195}},
            {BottomLeft, {119, 195}, {619, 400, 221, 195}},
            {TopRight, {221, 105}, {500, 505, 221, 195}}});
}

TEST(modFormTest, AWindowCannotBeMadeSmallerThanItsLimitOnEitherAxis) {
    Expect({{Right, {220, 0}, {500, 400, 221, 300}},
            {Bottom, {0, 194}, {500, 400, 340, 195}},
            {Left, {120, 0}, {619, 400, 221, 300}},
            {Top, {0, 106}, {500, 505, 340, 195}},
            {BottomRight, {-900, -900}, {500, 400, 221, 195}},
            {TopLeft, {900, 900}, {619, 505, 221, 195}},
            {BottomLeft, {900, -900}, {619, 400, 221, 195}},
            {TopRight, {-900, 900}, {500, 505, 221, 195}}});
}

TEST(modFormTest, AnAxisAtItsLimitDoesNotHoldTheOtherOne) {
    Expect({{BottomRight, {100, 500}, {500, 400, 221, 500}}, {TopLeft, {300, -100}, {619, 300, 221, 400}}});
}

TEST(modFormTest, MovingTheTopEdgeDownPastTheLimitLeavesTheBottomEdgeWhereItWas) {
    for (const ResizeMode mode : {Top, TopLeft, TopRight}) {
        for (int y = 0; y < 1000; y += 7) {
            EXPECT_EQ(Resized(mode, Window, {10, y}, Least).bottom(), Window.bottom()) << y;
        }
    }
    for (const ResizeMode mode : {Left, TopLeft, BottomLeft}) {
        for (int x = 0; x < 1000; x += 7) {
            EXPECT_EQ(Resized(mode, Window, {x, 10}, Least).right(), Window.right()) << x;
        }
    }
}

TEST(modFormTest, TheLeastSizeIsWholePixelsAndNotBelowItsPart) {
    EXPECT_EQ(PartOf({340, 300}, 0.65, 0.65), QSize(221, 195));
    EXPECT_EQ(PartOf({276, 222}, 0.65, 0.65), QSize(180, 145));  // 179.4, 144.3
    EXPECT_EQ(PartOf({276, 192}, 0.65, 0.65), QSize(180, 125));  // 124.8
    EXPECT_EQ(PartOf({410, 483}, 0.9, 0.65), QSize(369, 314));   // 313.95
}

TEST(modFormTest, FromItsBaseEveryDesignSizeIsWholeStepsOnEveryScreen) {
    for (const QSize& design : {QSize(410, 483), QSize(276, 222), QSize(276, 192), QSize(340, 300)}) {
        for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 2.5, 3.0, 3.5}) {
            const QSize base = StepBase(design, ratio);
            const int step = qRound(ratio);
            const auto steps = [&](int whole, int part) {
                return qRound(whole * ratio) - qRound(part * ratio);
            };
            EXPECT_EQ(steps(design.width(), base.width()) % step, 0) << ratio;
            EXPECT_EQ(steps(design.height(), base.height()) % step, 0) << ratio;
            // Small enough to be below any size that the window takes.
            EXPECT_LT(base.width(), 20) << ratio;
            EXPECT_LT(base.height(), 20) << ratio;
        }
        EXPECT_EQ(StepBase(design, 1.0), QSize(0, 0));
    }
}

TEST(modFormTest, TheShapeIsRoundAtTheTopAndSquareAtTheBottom) {
    const QRegion shape = WindowShape({340, 300});
    EXPECT_FALSE(shape.contains(QPoint(0, 0)));
    EXPECT_FALSE(shape.contains(QPoint(339, 0)));
    EXPECT_TRUE(shape.contains(QPoint(1, 0)));
    EXPECT_TRUE(shape.contains(QPoint(338, 0)));
    EXPECT_TRUE(shape.contains(QPoint(0, 1)));
    EXPECT_TRUE(shape.contains(QPoint(339, 1)));
    EXPECT_TRUE(shape.contains(QPoint(0, 299)));
    EXPECT_TRUE(shape.contains(QPoint(339, 299)));
    EXPECT_EQ(shape.boundingRect(), QRect(0, 0, 340, 300));
    int pixels = 0;
    for (const QRect& part : shape) {
        pixels += part.width() * part.height();
    }
    EXPECT_EQ(pixels, 340 * 300 - 2);
}

class RecordedMove : public WindowMove {
public:
    void Start(QWidget& window) override {
        moved.push_back(&window);
        holder = QWidget::mouseGrabber();
    }
    std::vector<QWidget*> moved;
    QWidget* holder = nullptr;
};

TEST(modFormTest, ApplyWindowShapeShapesTheWindowAndPutsTheFrameAlongItsEdges) {
    QWidget window;
    QWidget first(&window);
    QWidget second(&window);
    std::array<QWidget, 4> lines;
    for (QWidget& line : lines) {
        line.setParent(&window);
    }
    first.resize(4, 4);
    second.resize(6, 5);
    for (const QSize& size : {QSize(340, 300), QSize(221, 195), QSize(700, 640)}) {
        window.resize(size);
        ApplyWindowShape(window, {&first, &second, {&lines[0], &lines[1], &lines[2], &lines[3]}});
        EXPECT_EQ(window.mask(), WindowShape(size));
        EXPECT_EQ(first.geometry(), QRect(0, 0, 4, 4));
        // Its own width from the right edge.
        EXPECT_EQ(second.geometry(), QRect(size.width() - 6, 0, 6, 5));
        EXPECT_EQ(lines[0].geometry(), QRect(0, 0, size.width(), 1));
        EXPECT_EQ(lines[1].geometry(), QRect(size.width() - 1, 0, 1, size.height()));
        EXPECT_EQ(lines[2].geometry(), QRect(0, size.height() - 1, size.width(), 1));
        EXPECT_EQ(lines[3].geometry(), QRect(0, 0, 1, size.height()));
    }
}

TEST(modFormTest, ResizeHitTestTakesThePixelsOfAMargin) {
    QWidget window;
    window.resize(340, 300);
    RecordedMove move;
    EXPECT_EQ(ResizeHitTest(window, 1, 1, move), TopLeft);
    EXPECT_EQ(ResizeHitTest(window, 338, 298, move), BottomRight);
    EXPECT_EQ(ResizeHitTest(window, 338, 297, move), Right);
    EXPECT_EQ(ResizeHitTest(window, 1.99, 150, move), Left);
    EXPECT_TRUE(move.moved.empty());
    EXPECT_EQ(ResizeHitTest(window, 2, 150, move), None);
    EXPECT_EQ(move.moved, std::vector<QWidget*>{&window});
}

TEST(modFormTest, AClickInTheInteriorReleasesTheMouseAndStartsTheSystemsDrag) {
    QWidget window;
    window.resize(340, 300);
    window.show();
    window.grabMouse();
    RecordedMove move;
    EXPECT_EQ(ResizeHitTest(window, 0, 0, move), TopLeft);
    EXPECT_EQ(QWidget::mouseGrabber(), &window);
    EXPECT_EQ(ResizeHitTest(window, 170, 150, move), None);
    EXPECT_EQ(move.moved.size(), 1U);
    EXPECT_EQ(move.holder, nullptr);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST(modFormTest, TheSystemsDragOfAWindowNeverShownDoesNothing) {
    QWidget window;
    SystemWindowMove().Start(window);
    EXPECT_FALSE(window.isVisible());
}

TEST(modFormTest, ResizePointerShowsWhatAPressThereWouldResize) {
    QWidget window;
    window.resize(340, 300);
    for (const auto& [x, y, shape] : {std::tuple{0.0, 0.0, Qt::SizeFDiagCursor},
                                      {339.0, 299.0, Qt::SizeFDiagCursor},
                                      {0.0, 299.0, Qt::SizeBDiagCursor},
                                      {339.0, 0.0, Qt::SizeBDiagCursor},
                                      {0.0, 150.0, Qt::SizeHorCursor},
                                      {339.0, 150.0, Qt::SizeHorCursor},
                                      {170.0, 0.0, Qt::SizeVerCursor},
                                      {170.0, 299.0, Qt::SizeVerCursor},
                                      {170.0, 150.0, Qt::ArrowCursor}}) {
        ResizePointer(window, x, y);
        EXPECT_EQ(window.cursor().shape(), shape) << x << ", " << y;
    }
}

}  // namespace
}  // namespace travo::test
