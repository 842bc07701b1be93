// What all buttons of the window have in common: how they are pressed, how they look, what they tell.
#include "workbench/window/BenchButton.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTest>
#include <vector>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/BenchSegment.h"
#include "workbench/window/BenchSwitch.h"
#include "workbench/window/BenchTab.h"
#include "workbench/window/FaultChip.h"
#include "workbench/window/FocusLine.h"

namespace workbench::test {
namespace {

class Window : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

struct ButtonsTest : ::testing::Test {
    ButtonsTest() {
        int y = 10;
        for (BenchButton* button : All()) {
            button->setGeometry(10, y, 100, 30);
            QObject::connect(button, &QAbstractButton::clicked, &window, [this] { ++clicks; });
            y += 50;
        }
        window.resize(200, 320);
        window.show();
    }
    std::vector<BenchButton*> All() { return {&push, &twoState, &segment, &tab, &chip, &fault}; }
    static QColor Pixel(QWidget& widget, int x, int y) { return widget.grab().toImage().pixelColor(x, y); }

    int clicks = 0;
    Window window;
    BenchPush push{{"push", "Push it", "P"}, "Push", &window};
    BenchSwitch twoState{{"switch", "Switch it", {}}, "Switch", &window};
    BenchSegment segment{{"segment", "Segment", {}}, "10", &window};
    BenchTab tab{{"tab", "Tab", {}}, "Tab", &window};
    FaultChip chip{{"chip", "Noise", {}}, "Noise", false, &window};
    FaultChip fault{{"fault", "Silent", {}}, "Silent", true, &window};
};

TEST_F(ButtonsTest, TheMouseSpaceEnterAndScreenReadersPressEachOnce) {
    for (BenchButton* button : All()) {
        clicks = 0;
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(button, Qt::Key_Return);
        QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(button);
        ASSERT_NE(face, nullptr);
        EXPECT_EQ(face->actionInterface()->actionNames().front(), QStringLiteral("Press"));
        face->actionInterface()->doAction(QStringLiteral("Press"));
        EXPECT_EQ(clicks, 5) << button->objectName().toStdString();
    }
}

TEST_F(ButtonsTest, APressAloneLatchesNothing) {
    for (BenchButton* button : {static_cast<BenchButton*>(&twoState), static_cast<BenchButton*>(&segment),
                                static_cast<BenchButton*>(&fault), static_cast<BenchButton*>(&tab)}) {
        ASSERT_TRUE(button->isCheckable());
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(button->isChecked());
    }
}

TEST_F(ButtonsTest, KeysThatAreNoPressGoOnToTheWindow) {
    for (BenchButton* button : All()) {
        button->setFocus();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_P, Qt::Key_Escape}) {
            window.keys.clear();
            QTest::keyClick(button, key);
            EXPECT_EQ(window.keys, std::vector<int>{key});
            EXPECT_TRUE(button->hasFocus() || !button->isActiveWindow());
        }
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonsTest, ScreenReadersAreToldNameRoleStateAndKey) {
    const auto face = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); };
    EXPECT_EQ(face(push)->text(QAccessible::Name), QStringLiteral("Push it"));
    EXPECT_EQ(face(push)->text(QAccessible::Accelerator), QStringLiteral("P"));
    EXPECT_EQ(face(push)->role(), QAccessible::Button);
    EXPECT_EQ(face(twoState)->role(), QAccessible::CheckBox);
    EXPECT_EQ(face(fault)->role(), QAccessible::CheckBox);
    EXPECT_EQ(face(chip)->role(), QAccessible::Button);
    EXPECT_EQ(face(tab)->role(), QAccessible::PageTab);
    EXPECT_FALSE(face(twoState)->state().checked);
    twoState.ShowLatched(true);
    EXPECT_TRUE(face(twoState)->state().checked);
}

TEST_F(ButtonsTest, ADisabledOneIsFlatAndTakesNoPressOfAnyKind) {
    for (BenchButton* button : All()) {
        const QImage before = button->grab().toImage();
        button->setEnabled(false);
        EXPECT_NE(button->grab().toImage(), before) << button->objectName().toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(QStringLiteral("Press"));
    }
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(Pixel(push, 50, 25), palette::OffFace);
}

TEST_F(ButtonsTest, LightAndDarkChangePlacesWhereOneIsLatched) {
    EXPECT_GT(Pixel(twoState, 94, 15).lightness(), 200);
    EXPECT_NE(Pixel(twoState, 8, 15), palette::SimLit);
    twoState.ShowLatched(true);
    EXPECT_LT(Pixel(twoState, 94, 15).lightness(), 90);
    EXPECT_EQ(Pixel(twoState, 8, 15), palette::SimLit);
    twoState.Lit(palette::NeedleColour(3));
    twoState.update();
    EXPECT_EQ(Pixel(twoState, 8, 15), palette::NeedleColour(3));
}

TEST_F(ButtonsTest, AFaultThatIsOnIsRedAndSaysWhatIsLeft) {
    EXPECT_GT(Pixel(fault, 95, 15).lightness(), 200);
    fault.ShowOn(true, QStringLiteral("×3"));
    EXPECT_EQ(fault.Shown(), QStringLiteral("Silent ×3"));
    const QColor face = Pixel(fault, 95, 15);
    EXPECT_GT(face.red(), 2 * face.green());
    fault.ShowOn(false, QStringLiteral("×3"));
    EXPECT_EQ(fault.Shown(), QStringLiteral("Silent"));
}

TEST_F(ButtonsTest, APushStandsDarkForAWhile) {
    const QColor before = Pixel(chip, 95, 15);
    chip.Flash();
    EXPECT_LT(Pixel(chip, 95, 15).lightness(), before.lightness());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Pixel(chip, 95, 15) == before; }, 10 * FaultChip::PushDark));
}

TEST_F(ButtonsTest, TheLineOfTheFocusStandsWhereTheKeyboardIsAndNotAfterAClick) {
    FocusLine line(window);
    for (BenchButton* button : All()) {
        line.Watch(*button);
    }
    QFocusEvent tabbed(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&push, &tabbed);
    EXPECT_EQ(line.Control(), &push);
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.geometry(), push.geometry().adjusted(-4, -4, 4, 4));
    QTest::mouseClick(&push, Qt::LeftButton);
    EXPECT_EQ(line.Control(), nullptr);
    EXPECT_FALSE(line.isVisible());
    QFocusEvent clicked(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(&push, &clicked);
    EXPECT_FALSE(line.isVisible());
    push.setFocus();
    QTest::keyClick(&push, Qt::Key_Up);
    EXPECT_FALSE(line.isVisible());
    QTest::keyClick(&push, Qt::Key_Space);
    EXPECT_TRUE(line.isVisible());
}

}  // namespace
}  // namespace workbench::test
