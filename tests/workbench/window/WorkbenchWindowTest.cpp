#include "workbench/window/WorkbenchWindow.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "workbench/commands/Bench.h"

namespace workbench {

namespace {

// The window on a bench whose time stands where the test puts it.
struct Desk {
    void Press(const char* name) {
        auto* button = window.findChild<QPushButton*>(QString::fromLatin1(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    std::string Shown(const char* name) {
        return window.findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
    }
    bool PressedIn(const char* name) {
        return window.findChild<QPushButton*>(QString::fromLatin1(name))->isChecked();
    }

    Time now = std::chrono::seconds(1);
    Bench bench;
    WorkbenchWindow window{[this](const std::string& line) { return bench.commands.Answer(line, now); }};
};

}  // namespace

TEST(WorkbenchWindow, BearsTheWordWorkbenchInTitleAndPicture) {
    Desk desk;
    EXPECT_EQ(desk.window.windowTitle(), QStringLiteral("WORKBENCH"));
    bool visible = false;
    for (const QLabel* label : desk.window.findChildren<QLabel*>()) {
        visible = visible || label->text().startsWith(QStringLiteral("WORKBENCH"));
    }
    EXPECT_TRUE(visible);
}

TEST(WorkbenchWindow, TheJoystickMovesTheChosenNeedleByTheChosenStep) {
    Desk desk;
    desk.Press("Needle 3");
    auto* step = desk.window.findChild<QComboBox*>(QStringLiteral("Needle step"));
    step->setCurrentIndex(step->findData(1000));
    desk.Press("Needle X +");
    desk.now += std::chrono::seconds(10);
    desk.Press("Needle Z -");
    desk.now += std::chrono::seconds(10);
    EXPECT_EQ(desk.bench.world.CountsNow(2, desk.now), (travo::PositionXYZ{10500, 12500, 11500}));
    EXPECT_EQ(desk.bench.world.CountsNow(0, desk.now), (travo::PositionXYZ{9500, 12500, 12500}));
    EXPECT_EQ(desk.Shown("answer"), "world jog 3 0 0 -1000: ok");
}

TEST(WorkbenchWindow, MirrorMagnificationAndFocusAreWorkedAndShown) {
    Desk desk;
    desk.Press("Mirror X +");
    desk.Press("Mirror Y -");
    desk.Press("4x");
    desk.Press("Focus up");
    desk.now += std::chrono::seconds(10);
    desk.window.Refresh();
    EXPECT_EQ(desk.Shown("mirror state"), "5.000 -5.000 5.000 -5.000 1 0 0");
    EXPECT_EQ(desk.Shown("magnification"), "3");
    EXPECT_EQ(desk.Shown("focus state"), "10.000 10.000 1000 1000");
    desk.Press("Gauge zero");
    EXPECT_EQ(desk.Shown("gauge state"), "0.000 10.000");
    desk.Press("Mirror motors off");
    desk.Press("Mirror centre");
    EXPECT_EQ(desk.Shown("answer"), "mirror move 0 0: error the mirror's motors are off");
}

TEST(WorkbenchWindow, ALastingFaultIsAButtonThatStaysPressedInWhoeverSetsIt) {
    Desk desk;
    desk.Press("mirror silent");
    EXPECT_EQ(desk.Shown("fault list"), "mirror:silent");
    EXPECT_TRUE(desk.PressedIn("mirror silent"));
    desk.bench.commands.Answer("fault gauge garbage on", desk.now);
    desk.window.Refresh();
    EXPECT_TRUE(desk.PressedIn("gauge garbage"));
    EXPECT_FALSE(desk.PressedIn("gauge silent"));
    desk.Press("mirror silent");
    EXPECT_FALSE(desk.PressedIn("mirror silent"));
    desk.Press("Clear all faults");
    EXPECT_FALSE(desk.PressedIn("gauge garbage"));
    EXPECT_EQ(desk.Shown("fault list"), "");
}

TEST(WorkbenchWindow, EveryButtonSaysALineThatTheWorkbenchTakes) {
    Desk desk;
    int pressed = 0;
    for (QPushButton* button : desk.window.findChildren<QPushButton*>()) {
        desk.bench.commands.Answer("fault clear", desk.now);
        desk.bench.commands.Answer("mirror motors on", desk.now);
        desk.window.Refresh();
        QTest::mouseClick(button, Qt::LeftButton);
        const std::string answer = desk.Shown("answer");
        EXPECT_TRUE(answer.empty() || answer.ends_with(": ok")) << answer;
        ++pressed;
    }
    EXPECT_GT(pressed, 50);
}

TEST(WorkbenchWindow, EveryButtonIsLarge) {
    Desk desk;
    desk.window.show();
    for (const QPushButton* button : desk.window.findChildren<QPushButton*>()) {
        EXPECT_GE(button->height(), 40) << button->text().toStdString();
        EXPECT_GE(button->width(), 80) << button->text().toStdString();
    }
}

}  // namespace workbench
