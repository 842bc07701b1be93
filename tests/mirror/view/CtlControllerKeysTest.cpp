// The pad without a mouse: keys, and what assistive programs do.
#include "mirror/view/CtlController.h"
#include "mirror/view/CtlControllerRig.h"

namespace travo::test {
namespace {

// ---- The keyboard ----

using CtlControllerKeysTest = CtlControllerRig;

struct KeyCase {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::int16_t area;
};

TEST_F(CtlControllerKeysTest, ArrowsPressTheInnerRingWithShiftTheOuterOneAndHomeTheCentre) {
    for (const auto& [key, modifiers, area] :
         {KeyCase{Qt::Key_Up, {}, 9}, KeyCase{Qt::Key_Right, {}, 11}, KeyCase{Qt::Key_Down, {}, 13},
          KeyCase{Qt::Key_Left, {}, 15}, KeyCase{Qt::Key_Home, {}, 17},
          KeyCase{Qt::Key_Up, Qt::ShiftModifier, 1}, KeyCase{Qt::Key_Right, Qt::ShiftModifier, 3},
          KeyCase{Qt::Key_Down, Qt::ShiftModifier, 5}, KeyCase{Qt::Key_Left, Qt::ShiftModifier, 7},
          KeyCase{Qt::Key_Up, Qt::KeypadModifier, 9}, KeyCase{Qt::Key_Home, Qt::KeypadModifier, 17},
          KeyCase{Qt::Key_Left, Qt::ShiftModifier | Qt::KeypadModifier, 7}}) {
        Key(QEvent::KeyPress, key, modifiers);
        EXPECT_EQ(pad.PictureShown(), area);
        EXPECT_EQ(TakeSent(), Sent{});
        Key(QEvent::KeyRelease, key, modifiers);
        EXPECT_EQ(pad.PictureShown(), 0);
        EXPECT_EQ(TakeSent(), SentByArea.at(static_cast<std::size_t>(area))) << area;
    }
}

TEST_F(CtlControllerKeysTest, OtherKeysAndOtherModifiersAreNotThePads) {
    for (const auto& [key, modifiers, area] :
         {KeyCase{Qt::Key_Up, Qt::ControlModifier, 0}, KeyCase{Qt::Key_Up, Qt::AltModifier, 0},
          KeyCase{Qt::Key_Up, Qt::ShiftModifier | Qt::ControlModifier, 0},
          KeyCase{Qt::Key_Home, Qt::ShiftModifier, 0}, KeyCase{Qt::Key_Space, {}, 0},
          KeyCase{Qt::Key_Return, {}, 0}, KeyCase{Qt::Key_End, {}, 0}, KeyCase{Qt::Key_A, {}, 0}}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&pad, &press);
        EXPECT_FALSE(press.isAccepted()) << key;
        EXPECT_EQ(pad.PictureShown(), area);
        Key(QEvent::KeyRelease, key, modifiers);
    }
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerKeysTest, AKeyThatIsHeldDoesNotRepeat) {
    Key(QEvent::KeyPress, Qt::Key_Up);
    for (int turn = 0; turn < 20; ++turn) {
        Key(QEvent::KeyRelease, Qt::Key_Up, {}, true);
        Key(QEvent::KeyPress, Qt::Key_Up, {}, true);
    }
    EXPECT_EQ(pad.PictureShown(), 9);
    EXPECT_EQ(TakeSent(), Sent{});
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A1"});
}

TEST_F(CtlControllerKeysTest, ThePressedKeysAreaCountsWhateverElseIsPressedMeanwhile) {
    Key(QEvent::KeyPress, Qt::Key_Up, Qt::ShiftModifier);
    Key(QEvent::KeyPress, Qt::Key_Left);
    Key(QEvent::KeyRelease, Qt::Key_Left);
    EXPECT_EQ(pad.PictureShown(), 1);
    // Shift has been let go before the arrow.
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerKeysTest, AKeyDoesNotDisturbThePressOfTheMouse) {
    Press(3);
    Key(QEvent::KeyPress, Qt::Key_Up);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerKeysTest, TheMouseTakesOverFromAKey) {
    Key(QEvent::KeyPress, Qt::Key_Up);
    Press(3);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerKeysTest, AKeyThatLosesTheFocusIsDropped) {
    pad.setFocus();
    Key(QEvent::KeyPress, Qt::Key_Up);
    other.setFocus();
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerKeysTest, TheKeyboardReachesThePadByTabAndShowsItsLine) {
    other.setFocus();
    QTest::keyClick(&other, Qt::Key_Backtab);
    ASSERT_TRUE(pad.hasFocus());
    const auto line = [this] { return window.grab().toImage().pixelColor(20 + 82, 20 - 3); };
    EXPECT_EQ(line(), palette::Ink);
    QTest::mouseClick(&pad, Qt::LeftButton, {}, PadPoint(0));
    EXPECT_NE(line(), palette::Ink);
}

TEST_F(CtlControllerKeysTest, AKeyOnADisabledPadDoesNothing) {
    pad.ChangeEnable(false);
    Key(QEvent::KeyPress, Qt::Key_Up);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

// ---- Assistive programs ----

TEST_F(CtlControllerKeysTest, EveryAreaIsAnActionOfItsName) {
    QAccessibleActionInterface& actions = Actions(pad);
    const QStringList names = actions.actionNames();
    ASSERT_EQ(names.size(), 18);
    EXPECT_EQ(names.back(), QAccessibleActionInterface::setFocusAction());
    for (int area = 1; area <= 17; ++area) {
        const QString& name = names.at(area - 1);
        EXPECT_EQ(name, PadAreaName(static_cast<std::int16_t>(area)));
        EXPECT_EQ(actions.localizedActionName(name), name);
        EXPECT_EQ(actions.localizedActionDescription(name), PadAreaHelp(static_cast<std::int16_t>(area)));
        actions.doAction(name);
        EXPECT_EQ(TakeSent(), SentByArea.at(static_cast<std::size_t>(area))) << name.toStdString();
        EXPECT_EQ(pad.PictureShown(), 0);
        EXPECT_TRUE(pad.hasFocus());
    }
    other.setFocus();
    actions.doAction(names.back());
    EXPECT_TRUE(pad.hasFocus());
    actions.doAction(QStringLiteral("Outer"));
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerKeysTest, AnActionDoesNothingOnAPadThatAClickWouldNotReach) {
    QAccessibleActionInterface& actions = Actions(pad);
    const QString centre = QStringLiteral("Centre");
    pad.ChangeEnable(false);
    actions.doAction(centre);
    pad.ChangeEnable(true);
    pad.hide();
    actions.doAction(centre);
    pad.show();
    {
        const ModalBox box;
        actions.doAction(centre);
    }
    EXPECT_EQ(TakeSent(), Sent{});
    actions.doAction(centre);
    EXPECT_EQ(TakeSent().size(), 2U);
}

TEST_F(CtlControllerKeysTest, AssistiveProgramsAreToldWhatThePadIsAndThatItIsHeld) {
    pad.setAccessibleName(QStringLiteral("Mirror pad"));
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&pad);
    EXPECT_EQ(access->role(), QAccessible::Canvas);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("Mirror pad"));
    EXPECT_TRUE(access->state().focusable);
    EXPECT_FALSE(access->state().pressed);
    Press(17);
    EXPECT_TRUE(access->state().pressed);
    ReleaseAt(PadPoint(17));
    pad.ChangeEnable(false);
    EXPECT_TRUE(access->state().disabled);
}

}  // namespace
}  // namespace travo::test
