// What comes to a window after a stand-still of the program, by the stamps that it bears. The way through a
// real X server is walked in tests/accessibility.
#include "platform/qt/QtPresses.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QWindow>
#include <string>
#include <vector>

namespace travo::platform::qt {

namespace {

// Writes down what comes to it.
class Listener : public QWidget {
public:
    std::vector<std::string> came;
    quint64 lastKey = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { came.emplace_back("press"); }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() != Qt::NoButton) {
            came.emplace_back("drag");
        }
    }
    void mouseReleaseEvent(QMouseEvent*) override { came.emplace_back("release"); }
    void mouseDoubleClickEvent(QMouseEvent*) override { came.emplace_back("double click"); }
    void keyPressEvent(QKeyEvent* event) override {
        lastKey = event->timestamp();
        came.emplace_back(event->isAutoRepeat() ? "key again" : "key");
    }
    void keyReleaseEvent(QKeyEvent* event) override {
        came.emplace_back(event->isAutoRepeat() ? "key up again" : "key up");
    }
};

class QtPressesTest : public testing::Test {
protected:
    QtPressesTest() {
        listener_.resize(100, 100);
        listener_.setMouseTracking(true);
        listener_.setFocusPolicy(Qt::StrongFocus);
        listener_.show();
        listener_.activateWindow();
        listener_.setFocus();
        QCoreApplication::processEvents();
        listener_.came.clear();
    }

    // The program stands still from one stamp to another.
    void StandStill(std::uint32_t from, std::uint32_t to) {
        now_ = from;
        presses_.BeginStandStill();
        now_ = to;
        presses_.EndStandStill();
    }
    // What the window system hands over, as it was done at that stamp.
    void Mouse(QEvent::Type type, int stamp, Qt::MouseButton button = Qt::LeftButton) {
        if (type == QEvent::MouseButtonPress) {
            held_.setFlag(button);
        } else if (type == QEvent::MouseButtonRelease) {
            held_.setFlag(button, false);
        }
        const QPoint place(50, 50 + (type == QEvent::MouseMove ? ++moved_ : moved_));
        qt_handleMouseEvent(listener_.windowHandle(), place, listener_.mapToGlobal(place), held_,
                            type == QEvent::MouseMove ? Qt::NoButton : button, type, Qt::NoModifier, stamp);
    }
    void Press(int stamp, Qt::MouseButton button = Qt::LeftButton) {
        Mouse(QEvent::MouseButtonPress, stamp, button);
    }
    void Release(int stamp, Qt::MouseButton button = Qt::LeftButton) {
        Mouse(QEvent::MouseButtonRelease, stamp, button);
    }
    void Key(QEvent::Type type, bool again = false) {
        qt_handleKeyEvent(listener_.windowHandle(), type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "),
                          again);
    }
    // Keys bear the toolkit's own time: the stamp of one that is pressed now, which is later than the last.
    std::uint32_t KeyStamp() {
        const quint64 last = listener_.lastKey;
        while (listener_.lastKey == last) {
            Key(QEvent::KeyPress);
            Key(QEvent::KeyRelease);
        }
        listener_.came.clear();
        return static_cast<std::uint32_t>(listener_.lastKey);
    }
    std::vector<std::string> Take() { return std::exchange(listener_.came, {}); }
    using Came = std::vector<std::string>;

    std::optional<std::uint32_t> now_ = 0;
    QtPresses presses_{[this] { return now_; }};
    Listener listener_;
    Qt::MouseButtons held_;
    int moved_ = 0;
};

TEST_F(QtPressesTest, APressMadeInAStandStillIsDroppedWithItsDragAndItsRelease) {
    StandStill(20000, 21000);
    Press(20500);
    Mouse(QEvent::MouseMove, 20600);
    Release(22000);
    EXPECT_EQ(Take(), Came());
    Mouse(QEvent::MouseMove, 22001);
    Press(23000);
    Mouse(QEvent::MouseMove, 23010);
    Release(23050);
    EXPECT_EQ(Take(), (Came{"press", "drag", "release"})) << "the next one acts";
}

TEST_F(QtPressesTest, WhatWasDoneShortlyBeforeAStandStillAndNotServedYetIsDroppedToo) {
    StandStill(20000, 21000);
    Press(19900);
    Release(19950);
    EXPECT_EQ(Take(), Came());
    Press(10000);
    Release(10050);
    EXPECT_EQ(Take(), (Came{"press", "release"})) << "no stamp of this clock";
}

TEST_F(QtPressesTest, APressMadeAfterTheStandStillActsAlsoWhereOneInItWasDropped) {
    StandStill(20000, 21000);
    Press(21000);
    Release(21000);
    Press(30000);
    Release(30050);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
}

TEST_F(QtPressesTest, TheReleaseOfAButtonThatWasPressedBeforeIsNotDropped) {
    Press(19000, Qt::RightButton);
    StandStill(20000, 21000);
    Press(20100);
    Release(20200);
    Release(20500, Qt::RightButton);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
}

TEST_F(QtPressesTest, ASecondPressThatFollowsADroppedOneIsOnePressAndNoDoubleClick) {
    StandStill(20000, 21000);
    Press(20900);
    Release(20950);
    Press(21050);
    Release(21100);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
    Press(31000);
    Release(31050);
    Press(31100);
    Release(31150);
    EXPECT_EQ(Take(), (Came{"press", "release", "double click", "release"})) << "two after it are one";
}

TEST_F(QtPressesTest, ADoubleClickInAStandStillIsDroppedWhole) {
    StandStill(20000, 21000);
    Press(20100);
    Release(20150);
    Press(20200);
    Release(20250);
    EXPECT_EQ(Take(), Came());
}

TEST_F(QtPressesTest, AKeyMadeInAStandStillIsDroppedWithWhatItRepeatsAndItsRelease) {
    const std::uint32_t before = KeyStamp();
    StandStill(before, before + 1000000);
    Key(QEvent::KeyPress);
    // Now that stamps go on behind the end of the stand-still, the same key is still held down.
    StandStill(before - 1000000, before - 999999);
    Press(static_cast<int>(before));
    Take();
    Key(QEvent::KeyRelease, true);
    Key(QEvent::KeyPress, true);
    Key(QEvent::KeyRelease);
    EXPECT_EQ(Take(), Came());
    Key(QEvent::KeyPress);
    Key(QEvent::KeyRelease);
    EXPECT_EQ(Take(), (Came{"key", "key up"})) << "the next one acts";
}

TEST_F(QtPressesTest, AKeyMadeAfterTheStandStillActs) {
    const std::uint32_t before = KeyStamp();
    StandStill(before - 1, before - 1);
    Key(QEvent::KeyPress);
    Key(QEvent::KeyPress, true);
    Key(QEvent::KeyRelease);
    EXPECT_EQ(Take(), (Came{"key", "key again", "key up"}));
}

TEST_F(QtPressesTest, NoShortcutActsOnAKeyThatIsDropped) {
    const std::uint32_t before = KeyStamp();
    QShortcut shortcut(QKeySequence(Qt::Key_Space), &listener_);
    int acted = 0;
    QObject::connect(&shortcut, &QShortcut::activated, [&] { ++acted; });
    StandStill(before, before + 1000000);
    Key(QEvent::KeyPress);
    Key(QEvent::KeyRelease);
    EXPECT_EQ(acted, 0);
    now_ = std::nullopt;
    presses_.BeginStandStill();
    presses_.EndStandStill();
    Key(QEvent::KeyPress);
    EXPECT_EQ(acted, 1);
}

TEST_F(QtPressesTest, WhereTheWindowSystemTellsNoTimeNothingIsDropped) {
    now_ = std::nullopt;
    presses_.BeginStandStill();
    presses_.EndStandStill();
    Press(20500);
    Release(20600);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
    // And where it tells none any more when the stand-still ends.
    now_ = 0x100;
    presses_.BeginStandStill();
    now_ = std::nullopt;
    presses_.EndStandStill();
    Press(-16);
    Release(-15);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
}

TEST_F(QtPressesTest, AClockThatWrapsInAStandStillDropsAllTheSame) {
    StandStill(0xFFFFFF00U, 0x100U);
    Press(0x10);
    Release(0x20);
    EXPECT_EQ(Take(), Came());
    Press(0x101);
    Release(0x102);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
}

TEST_F(QtPressesTest, WhatIsStillToComeOfOneStandStillIsDroppedAfterTheNext) {
    StandStill(20000, 21000);
    StandStill(31000, 32000);
    Press(20500);
    Release(20600);
    Press(31500);
    Release(31600);
    EXPECT_EQ(Take(), Came());
    Press(32001);
    Release(32002);
    EXPECT_EQ(Take(), (Came{"press", "release"}));
    StandStill(80000, 81000);
    Press(32500);
    Release(32600);
    EXPECT_EQ(Take(), (Came{"press", "release"})) << "all of the first has come by then";
}

TEST_F(QtPressesTest, WhatAssistiveProgramsDoCarriesNoTimeAndPasses) {
    QPushButton button;
    int clicked = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicked; });
    StandStill(1, 2000000000);
    button.click();
    EXPECT_EQ(clicked, 1);
}

}  // namespace

}  // namespace travo::platform::qt
