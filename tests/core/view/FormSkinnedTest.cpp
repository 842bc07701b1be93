// A small window as the operator's mouse meets it.
#include "core/view/FormSkinned.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <ostream>
#include <string>

#include "controls/NumberLabel.h"

inline void PrintTo(const QRect& rectangle, std::ostream* stream) {
    *stream << rectangle.x() << "," << rectangle.y() << " " << rectangle.width() << "x" << rectangle.height();
}

namespace travo::test {
namespace {

using enum ResizeMode;

class Sample : public FormSkinned {
public:
    explicit Sample(const System& system)
        : FormSkinned(
              system,
              {QStringLiteral("FormSample"), QStringLiteral("Sample"), QStringLiteral("3"), QSize(340, 300)},
              QString()) {
        PutControl(button, {.place = QRectF(20, 44, 100, 40)});
        PutDisplay(label, {.place = QRectF(200, 44, 100, 40)});
    }
    void Activated() override { ++activations; }

    usrKVButton button;
    NumberLabel label;
    int activations = 0;
};

class FormSkinnedTest : public ::testing::Test, protected FormSkinned::Owner, protected WindowMove {
protected:
    void FormClose(std::int32_t Index) override {
        closed.push_back(Index);
        window.HideWindow();
    }
    void Start(QWidget& moved) override {
        EXPECT_EQ(&moved, &window);
        ++moves;
    }

    void SetUp() override {
        window.setGeometry(Start0);
        window.ShowWindow();
        ASSERT_EQ(window.geometry(), Start0);
    }
    // The next window must not take the button for held down.
    void TearDown() override { Release({170, 150}); }

    void Press(const QPoint& at) { QTest::mousePress(&window, Qt::LeftButton, {}, at); }
    void Release(const QPoint& at) { QTest::mouseRelease(&window, Qt::LeftButton, {}, at); }
    void MoveTo(const QPoint& at, Qt::MouseButtons buttons = Qt::LeftButton) {
        MoveTo(at, window.mapToGlobal(at), buttons);
    }
    void MoveTo(const QPoint& at, const QPoint& onScreen, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, QPointF(at), QPointF(onScreen), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }

    const QRect Start0{200, 180, 340, 300};
    std::vector<std::int32_t> closed;
    int moves = 0;
    Sample window{{*this, *this}};
};

struct Edge {
    ResizeMode mode;
    QPoint press;     // in a window of 340 by 300
    QRect smallest;   // after a drag far inwards, from 200, 180
    QPoint inwards;   // from the press
    QPoint outwards;  // likewise
    QRect larger;     // after a drag outwards
};

class FormSkinnedEdgeTest : public FormSkinnedTest, public ::testing::WithParamInterface<Edge> {};

TEST_P(FormSkinnedEdgeTest, AnEdgeFollowsTheMouseOutwardsUntilItsRelease) {
    const Edge& edge = GetParam();
    Press(edge.press);
    EXPECT_EQ(window.Resizing(), edge.mode);
    MoveTo(edge.press + edge.outwards);
    EXPECT_EQ(window.geometry(), edge.larger);
    EXPECT_EQ(window.cursor().shape(), PointerOf(edge.mode));
    Release(edge.press);
    EXPECT_EQ(window.Resizing(), None);
    MoveTo({170, 150}, Qt::NoButton);
    EXPECT_EQ(window.geometry(), edge.larger);
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(moves, 0);
}

TEST_P(FormSkinnedEdgeTest, AWindowCannotBeMadeSmallerThanItsLeastSizeOnEitherAxis) {
    const Edge& edge = GetParam();
    Press(edge.press);
    const QPoint mouse = window.mapToGlobal(edge.press);
    for (int step = 1; step <= 40; ++step) {
        const QPoint onScreen = mouse + edge.inwards * step;
        MoveTo(window.mapFromGlobal(onScreen), onScreen, Qt::LeftButton);
    }
    EXPECT_EQ(window.geometry(), edge.smallest);
    // On the way back the edge waits for the mouse.
    MoveTo(window.mapFromGlobal(mouse), mouse, Qt::LeftButton);
    EXPECT_LE(std::abs(window.width() - 340), 2);
    EXPECT_LE(std::abs(window.height() - 300), 2);
}

// Events that tell where the mouse was in a window that had not been moved yet.
TEST_P(FormSkinnedEdgeTest, StalePlacesInTheWindowDoNotThrowTheEdgeAbout) {
    const Edge& edge = GetParam();
    Press(edge.press);
    const QPoint mouse = window.mapToGlobal(edge.press);
    for (int step = 1; step <= 10; ++step) {
        MoveTo(edge.press + edge.outwards * step / 10, mouse + edge.outwards * step / 10, Qt::LeftButton);
    }
    EXPECT_EQ(window.geometry(), edge.larger);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, FormSkinnedEdgeTest,
    ::testing::Values(
        Edge{Right, {338, 150}, {200, 180, 221, 300}, {-20, 0}, {52, 5}, {200, 180, 390, 300}},
        Edge{Bottom, {170, 298}, {200, 180, 340, 195}, {0, -20}, {5, 42}, {200, 180, 340, 340}},
        Edge{Left, {0, 150}, {319, 180, 221, 300}, {20, 0}, {-50, 5}, {150, 180, 390, 300}},
        Edge{Top, {170, 0}, {200, 285, 340, 195}, {0, 20}, {5, -40}, {200, 140, 340, 340}},
        Edge{BottomRight, {338, 298}, {200, 180, 221, 195}, {-20, -20}, {52, 42}, {200, 180, 390, 340}},
        Edge{TopLeft, {1, 1}, {319, 285, 221, 195}, {20, 20}, {-51, -41}, {150, 140, 390, 340}},
        Edge{BottomLeft, {0, 298}, {319, 180, 221, 195}, {20, -20}, {-50, 42}, {150, 180, 390, 340}},
        Edge{TopRight, {338, 0}, {200, 285, 221, 195}, {-20, 20}, {52, -40}, {200, 140, 390, 340}}),
    [](const auto& edge) { return "Mode" + std::to_string(static_cast<int>(edge.param.mode)); });

TEST_F(FormSkinnedTest, AWindowDraggedAtAPointCloserThanTheMarginToACornerResizesOnBothEdges) {
    Press({339, 299});
    MoveTo({400, 350});
    EXPECT_EQ(window.geometry(), QRect(200, 180, 400, 350));
}

TEST_F(FormSkinnedTest, MovingTheTopEdgeDownPastTheLimitLeavesTheBottomEdgeWhereItWas) {
    Press({170, 1});
    for (const int y : {50, 105, 106, 250, 900}) {
        const QPoint onScreen(370, 180 + y);
        MoveTo(window.mapFromGlobal(onScreen), onScreen, Qt::LeftButton);
        EXPECT_EQ(window.geometry().bottom(), Start0.bottom()) << y;
        EXPECT_GE(window.height(), 195);
    }
}

TEST_F(FormSkinnedTest, AClickInTheInteriorDragsTheWindowAndTheModeStaysZero) {
    Press({170, 270});
    EXPECT_EQ(moves, 1);
    EXPECT_EQ(window.Resizing(), None);
    MoveTo({240, 290});
    EXPECT_EQ(window.geometry(), Start0);
}

TEST_F(FormSkinnedTest, APressOnTheTitleStripOrOnALabelDragsTheWindow) {
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {100, 16});
    EXPECT_EQ(moves, 1);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {100, 16});
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {250, 64});
    EXPECT_EQ(moves, 2);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {250, 64});
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {170, 200});
    EXPECT_EQ(moves, 3);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {170, 200});
}

TEST_F(FormSkinnedTest, APressOnAControlDragsNothingAlsoWhereItIsDisabled) {
    int clicks = 0;
    QObject::connect(&window.button, &usrKVButton::clicked, [&] { ++clicks; });
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {70, 64});
    EXPECT_EQ(clicks, 1);
    window.button.Enabled(false);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {70, 64});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(moves, 0);
}

TEST_F(FormSkinnedTest, OnlyTheLeftButtonDragsOrResizes) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(&window, button, {}, {338, 298});
        EXPECT_EQ(window.Resizing(), None);
        MoveTo({400, 400}, button);
        QTest::mouseRelease(&window, button, {}, {338, 298});
        QTest::mouseClick(&window, button, {}, {170, 150});
    }
    EXPECT_EQ(window.geometry(), Start0);
    EXPECT_EQ(moves, 0);
}

TEST_F(FormSkinnedTest, ReleasingAnotherButtonDoesNotEndAResize) {
    Press({338, 150});
    QTest::mouseRelease(&window, Qt::RightButton, {}, {338, 150});
    EXPECT_EQ(window.Resizing(), Right);
    MoveTo({400, 150});
    EXPECT_EQ(window.width(), 400);
}

TEST_F(FormSkinnedTest, AResizeWhoseReleaseWasLostEndsWithTheNextMove) {
    Press({338, 150});
    MoveTo({400, 150}, Qt::NoButton);
    EXPECT_EQ(window.Resizing(), None);
    EXPECT_EQ(window.geometry(), Start0);
}

TEST_F(FormSkinnedTest, AWindowHiddenDuringAResizeComesBackWithoutIt) {
    Press({338, 150});
    window.HideWindow();
    window.ShowWindow();
    EXPECT_EQ(window.Resizing(), None);
    MoveTo({400, 150});
    EXPECT_EQ(window.geometry(), Start0);
}

TEST_F(FormSkinnedTest, AnEdgeCanBeDraggedOffTheScreen) {
    Press({1, 1});
    MoveTo({-1500, -1200}, {-1300, -1020}, Qt::LeftButton);
    EXPECT_EQ(window.geometry(), QRect(QPoint(-1300, -1020), Start0.bottomRight()));
    EXPECT_EQ(window.Measured().Left, -1300 * 15);
}

TEST_F(FormSkinnedTest, ThePointerOverAControlIsTheOrdinaryOne) {
    MoveTo({0, 150}, Qt::NoButton);
    EXPECT_EQ(window.cursor().shape(), Qt::SizeHorCursor);
    EXPECT_EQ(window.button.cursor().shape(), Qt::ArrowCursor);
    // The ground below the controls shows the window's own.
    QTest::mouseMove(window.windowHandle(), QPoint(170, 150));
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(window.windowHandle(), QPoint(170, 299));
    EXPECT_EQ(window.cursor().shape(), Qt::SizeVerCursor);
}

TEST_F(FormSkinnedTest, CloseTellsTheOwnerTheWindowsNumber) {
    auto* const close = window.findChild<usrKVButton*>(QStringLiteral("usrKVButton1(0)"));
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_EQ(closed, std::vector<std::int32_t>{3});
    EXPECT_TRUE(window.isHidden());
}

TEST_F(FormSkinnedTest, AStraySpaceClosesNoWindowAndTabGoesToItsButtons) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(closed.empty());
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    ASSERT_NE(window.focusWidget(), nullptr);
    EXPECT_NE(window.focusWidget(), &window);
}

TEST_F(FormSkinnedTest, ACloseByTheWindowSystemIsItsClose) {
    window.close();
    EXPECT_EQ(closed, std::vector<std::int32_t>{3});
    EXPECT_TRUE(window.isHidden());
    window.close();
    EXPECT_EQ(closed.size(), 1U);
}

TEST_F(FormSkinnedTest, AtTheEndOfTheRunItClosesWithoutAWord) {
    window.CloseAtEnd();
    EXPECT_TRUE(window.isHidden());
    EXPECT_TRUE(closed.empty());
}

TEST_F(FormSkinnedTest, SizeBringsBackTheDesignSizeWhereTheWindowStands) {
    window.resize(500, 444);
    QTest::mouseClick(window.findChild<usrKVButton*>(QStringLiteral("usrKVButton1(1)")), Qt::LeftButton);
    EXPECT_EQ(window.geometry(), Start0);
}

TEST_F(FormSkinnedTest, ActivationIsAStepOfShowingAndOfComingToTheFront) {
    const int before = window.activations;
    EXPECT_GE(before, 1);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &activate);
    EXPECT_EQ(window.activations, before + 1);
    window.HideWindow();
    window.ShowWindow();
    EXPECT_GT(window.activations, before + 1);
}

TEST_F(FormSkinnedTest, ThePlaceOfTheLastRunComesBack) {
    window.HideWindow();
    window.Place({150, 300, 6000, 5400});
    window.ShowWindow();
    EXPECT_EQ(window.geometry(), QRect(20, 10, 400, 360));
    const MeasuredWindowPlace place = window.Measured();
    EXPECT_EQ(place.Top, 150);
    EXPECT_EQ(place.Left, 300);
    EXPECT_EQ(place.Width, 6000);
    EXPECT_EQ(place.Height, 5400);
}

TEST_F(FormSkinnedTest, AWindowThatIsNeverShownKeepsTheStoredPlace) {
    Sample hidden{{*this, *this}};
    hidden.Place({30000, 32767, 6000, 5400});
    EXPECT_TRUE(hidden.isHidden());
    EXPECT_EQ(hidden.Measured().Top, 30000);
    EXPECT_EQ(hidden.Measured().Left, 2184 * 15);
    EXPECT_EQ(hidden.Measured().Width, 6000);
}

TEST_F(FormSkinnedTest, APlaceOnAScreenThatIsNoLongerThereIsShiftedOntoOneWhenShown) {
    window.HideWindow();
    window.Place({32767, 32767, 5100, 4500});
    EXPECT_EQ(window.pos(), QPoint(2184, 2184));
    window.ShowWindow();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.geometry().bottomRight(), screen.bottomRight());
    EXPECT_EQ(window.size(), QSize(340, 300));
}

TEST_F(FormSkinnedTest, AStoredSizeBelowTheLeastIsLiftedToIt) {
    window.Place({0, 0, 0, 15});
    EXPECT_EQ(window.size(), QSize(221, 195));
}

TEST_F(FormSkinnedTest, TheWindowSystemIsToldFromWhereItsStepsCount) {
    EXPECT_EQ(window.windowHandle()->baseSize(), StepBase(QSize(340, 300), window.devicePixelRatioF()));
}

TEST_F(FormSkinnedTest, TheDefaultOfTheSettingsIsTheDesignSizeInLogicalUnits) {
    EXPECT_EQ(window.DesignSize().Width, 5100);
    EXPECT_EQ(window.DesignSize().Height, 4500);
}

TEST_F(FormSkinnedTest, TheStripAndItsButtonsKeepTheirSizeAtEverySizeOfTheWindow) {
    const auto place = [this](const char* name) {
        return window.findChild<QWidget*>(QString::fromLatin1(name))->geometry();
    };
    for (const QSize& size : {QSize(340, 300), QSize(221, 195), QSize(680, 600), QSize(500, 200)}) {
        window.resize(size);
        const int right = size.width();
        EXPECT_EQ(place("Image1"), QRect(0, 0, right, 32));
        EXPECT_EQ(place("usrKVButton1(1)"), QRect(right - 60, 3, 24, 24));
        EXPECT_EQ(place("usrKVButton1(0)"), QRect(right - 31, 3, 24, 24));
        EXPECT_EQ(place("imgConer1"), QRect(0, 0, 4, 4));
        EXPECT_EQ(place("imgConer2"), QRect(right - 4, 0, 4, 4));
        EXPECT_EQ(place("Line1"), QRect(0, 0, right, 1));
        EXPECT_EQ(place("Line2"), QRect(right - 1, 0, 1, size.height()));
        EXPECT_EQ(place("Line3"), QRect(0, size.height() - 1, right, 1));
        EXPECT_EQ(place("Line4"), QRect(0, 0, 1, size.height()));
        EXPECT_EQ(window.mask(), WindowShape(size));
    }
}

TEST_F(FormSkinnedTest, WhatLiesBelowTheStripScalesWithTheWindowAndNeverRunsUnderTheStrip) {
    const auto place = [this] {
        return QRect(window.button.mapTo(&window, QPoint(0, 0)), window.button.size());
    };
    EXPECT_EQ(place(), QRect(20, 44, 100, 40));
    window.resize(680, 600);
    EXPECT_EQ(place(), QRect(40, 88, 200, 80));
    window.resize(510, 300);
    EXPECT_EQ(place(), QRect(30, 44, 150, 40));
    // (195 - 32) / (300 - 32) = 0.608: 32 + 12 * 0.608 = 39.3.
    window.resize(340, 195);
    EXPECT_EQ(place(), QRect(20, 40, 100, 24));
    for (int height = 195; height <= 600; ++height) {
        window.resize(340, height);
        EXPECT_GE(place().top(), 32 + 7) << height;
    }
}

TEST_F(FormSkinnedTest, ItIsAPlainFramelessWindowOfItsOwn) {
    EXPECT_TRUE(window.isWindow());
    EXPECT_EQ(window.parentWidget(), nullptr);
    EXPECT_EQ(window.windowType(), Qt::Window);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_EQ(window.windowModality(), Qt::NonModal);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Sample"));
}

}  // namespace
}  // namespace travo::test
