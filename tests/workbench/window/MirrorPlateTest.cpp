#include "workbench/window/MirrorPlate.h"

#include <QAccessible>

#include "PlateRig.h"

namespace workbench::test {
namespace {

// In the middle of an area of a pad of 132.
QPoint PadPoint(int area) {
    constexpr double Scale = 132.0 / 165.0;
    constexpr std::array<std::pair<double, double>, 8> Ways{
        {{0, -1}, {0.7, -0.7}, {1, 0}, {0.7, 0.7}, {0, 1}, {-0.7, 0.7}, {-1, 0}, {-0.7, -0.7}}};
    if (area == PadMiddle) {
        return {66, 66};
    }
    const auto& [x, y] = Ways.at(static_cast<std::size_t>((area - 1) % 8));
    const double radius = area <= 8 ? 66 : 40;
    return QPointF((82.5 + radius * x) * Scale, (82.5 + radius * y) * Scale).toPoint();
}

class MirrorPlateTest : public PlateRig {
protected:
    MirrorPlateTest() {
        plate.resize(352, 178);
        plate.Show(Read());
    }
    void ShowNow() { plate.Show(Read()); }

    MirrorPlate plate{MakeHand(), nullptr};
    MirrorPad& pad = Find<MirrorPad>(plate, "pad");
};

TEST_F(MirrorPlateTest, ThePadMovesAsTheProgramsOwnPad) {
    // 10 on the outer ring, 1 on the inner one; the right side lowers X.
    const Said ways{"0 10", "-10 10", "-10 0", "-10 -10", "0 -10", "10 -10", "10 0", "10 10",
                    "0 1",  "-1 1",   "-1 0",  "-1 -1",   "0 -1",  "1 -1",   "1 0",  "1 1"};
    for (int area = 1; area <= 16; ++area) {
        QTest::mousePress(&pad, Qt::LeftButton, {}, PadPoint(area));
        EXPECT_EQ(pad.PictureShown(), area);
        EXPECT_EQ(TakeSaid(), Said{});
        QTest::mouseRelease(&pad, Qt::LeftButton, {}, PadPoint(area));
        EXPECT_EQ(TakeSaid(), Said{"mirror jog " + ways.at(static_cast<std::size_t>(area - 1))});
    }
    QTest::mouseClick(&pad, Qt::LeftButton, {}, PadPoint(PadMiddle));
    EXPECT_EQ(TakeSaid(), Said{"mirror move 0 0"});
    QTest::mouseClick(&pad, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(TakeSaid(), Said{});
}

TEST_F(MirrorPlateTest, TheArrowsWorkThePadWithShiftTheOuterRingAndHomeTheMiddle) {
    QTest::keyClick(&pad, Qt::Key_Up);
    QTest::keyClick(&pad, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&pad, Qt::Key_Home);
    EXPECT_EQ(TakeSaid(), (Said{"mirror jog 0 1", "mirror jog 10 0", "mirror move 0 0"}));
}

TEST_F(MirrorPlateTest, APressOfThePadThatLosesItsFocusMovesNothing) {
    QTest::keyPress(&pad, Qt::Key_Up);
    QFocusEvent gone(QEvent::FocusOut);
    QApplication::sendEvent(&pad, &gone);
    QTest::keyRelease(&pad, Qt::Key_Up);
    EXPECT_EQ(TakeSaid(), Said{});
}

TEST_F(MirrorPlateTest, EachAreaOfThePadIsAnActionOfItsName) {
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(&pad);
    ASSERT_NE(face->actionInterface(), nullptr);
    face->actionInterface()->doAction(QStringLiteral("Outer upper right"));
    face->actionInterface()->doAction(QStringLiteral("Centre"));
    EXPECT_EQ(TakeSaid(), (Said{"mirror jog -10 10", "mirror move 0 0"}));
    EXPECT_EQ(face->role(), QAccessible::Canvas);
}

TEST_F(MirrorPlateTest, WithTheMotorsOffThePadIsDisabledAndTheSwitchSaysSo) {
    auto& motors = Find<BenchSwitch>(plate, "motors");
    EXPECT_TRUE(motors.isChecked());
    EXPECT_EQ(motors.SecondLine(), QStringLiteral("on"));
    Click(plate, "motors");
    EXPECT_EQ(TakeSaid(), Said{"mirror motors off"});
    ShowNow();
    EXPECT_FALSE(motors.isChecked());
    EXPECT_EQ(motors.SecondLine(), QStringLiteral("off"));
    EXPECT_EQ(pad.PictureShown(), 18);
    Click(plate, "motors");
    EXPECT_EQ(TakeSaid(), Said{"mirror motors on"});
    ShowNow();
    EXPECT_EQ(pad.PictureShown(), 0);
}

TEST_F(MirrorPlateTest, CountsAndFlagsAreShownWhereverTheyComeFrom) {
    Answer("mirror move 94 -38");
    Rest();
    Answer("fault mirror limit x on");
    ShowNow();
    EXPECT_EQ(Find<NumberRead>(plate, "mirrorX").Number(), QStringLiteral("94"));
    EXPECT_EQ(Find<NumberRead>(plate, "mirrorY").Number(), QStringLiteral("−38"));
    EXPECT_TRUE(Find<LampRead>(plate, "limitX").IsOn());
    EXPECT_FALSE(Find<LampRead>(plate, "limitY").IsOn());
}

TEST_F(MirrorPlateTest, OneObjectiveIsLatchedAndTheFourthStandsBetweenTwo) {
    EXPECT_TRUE(Find<BenchSwitch>(plate, "mag2").isChecked());
    for (const auto& [name, line] :
         {std::pair{"mag1", "magnification 1"}, std::pair{"mag3", "magnification 3"},
          std::pair{"mag0", "magnification 0"}, std::pair{"mag2", "magnification 2"}}) {
        Click(plate, name);
        EXPECT_EQ(TakeSaid(), Said{line});
        ShowNow();
        for (const char* other : {"mag0", "mag1", "mag2", "mag3"}) {
            EXPECT_EQ(Find<BenchSwitch>(plate, other).isChecked(), std::string(other) == name) << other;
        }
    }
}

}  // namespace
}  // namespace workbench::test
