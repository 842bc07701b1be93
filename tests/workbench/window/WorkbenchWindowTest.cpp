#include "workbench/window/WorkbenchWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <vector>

#include "workbench/commands/Bench.h"
#include "workbench/window/BenchButton.h"
#include "workbench/window/BenchSwitch.h"
#include "workbench/window/LessonCard.h"
#include "workbench/window/NumberRead.h"
#include "workbench/window/TruthLine.h"

namespace workbench {

namespace {

// The window on a bench whose time stands where the test puts it.
class Rig : public ::testing::Test {
protected:
    void Press(const char* name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }
    QAbstractButton& Button(const char* name) {
        auto* const button = window.findChild<QAbstractButton*>(QString::fromLatin1(name));
        EXPECT_NE(button, nullptr) << name;
        return *button;
    }
    TruthLine& Line() { return dynamic_cast<TruthLine&>(Part("truth_line")); }
    QWidget& Part(const char* name) { return *window.findChild<QWidget*>(QString::fromLatin1(name)); }
    QRect PlaceOf(const char* name) {
        QWidget& part = Part(name);
        return {part.mapTo(&window, QPoint(0, 0)), part.size()};
    }
    std::string Answer(const std::string& line) { return bench.commands.Answer(line, now); }
    void Rest() {
        now += std::chrono::seconds(10);
        window.Refresh();
    }
    bool Said(const std::string& line) { return std::count(said.begin(), said.end(), line) > 0; }
    int TimesSaid(const std::string& line) {
        return static_cast<int>(std::count(said.begin(), said.end(), line));
    }
    // What the window says and the bench answers while a wire is open there.
    std::string AnswerAsIfOpen(const std::string& line) {
        std::string answer = Answer(line);
        if (line == "wire list" && isOpen) {
            answer.back() = '1';
        }
        return answer;
    }

    Time now = std::chrono::seconds(1);
    bool isOpen = false;
    Bench bench;
    std::vector<std::string> said;
    QTemporaryDir folder;
    WindowMemory memory{folder.filePath(QStringLiteral("window.ini"))};
    WorkbenchWindow window{[this](const std::string& line) {
                               said.push_back(line);
                               return AnswerAsIfOpen(line);
                           },
                           memory};
};

}  // namespace

using WorkbenchWindowTest = Rig;

TEST_F(WorkbenchWindowTest, IsCalledTheWorkbenchAndBearsTheWordForScreenReaders) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Workbench - simulated instruments"));
    EXPECT_TRUE(window.accessibleName().contains(QStringLiteral("WORKBENCH")));
    EXPECT_FALSE(window.windowIcon().pixmap(48).isNull());
}

TEST_F(WorkbenchWindowTest, EveryPlateStandsWhereTheLayoutPutsIt) {
    window.resize(1280, 860);
    window.show();
    EXPECT_EQ(PlaceOf("headerStrip"), QRect(0, 0, 1280, 44));
    EXPECT_EQ(PlaceOf("lessonCard"), QRect(12, 52, 252, 544));
    EXPECT_EQ(PlaceOf("joystickPlate"), QRect(916, 52, 352, 252));
    EXPECT_EQ(PlaceOf("mirrorPlate"), QRect(916, 312, 352, 178));
    EXPECT_EQ(PlaceOf("focusPlate"), QRect(916, 498, 352, 98));
    EXPECT_EQ(PlaceOf("trafficPlate"), QRect(12, 604, 617, 244));
    EXPECT_EQ(PlaceOf("faultPlate"), QRect(637, 604, 631, 244));
    EXPECT_FALSE(Part("tab_joystick").isVisible());
    window.resize(1024, 700);
    EXPECT_EQ(PlaceOf("lessonCard"), QRect(8, 46, 204, 430));
    EXPECT_EQ(PlaceOf("joystickPlate"), QRect(664, 80, 352, 292));
    EXPECT_EQ(PlaceOf("faultPlate"), QRect(463, 482, 553, 210));
    EXPECT_TRUE(Part("tab_joystick").isVisible());
}

TEST_F(WorkbenchWindowTest, InASmallWindowTwoTabsShareTheRightColumnAndTheirKeysWorkAllTheSame) {
    window.resize(1024, 700);
    window.show();
    EXPECT_TRUE(Part("joystickPlate").isVisible());
    EXPECT_FALSE(Part("mirrorPlate").isVisible());
    Press("tab_mirror");
    EXPECT_FALSE(Part("joystickPlate").isVisible());
    EXPECT_FALSE(Part("focusPlate").isVisible());
    EXPECT_TRUE(Part("mirrorPlate").isVisible());
    QTest::keyClick(&window, Qt::Key_Up);
    EXPECT_TRUE(Said("world jog 1 100 0 0"));
}

TEST_F(WorkbenchWindowTest, EveryButtonSaysALineThatTheBenchTakes) {
    window.resize(1280, 860);
    window.show();
    int pressed = 0;
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        Answer("fault clear");
        Answer("mirror motors on");
        Rest();
        if (!button->isVisible() || !button->isEnabled() ||
            button->objectName() == QLatin1String("ergoMore") ||
            button->objectName() == QLatin1String("asNew")) {
            continue;
        }
        QTest::mouseClick(button, Qt::LeftButton);
        const QString line = Line().Text();
        for (const std::string& each : said) {
            EXPECT_FALSE(AnswerAsIfOpen(each).starts_with("error not ")) << each;
        }
        EXPECT_EQ(line.indexOf(QLatin1String("not known")), -1) << button->objectName().toStdString();
        said.clear();
        ++pressed;
    }
    EXPECT_GT(pressed, 55);
}

TEST_F(WorkbenchWindowTest, ALineThatIsRefusedSaysWhyUnderThePlan) {
    window.show();
    Answer("mirror motors off");
    window.Refresh();
    Answer("fault count 0");
    window.Refresh();
    Press("key");
    const std::string refusal = Answer("hardware select 1");
    ASSERT_TRUE(refusal.starts_with("error "));
    EXPECT_EQ(Line().Text().toStdString(), refusal.substr(6));
}

TEST_F(WorkbenchWindowTest, AHeldKeyJogsUntilItIsLetGoAndTheKeyboardsOwnRepeatsDoNothing) {
    window.show();
    QTest::keyPress(&window, Qt::Key_Up);
    EXPECT_TRUE(Button("xPlus").isDown());
    for (int turn = 0; turn < 5; ++turn) {
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, {}, true);
        QApplication::sendEvent(&window, &repeat);
    }
    EXPECT_EQ(TimesSaid("world jog 1 100 0 0"), 1);
    now += std::chrono::seconds(10);
    EXPECT_TRUE(QTest::qWaitFor([this] { return TimesSaid("world jog 1 100 0 0") == 2; }));
    QTest::keyRelease(&window, Qt::Key_Up);
    EXPECT_FALSE(Button("xPlus").isDown());
    now += std::chrono::seconds(10);
    QTest::qWait(300);
    EXPECT_EQ(TimesSaid("world jog 1 100 0 0"), 2);
}

TEST_F(WorkbenchWindowTest, ShiftMakesTheStepOfAKeyATenth) {
    QTest::keyPress(&window, Qt::Key_Shift);
    EXPECT_TRUE(Button("fine").isChecked());
    QTest::keyClick(&window, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyRelease(&window, Qt::Key_Shift);
    EXPECT_FALSE(Button("fine").isChecked());
    EXPECT_TRUE(Said("world jog 1 0 -10 0"));
    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Said("focus jog 100"));
    EXPECT_TRUE(Said("focus jog -10"));
}

TEST_F(WorkbenchWindowTest, KeysWorkWhereverTheFocusIs) {
    window.resize(1280, 860);
    window.show();
    for (QWidget* part : window.findChildren<QWidget*>()) {
        if (part->focusPolicy() == Qt::NoFocus || !part->isVisible() || !part->isEnabled() ||
            part->objectName() == QLatin1String("pad") ||
            part->objectName() == QLatin1String("traffic_list")) {
            continue;
        }
        said.clear();
        part->setFocus();
        QTest::keyClick(part, Qt::Key_Right);
        EXPECT_TRUE(Said("world jog 1 0 100 0")) << part->objectName().toStdString();
    }
}

TEST_F(WorkbenchWindowTest, KeysChooseNeedleStepAndObjective) {
    QTest::keyClick(&window, Qt::Key_3);
    EXPECT_TRUE(Button("pick3").isChecked());
    QTest::keyClicks(&window, QStringLiteral("]"));
    EXPECT_TRUE(Button("step1000").isChecked());
    QTest::keyClick(&window, Qt::Key_PageDown);
    EXPECT_TRUE(Said("world jog 3 0 0 1000"));
    QTest::keyClick(&window, Qt::Key_3, Qt::ControlModifier);
    EXPECT_TRUE(Said("magnification 3"));
    QTest::keyClick(&window, Qt::Key_P);
    EXPECT_TRUE(Said("world move 3 9500 12500 12500"));
    QTest::keyClick(&window, Qt::Key_H);
    EXPECT_TRUE(Said("hardware select 3"));
}

TEST_F(WorkbenchWindowTest, EscapeEndsAllFaults) {
    Answer("fault gauge silent on");
    window.Refresh();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(Answer("fault list"), "ok");
}

TEST_F(WorkbenchWindowTest, TheCardIsHiddenAndShownAndThatIsKept) {
    window.resize(1280, 860);
    window.show();
    EXPECT_TRUE(Button("lesson").isChecked());
    Press("lesson_close");
    EXPECT_FALSE(Part("lessonCard").isVisible());
    EXPECT_FALSE(Button("lesson").isChecked());
    EXPECT_FALSE(memory.Read().isCardShown);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_TRUE(Part("lessonCard").isVisible());
    EXPECT_TRUE(memory.Read().isCardShown);
}

TEST_F(WorkbenchWindowTest, SizeAndPlaceAreFoundAgain) {
    window.setGeometry(40, 50, 1024, 780);
    window.show();
    window.close();
    const WorkbenchWindow next([this](const std::string& line) { return Answer(line); }, memory);
    EXPECT_EQ(next.size(), QSize(1024, 780));
}

TEST_F(WorkbenchWindowTest, ClosingAsksWhileAPortIsOpenAndNoHasTheFocus) {
    window.show();
    isOpen = true;
    QString asked;
    QString focused;
    const auto answerBox = [&](QMessageBox::StandardButton button) {
        QTimer::singleShot(0, &window, [&, button] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            asked = box->text();
            focused = box->defaultButton()->text();
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        });
    };
    answerBox(QMessageBox::No);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(asked, QStringLiteral("TRAVO is connected. End the instruments?"));
    EXPECT_TRUE(focused.contains(QLatin1String("No")));
    answerBox(QMessageBox::Yes);
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(WorkbenchWindowTest, ClosingAsksNothingWhileNoPortIsOpen) {
    window.show();
    EXPECT_TRUE(window.close());
}

TEST_F(WorkbenchWindowTest, ReadsFasterWhileSomethingMovesAndNotAtAllWhileItIsHidden) {
    window.show();
    QTest::qWait(100);
    said.clear();
    // Nothing moves: the bench's time stands still, but for this needle, which is under way for ever.
    Answer("world move 1 25000 12500 12500");
    ASSERT_TRUE(QTest::qWaitFor([this] { return TimesSaid("world moving") >= 10; }, 20000));
    window.hide();
    said.clear();
    QTest::qWait(3 * WorkbenchWindow::SlowPeriod);
    EXPECT_EQ(said.size(), 0U);
}

TEST_F(WorkbenchWindowTest, EveryControlHasANameOfItsOwnForScreenReaders) {
    window.resize(1280, 860);
    window.show();
    std::vector<QString> names;
    for (const QWidget* part : window.findChildren<QWidget*>()) {
        const auto* const told = dynamic_cast<const Told*>(part);
        if (told != nullptr && told->AccessibleRole() != QAccessible::ListItem && part->isVisible()) {
            EXPECT_FALSE(part->accessibleName().isEmpty()) << part->objectName().toStdString();
            names.push_back(part->accessibleName());
        }
    }
    EXPECT_GT(names.size(), 80U);
    // A list bears its card's name, and the switch of the card as well.
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    EXPECT_TRUE(twice == names.end() || *twice == QStringLiteral("First ten minutes"))
        << twice->toStdString();
}

}  // namespace workbench
