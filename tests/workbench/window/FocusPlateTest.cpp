#include "workbench/window/FocusPlate.h"

#include <QMenu>
#include <QWheelEvent>

#include "PlateRig.h"

namespace workbench::test {
namespace {

class FocusPlateTest : public PlateRig {
protected:
    FocusPlateTest() {
        plate.resize(352, 98);
        plate.Show(Read());
    }
    void Wheel(int angle, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event(QPointF(60, 17), wheel.mapToGlobal(QPointF(60, 17)), {}, QPoint(0, angle),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&wheel, &event);
    }
    void Drag(int from, int to, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(&wheel, Qt::LeftButton, modifiers, QPoint(from, 17));
        QMouseEvent move(QEvent::MouseMove, QPointF(to, 17), wheel.mapToGlobal(QPointF(to, 17)), Qt::NoButton,
                         Qt::LeftButton, modifiers);
        QApplication::sendEvent(&wheel, &move);
        QTest::mouseRelease(&wheel, Qt::LeftButton, modifiers, QPoint(to, 17));
    }
    QAction& Menu(const char* text) {
        for (QAction* action : Find<QMenu>(plate, "ergoMenu").actions()) {
            if (action->text() == QString::fromUtf8(text)) {
                return *action;
            }
        }
        throw std::runtime_error(text);
    }

    FocusPlate plate{MakeHand(), nullptr};
    FocusWheel& wheel = Find<FocusWheel>(plate, "wheel");
};

TEST_F(FocusPlateTest, EachNotchOfTheMouseWheelIsAHundredCountsWithShiftTen) {
    Wheel(120);
    Wheel(-240);
    Wheel(120, Qt::ShiftModifier);
    EXPECT_EQ(TakeSaid(), (Said{"focus jog 100", "focus jog -200", "focus jog 10"}));
}

TEST_F(FocusPlateTest, PartsOfANotchAddUp) {
    Wheel(60);
    EXPECT_EQ(TakeSaid(), Said{});
    Wheel(60);
    EXPECT_EQ(TakeSaid(), Said{"focus jog 100"});
}

TEST_F(FocusPlateTest, ADragIsAHundredCountsForSixPixelsToTheRightUpward) {
    Drag(60, 72);
    Drag(60, 55);
    Drag(60, 42, Qt::ShiftModifier);
    EXPECT_EQ(TakeSaid(), (Said{"focus jog 200", "focus jog -30"}));
}

TEST_F(FocusPlateTest, AMovedFocusMovesTheRibs) {
    const QImage before = wheel.grab().toImage();
    plate.Show(Read());
    EXPECT_EQ(wheel.grab().toImage(), before);
    Answer("focus jog 40");
    Rest();
    plate.Show(Read());
    EXPECT_NE(wheel.grab().toImage(), before);
}

TEST_F(FocusPlateTest, StopHaltsAndZeroIsForTheTimeInWhichTheKeysAreFree) {
    Click(plate, "halt");
    Answer("focus jog 1500");
    Rest();
    plate.Show(Read());
    EXPECT_EQ(Find<NumberRead>(plate, "focusZ").Number(), QStringLiteral("15.0"));
    EXPECT_EQ(Find<NumberRead>(plate, "gauge").Number(), QStringLiteral("+00.015"));
    Click(plate, "zero");
    EXPECT_EQ(TakeSaid(), (Said{"focus jog 0", "gauge zero"}));
    plate.Show(Read());
    EXPECT_EQ(Find<NumberRead>(plate, "gauge").Number(), QStringLiteral("+00.000"));
    EXPECT_EQ(Find<NumberRead>(plate, "gauge").toolTip(), QStringLiteral("Its zero is at Z 15.0"));
    Scene locked = scene;
    locked.gaugeKeys = false;
    plate.Show(locked);
    EXPECT_FALSE(Find<BenchPush>(plate, "zero").isEnabled());
    EXPECT_EQ(Find<BenchPush>(plate, "zero").text(), QStringLiteral("Keys locked"));
}

TEST_F(FocusPlateTest, TheGaugeReadsAsItsOwnDisplay) {
    EXPECT_EQ(GaugeText(0), QStringLiteral("+00.000"));
    EXPECT_EQ(GaugeText(-0.2), QStringLiteral("+00.000"));
    EXPECT_EQ(GaugeText(123), QStringLiteral("+00.123"));
    EXPECT_EQ(GaugeText(-12345.6), QStringLiteral("−12.346"));
    EXPECT_EQ(GaugeText(1e9), QStringLiteral("+99.999"));
}

TEST_F(FocusPlateTest, TheErgoUnitSaysItsLinesAloneOrInOneWrite) {
    Click(plate, "ergoUp");
    Click(plate, "ergoDown");
    Menu("Where WZ").trigger();
    EXPECT_EQ(TakeSaid(), (Said{"ergo RZ1000", "ergo RZ-1000", "ergo WZ"}));
    Menu("In one write").trigger();
    Click(plate, "ergoUp");
    for (const char* text : {"To zero MZ0", "Zero ZE", "Reset RE"}) {
        Menu(text).trigger();
    }
    EXPECT_EQ(TakeSaid(),
              (Said{"ergo together RZ1000", "ergo together MZ0", "ergo together ZE", "ergo together RE"}));
}

TEST_F(FocusPlateTest, AHeldKeyOfTheWheelGoesOnUntilItIsLetGo) {
    plate.HoldWheel(true, false);
    Rest();
    EXPECT_TRUE(QTest::qWaitFor([this] { return said.size() == 2; }));
    plate.LetGo();
    Rest();
    QTest::qWait(3 * HeldStep::Pause);
    plate.HoldWheel(false, true);
    plate.LetGo();
    EXPECT_EQ(TakeSaid(), (Said{"focus jog 100", "focus jog 100", "focus jog -10"}));
}

}  // namespace
}  // namespace workbench::test
