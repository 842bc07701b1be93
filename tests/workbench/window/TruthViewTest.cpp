#include "workbench/window/TruthView.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QTest>
#include <QWheelEvent>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "Scenes.h"
#include "workbench/commands/Bench.h"
#include "workbench/window/SceneReader.h"

namespace workbench {

namespace {

// Counts how often a widget paints itself.
class Paints : public QObject {
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// The plan on a bench whose time stands where the test puts it.
class PlanTest : public ::testing::Test {
protected:
    void SetUp() override {
        view.resize(544, 424);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        Read();
        QCoreApplication::processEvents();
        said.clear();
    }
    std::string Do(const std::string& line) { return bench.commands.Answer(line, now); }
    void Read() {
        scene = ReadScene([this](const std::string& line) { return Do(line); }, scene);
        view.Show(scene);
    }
    void Rest() {
        now += std::chrono::seconds(20);
        Read();
    }
    PlanScale Scale() const {
        const PlanSight sight = view.Sight();
        return {QSizeF(view.size()), sight.visible.center(), sight.scale};
    }
    QPoint Pixel(const QPointF& place) const { return Scale().Pixel(place).toPoint(); }
    void Wheel(const QPoint& at, const QPoint& angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent event(at, view.mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&view, &event);
    }
    // The lines that were said and change something.
    std::vector<std::string> Orders() const {
        std::vector<std::string> orders;
        for (const std::string& line : said) {
            if (line.starts_with("world move") || line.starts_with("mirror move")) {
                orders.push_back(line);
            }
        }
        return orders;
    }

    Time now = std::chrono::seconds(1);
    Bench bench;
    Scene scene;
    std::vector<std::string> said;
    std::vector<int> picked;
    std::vector<PlanFollow> follows;
    QStringList pointer;
    QString told;
    TruthView view{[this](const std::string& line) {
                       said.push_back(line);
                       return Do(line);
                   },
                   {[this](int needle) {
                        picked.push_back(needle);
                        scene.picked = needle;
                        Read();
                    },
                    [this](const QStringList& parts) { pointer = parts; },
                    [this](const QString& text) { told = text; },
                    [this](PlanFollow follow) { follows.push_back(follow); },
                    {}}};
};

}  // namespace

TEST_F(PlanTest, AtFirstItShowsAllNeedles) {
    EXPECT_EQ(view.Follows(), PlanFollow::All);
    EXPECT_NEAR(view.Sight().scale, 0.0789, 0.0001);
    EXPECT_EQ(view.accessibleName(), QStringLiteral("True plan"));
    EXPECT_EQ(view.accessibleDescription(),
              QStringLiteral("Picked needle 1: X −2121.3, Y −2121.3, Z 0.0. No crossings."));
}

TEST_F(PlanTest, TheWheelZoomsAboutThePointerAndTurnsTheToolOff) {
    const PlanScale before = Scale();
    Wheel({400, 100}, {0, 120});
    EXPECT_NEAR(view.Sight().scale, before.scale * 1.25, 1e-9);
    EXPECT_LT(PlanDistance(Scale().PlaceAt({400, 100}), before.PlaceAt({400, 100})), 1e-6);
    EXPECT_EQ(follows, (std::vector<PlanFollow>{PlanFollow::Nothing}));
    Wheel({400, 100}, {0, -120});
    EXPECT_NEAR(view.Sight().scale, before.scale, 1e-9);
}

TEST_F(PlanTest, PlusAndMinusZoomAboutTheMiddle) {
    const PlanScale before = Scale();
    QTest::keyClick(&view, Qt::Key_Plus);
    EXPECT_NEAR(view.Sight().scale, before.scale * 1.25, 1e-9);
    EXPECT_LT(PlanDistance(Scale().centre, before.centre), 1e-6);
    QTest::keyClick(&view, Qt::Key_Minus);
    EXPECT_NEAR(view.Sight().scale, before.scale, 1e-9);
}

TEST_F(PlanTest, ShiftAndWheelOrTheRightButtonPan) {
    const PlanScale before = Scale();
    Wheel({100, 100}, {0, 120}, Qt::ShiftModifier);
    EXPECT_EQ(view.Sight().scale, before.scale);
    EXPECT_LT(PlanDistance(Scale().Pixel({}), before.Pixel({}) + QPointF(0, 60)), 1e-6);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        const PlanScale held = Scale();
        QTest::mousePress(&view, button, {}, {100, 100});
        EXPECT_TRUE(view.Holds());
        QTest::mouseMove(&view, {130, 90});
        QTest::mouseRelease(&view, button, {}, {130, 90});
        EXPECT_FALSE(view.Holds());
        EXPECT_LT(PlanDistance(Scale().Pixel({}), held.Pixel({}) + QPointF(30, -10)), 1e-6);
    }
    EXPECT_TRUE(Orders().empty());
}

TEST_F(PlanTest, ATipThatIsDraggedIsPickedAndGoesAlongItsShaft) {
    scene.picked = 3;
    Read();
    const QPoint tip = Pixel(scene.Needle(1).tip.Plan());
    const double scale = view.Sight().scale;
    QTest::mousePress(&view, Qt::LeftButton, {}, tip + QPoint(5, 5));
    EXPECT_EQ(picked, (std::vector<int>{1}));
    QTest::mouseMove(&view, tip + QPoint(35, 35));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, tip + QPoint(35, 35));
    const int expected = 9500 + static_cast<int>(std::lround(30.0 * std::sqrt(2.0) / scale));
    ASSERT_FALSE(Orders().empty());
    EXPECT_EQ(Orders().back(), "world move 1 " + std::to_string(expected) + " 12500 12500");
    Rest();
    EXPECT_EQ(bench.world.CountsNow(0, now), (travo::PositionXYZ{expected, 12500, 12500}));
}

TEST_F(PlanTest, ADragSaysAtMostOneLineIn40MsAndTheLastPlaceInTheEnd) {
    const QPoint tip = Pixel(scene.Needle(1).tip.Plan());
    QTest::mousePress(&view, Qt::LeftButton, {}, tip);
    for (int step = 1; step <= 20; ++step) {
        QTest::mouseMove(&view, tip + QPoint(step, step));
    }
    EXPECT_LE(Orders().size(), 2U);
    const std::size_t before = Orders().size();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Orders().size() == before + 1; }, 5000));
    QTest::mouseMove(&view, tip + QPoint(21, 21));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, tip + QPoint(21, 21));
    const int last = 9500 + static_cast<int>(std::lround(21.0 * std::sqrt(2.0) / view.Sight().scale));
    EXPECT_NEAR(std::stoi(Orders().back().substr(13)), last, 1);
}

TEST_F(PlanTest, TheFrameOfTheViewIsDraggedAndSnapsToACell) {
    view.Follow(PlanFollow::Dish);
    const QPoint edge = Pixel({0.0, -90.5});
    QTest::mousePress(&view, Qt::LeftButton, {}, edge);
    const QPoint cell = edge + Pixel({-470.0, 190.7}) - Pixel({0.0, 0.0});
    QTest::mouseMove(&view, cell + QPoint(3, 3));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, cell + QPoint(3, 3));
    ASSERT_FALSE(Orders().empty());
    EXPECT_EQ(Orders().back(), "mirror move 94 -38");
    EXPECT_TRUE(picked.empty());
}

TEST_F(PlanTest, TheFrameIsNeverDraggedBeyond180) {
    view.Follow(PlanFollow::Dish);
    const QPoint edge = Pixel({0.0, -90.5});
    QTest::mousePress(&view, Qt::LeftButton, {}, edge);
    QTest::mouseMove(&view, edge - QPoint(3000, 0));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, edge - QPoint(3000, 0));
    ASSERT_FALSE(Orders().empty());
    EXPECT_TRUE(Orders().back().starts_with("mirror move 180 "));
}

TEST_F(PlanTest, WhatItFollowsWaitsWhileTheHandHoldsTheView) {
    view.Follow(PlanFollow::View);
    const PlanScale before = Scale();
    const QPoint edge = Pixel({0.0, -90.5});
    QTest::mousePress(&view, Qt::LeftButton, {}, edge);
    QTest::mouseMove(&view, edge + QPoint(40, 0));
    Rest();
    EXPECT_EQ(Scale(), before);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, edge + QPoint(40, 0));
    Rest();
    EXPECT_LT(PlanDistance(Scale().centre, scene.view), 1e-6);
    EXPECT_GT(PlanDistance(Scale().centre, before.centre), 5.0);
}

TEST_F(PlanTest, ADoubleClickSendsThePickedNeedleThereWithin8UnitsAtItsOwnHeight) {
    Do("world move 2 9500 12500 12400");
    scene.picked = 2;
    Rest();
    view.Follow(PlanFollow::View);
    const QPoint pixel = Pixel({-33.3, 44.4});
    QTest::mouseDClick(&view, Qt::LeftButton, {}, pixel);
    Rest();
    EXPECT_LT(PlanDistance(scene.Needle(2).tip.Plan(), Scale().PlaceAt(pixel)), 8.0);
    EXPECT_NEAR(scene.Needle(2).tip.z, 100.0, 1e-6);
    for (const std::int32_t count : bench.world.CountsNow(1, now)) {
        EXPECT_EQ(count % 10, 0);
    }
}

TEST_F(PlanTest, TheFieldOfViewIsFollowed) {
    view.Follow(PlanFollow::View);
    Do("mirror move 94 -38");
    Rest();
    EXPECT_LT(PlanDistance(view.Sight().visible.center(), scene.view), 1e-6);
}

TEST_F(PlanTest, ThePointerIsToldAndAClickTellsUntilItMovesOn) {
    view.Follow(PlanFollow::Dish);
    const QPoint cell = Pixel({-470.0, 190.7});
    QTest::mouseMove(&view, cell);
    EXPECT_TRUE(pointer.contains(QStringLiteral("on cell 4")));
    QTest::mouseClick(&view, Qt::LeftButton, {}, cell);
    EXPECT_TRUE(told.startsWith(QStringLiteral("cell 4: ")));
    QTest::mouseMove(&view, cell + QPoint(30, 30));
    EXPECT_TRUE(told.isEmpty());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&view, &leave);
    EXPECT_TRUE(pointer.isEmpty());
    EXPECT_TRUE(Orders().empty());
}

TEST_F(PlanTest, WhatThePointerIsOnIsToldAnewWhenTheWorldMoves) {
    view.Follow(PlanFollow::Dish);
    QTest::mouseMove(&view, Pixel({10.0, 10.0}));
    const QStringList before = pointer;
    Do("world move 1 12000 12500 12500");
    Rest();
    EXPECT_NE(pointer, before);
}

TEST_F(PlanTest, ItRepaintsOnlyWhenSomethingThatItShowsHasChanged) {
    Paints paints;
    view.installEventFilter(&paints);
    QCoreApplication::processEvents();
    paints.count = 0;
    Read();
    Do("fault motor silent on");
    Do("focus jog 1000");
    Rest();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    Do("world jog 4 1 0 0");
    Rest();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 1; }, 5000));
}

TEST_F(PlanTest, ALookGoesToTheLastLandingAt12PixelsAUnit) {
    const PlanScale before = Scale();
    view.Look();
    EXPECT_EQ(Scale(), before);
    const std::string aim = Do("world aim 1 -470 190.7 0");
    Do("driver moveto" + aim.substr(2));
    Rest();
    view.Look();
    EXPECT_DOUBLE_EQ(view.Sight().scale, 12.0);
    EXPECT_LT(PlanDistance(view.Sight().visible.center(), {-470.0, 190.7}), 0.1);
}

TEST_F(PlanTest, ItsDescriptionIsRenewedWhenAllRest) {
    Do("world move 1 9900 12500 12500");
    now += std::chrono::milliseconds(20);
    Read();
    EXPECT_TRUE(view.accessibleDescription().contains(QStringLiteral("X −2121.3")));
    Rest();
    EXPECT_FALSE(view.accessibleDescription().contains(QStringLiteral("X −2121.3")));
}

TEST_F(PlanTest, ItIsPaintedAtEveryScaleWithoutLosingWhatIsInTheMiddle) {
    // Far beyond a painter's reach: the shafts are 12500 units long, at 40 pixels each.
    Do("world move 1 12500 12500 12500");
    Rest();
    view.Follow(PlanFollow::Needle);
    for (int notch = 0; notch < 20; ++notch) {
        view.Zoom(1.25);
    }
    ASSERT_DOUBLE_EQ(view.Sight().scale, 40.0);
    const QImage picture = view.grab().toImage();
    const QPointF back = Scale().Pixel(test::HeadingOf(1) * -4.0);
    const QColor shaft = picture.pixelColor(back.toPoint());
    EXPECT_GT(shaft.red(), 200);
    EXPECT_LT(picture.pixelColor(500, 60).red(), 60);
}

}  // namespace workbench
