#include "mirror/CtlController.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <set>

#include "controls/SkinImage.h"
#include "core/Arithmetic.h"
#include "mirror/MirrorWindowBench.h"
#include "support/LogTexts.h"

namespace travo::test {
namespace {

// From (0, 0) on port 1; Y before X.
const std::array<std::vector<std::string>, 18> SentByArea{{{},
                                                           {"1 cD1A10"},
                                                           {"1 cD1A10", "1 cD2A-10"},
                                                           {"1 cD2A-10"},
                                                           {"1 cD1A-10", "1 cD2A-10"},
                                                           {"1 cD1A-10"},
                                                           {"1 cD1A-10", "1 cD2A10"},
                                                           {"1 cD2A10"},
                                                           {"1 cD1A10", "1 cD2A10"},
                                                           {"1 cD1A1"},
                                                           {"1 cD1A1", "1 cD2A-1"},
                                                           {"1 cD2A-1"},
                                                           {"1 cD1A-1", "1 cD2A-1"},
                                                           {"1 cD1A-1"},
                                                           {"1 cD1A-1", "1 cD2A1"},
                                                           {"1 cD2A1"},
                                                           {"1 cD1A1", "1 cD2A1"},
                                                           {"1 cD2A0", "1 cD1A0"}}};

class CtlControllerTest : public MirrorWindowBench {
protected:
    CtlControllerTest() {
        rig.OpenPorts();
        window.resize(400, 400);
        pad.move(20, 20);
        other.setGeometry(200, 20, 100, 40);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void Press(int area) { QTest::mousePress(&pad, Qt::LeftButton, {}, PadPoint(area)); }
    void ReleaseAt(const QPoint& place) { QTest::mouseRelease(&pad, Qt::LeftButton, {}, place); }
    void Click(int area) {
        Press(area);
        ReleaseAt(PadPoint(area));
    }
    void Key(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, bool repeats = false) {
        QKeyEvent event(type, key, modifiers, QString(), repeats);
        QApplication::sendEvent(&pad, &event);
    }
    void Move(const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, QPointF(place), QPointF(pad.mapToGlobal(place)), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QApplication::sendEvent(&pad, &event);
    }

    QWidget window;
    CtlController pad{{rig.communication, rig.mirrorMove, display}, SkinHome(), &window};
    usrKVButton other{&window};
};

// ---- The mouse ----

TEST_F(CtlControllerTest, EveryAreaShowsItsPictureWhileHeldAndSendsItsMovesOnRelease) {
    for (int area = 0; area <= 17; ++area) {
        EXPECT_EQ(pad.PictureShown(), 0);
        Press(area);
        EXPECT_EQ(pad.PictureShown(), area);
        EXPECT_EQ(TakeSent(), Sent{}) << area;
        ReleaseAt(PadPoint(area));
        EXPECT_EQ(pad.PictureShown(), 0) << area;
        EXPECT_EQ(TakeSent(), SentByArea.at(static_cast<std::size_t>(area))) << area;
    }
}

TEST_F(CtlControllerTest, APressAtTheCentreAndAReleaseAnywhereElseSendsTheMirrorToTheCentre) {
    for (const QPoint& place : {PadPoint(1), PadPoint(12), PadPoint(0), QPoint(500, -300)}) {
        Press(17);
        Move(place, Qt::LeftButton);
        EXPECT_EQ(pad.PictureShown(), 17);
        ReleaseAt(place);
        EXPECT_EQ(TakeSent(), (Sent{"1 cD2A0", "1 cD1A0"}));
    }
}

TEST_F(CtlControllerTest, APressExactlyOnARadiusOf27Point5FromTheCentreIsArea17AndOneAt82Point6MakesNoMove) {
    const auto click = [this](const QPointF& place) {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, pad.mapToGlobal(place), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(&pad, &event);
        }
        return TakeSent();
    };
    EXPECT_EQ(click({109.5, 82}), (Sent{"1 cD2A0", "1 cD1A0"}));
    EXPECT_EQ(click({164.6, 82}), Sent{});
    EXPECT_EQ(click({164.5, 82}), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, HoldingDoesNotRepeat) {
    Press(1);
    for (int turn = 0; turn < 50; ++turn) {
        Move(PadPoint(1) + QPoint(turn % 3, 0), Qt::LeftButton);
        QApplication::processEvents();
    }
    EXPECT_TRUE(pad.findChildren<QTimer*>().isEmpty());
    EXPECT_EQ(TakeSent(), Sent{});
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerTest, TwoQuickClicksAreTwoMoves) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, pad.pos() + PadPoint(9));
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A1", "1 cD1A1"}));
}

TEST_F(CtlControllerTest, OnlyTheLeftButtonPresses) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(&pad, button, {}, PadPoint(1));
        EXPECT_EQ(pad.PictureShown(), 0);
        QTest::mouseRelease(&pad, button, {}, PadPoint(1));
    }
    EXPECT_EQ(TakeSent(), Sent{});
    Press(1);
    QTest::mousePress(&pad, Qt::RightButton, {}, PadPoint(5));
    QTest::mouseRelease(&pad, Qt::RightButton, {}, PadPoint(5));
    EXPECT_EQ(pad.PictureShown(), 1);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerTest, AReleaseWithoutAPressDoesNothing) {
    Click(1);
    TakeSent();
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

// A message box takes the release for itself.
TEST_F(CtlControllerTest, APressWhoseReleaseIsLostIsDropped) {
    Press(1);
    Move(PadPoint(1), Qt::NoButton);
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerTest, APressThatLosesTheFocusOrTheWindowIsDropped) {
    Press(1);
    other.setFocus();
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    Press(1);
    pad.hide();
    EXPECT_EQ(pad.PictureShown(), 0);
    pad.show();
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

// ---- Ports, limits, failures ----

TEST_F(CtlControllerTest, WithTheMirrorPortClosedThePicturesReactAndNoCommandGoesOut) {
    rig.communication.MirrorPortClose();
    TakeSent();
    rig.state.CurrentXY(180, 180);
    for (int area = 1; area <= 17; ++area) {
        Press(area);
        EXPECT_EQ(pad.PictureShown(), area);
        ReleaseAt(PadPoint(area));
        EXPECT_EQ(pad.PictureShown(), 0);
    }
    EXPECT_EQ(TakeSent(), Sent{});
    EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST_F(CtlControllerTest, Area2AtY180ShowsMovementLimitYAndThenStillMakesTheXMove) {
    rig.state.CurrentXY(5, 180);
    rig.boxes.whileShown = [this] { EXPECT_EQ(pad.PictureShown(), 0); };
    Click(2);
    EXPECT_EQ(rig.journal, (Journal{"box Movement limit Y", "port 1 > cD2A-5\r"}));
    EXPECT_TRUE(LogTexts(rig.log).isEmpty());
}

TEST_F(CtlControllerTest, Area4AtTheOtherEndOfBothAxesShowsBothLimits) {
    rig.state.CurrentXY(-180, -175);
    Click(4);
    EXPECT_EQ(rig.journal, (Journal{"box Movement limit Y", "box Movement limit X"}));
}

TEST_F(CtlControllerTest, AStepMayEndExactlyAtTheLimit) {
    rig.state.CurrentXY(-179, 170);
    Click(1);
    Click(11);
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A180", "1 cD2A-180"}));
}

TEST_F(CtlControllerTest, TheLimitBoxDoesNotKeepThePadFromBeingDisabledMeanwhile) {
    rig.state.CurrentXY(0, 180);
    rig.boxes.whileShown = [this] { pad.ChangeEnable(false); };
    Click(2);
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
    EXPECT_EQ(pad.PictureShown(), 18);
}

TEST_F(CtlControllerTest, AFailureOfAMoveGoesUpAndLeavesThePadAtRest) {
    rig.state.CurrentXYZ(1, INT32_MAX);
    Press(1);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(82, 15), QPointF(82, 15), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    EXPECT_THROW(static_cast<QObject&>(pad).event(&release), OverflowFailure);
    EXPECT_EQ(pad.PictureShown(), 0);
}

// ---- Enabled and disabled ----

TEST_F(CtlControllerTest, InADisabledPanelAPressDoesNothingAndAReleaseOfItDoesNothing) {
    pad.ChangeEnable(false);
    EXPECT_EQ(pad.PictureShown(), 18);
    for (int area = 0; area <= 17; ++area) {
        Press(area);
        EXPECT_EQ(pad.PictureShown(), 18);
        ReleaseAt(PadPoint(area));
    }
    EXPECT_EQ(TakeSent(), Sent{});
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 0);
    Press(3);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, APressInADisabledPanelDoesNothingAlsoWhenThePanelIsEnabledBeforeItsRelease) {
    pad.ChangeEnable(false);
    Press(1);
    pad.ChangeEnable(true);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerTest, APadThatIsDisabledWhileItIsHeldDropsThePress) {
    Press(1);
    pad.ChangeEnable(false);
    EXPECT_EQ(pad.PictureShown(), 18);
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    Key(QEvent::KeyPress, Qt::Key_Up);
    pad.ChangeEnable(false);
    pad.ChangeEnable(true);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

// The controller's status lines come while the operator holds the pad.
TEST_F(CtlControllerTest, APadThatIsEnabledOnceMoreWhileItIsHeldKeepsThePress) {
    Press(1);
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 1);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

// ---- The keyboard ----

struct KeyCase {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::int16_t area;
};

TEST_F(CtlControllerTest, ArrowsPressTheInnerRingWithShiftTheOuterOneAndHomeTheCentre) {
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

TEST_F(CtlControllerTest, OtherKeysAndOtherModifiersAreNotThePads) {
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

TEST_F(CtlControllerTest, AKeyThatIsHeldDoesNotRepeat) {
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

TEST_F(CtlControllerTest, ThePressedKeysAreaCountsWhateverElseIsPressedMeanwhile) {
    Key(QEvent::KeyPress, Qt::Key_Up, Qt::ShiftModifier);
    Key(QEvent::KeyPress, Qt::Key_Left);
    Key(QEvent::KeyRelease, Qt::Key_Left);
    EXPECT_EQ(pad.PictureShown(), 1);
    // Shift has been let go before the arrow.
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerTest, AKeyDoesNotDisturbThePressOfTheMouse) {
    Press(3);
    Key(QEvent::KeyPress, Qt::Key_Up);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, TheMouseTakesOverFromAKey) {
    Key(QEvent::KeyPress, Qt::Key_Up);
    Press(3);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, AKeyThatLosesTheFocusIsDropped) {
    pad.setFocus();
    Key(QEvent::KeyPress, Qt::Key_Up);
    other.setFocus();
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerTest, TheKeyboardReachesThePadByTabAndShowsItsLine) {
    other.setFocus();
    QTest::keyClick(&other, Qt::Key_Backtab);
    ASSERT_TRUE(pad.hasFocus());
    const auto line = [this] { return window.grab().toImage().pixelColor(20 + 82, 20 - 3); };
    EXPECT_EQ(line(), palette::Ink);
    QTest::mouseClick(&pad, Qt::LeftButton, {}, PadPoint(0));
    EXPECT_NE(line(), palette::Ink);
}

TEST_F(CtlControllerTest, AKeyOnADisabledPadDoesNothing) {
    pad.ChangeEnable(false);
    Key(QEvent::KeyPress, Qt::Key_Up);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

// ---- Assistive programs ----

TEST_F(CtlControllerTest, EveryAreaIsAnActionOfItsName) {
    QAccessibleActionInterface& actions = Actions(pad);
    const QStringList names = actions.actionNames();
    ASSERT_EQ(names.size(), 18);
    EXPECT_EQ(names.back(), QAccessibleActionInterface::setFocusAction());
    for (int area = 1; area <= 17; ++area) {
        const QString name = names.at(area - 1);
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

TEST_F(CtlControllerTest, AnActionDoesNothingOnAPadThatAClickWouldNotReach) {
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

TEST_F(CtlControllerTest, AssistiveProgramsAreToldWhatThePadIsAndThatItIsHeld) {
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

// ---- Sizes and scales ----

TEST_F(CtlControllerTest, WhenItIsResizedThePictureIsASquareOfTheSmallerSideAtTheUpperLeft) {
    for (const QSize& size : {QSize(330, 330), QSize(330, 380), QSize(390, 330)}) {
        pad.resize(size);
        for (int area = 0; area <= 17; ++area) {
            QTest::mousePress(&pad, Qt::LeftButton, {}, PadPoint(area) * 2);
            EXPECT_EQ(pad.PictureShown(), area);
            ReleaseAt({0, 0});
        }
        // Beside the square.
        for (const QPoint& place : {QPoint(165, 340), QPoint(340, 165)}) {
            QTest::mousePress(&pad, Qt::LeftButton, {}, place);
            EXPECT_EQ(pad.PictureShown(), 0);
            ReleaseAt(place);
        }
        const QImage shot = pad.grab().toImage();
        pad.resize(330, 330);
        EXPECT_EQ(shot.copy(0, 0, 330, 330), pad.grab().toImage());
    }
}

TEST_F(CtlControllerTest, OnADisplayOfAnotherScaleTheSamePlacesHitTheSameAreas) {
    for (const double units : {12.0, 10.0, 7.5, 20.0}) {
        display.horizontal = units;
        display.vertical = units;
        for (int area = 0; area <= 17; ++area) {
            Press(area);
            EXPECT_EQ(pad.PictureShown(), area) << units;
            ReleaseAt({0, 0});
        }
    }
}

// ---- Pictures ----

TEST_F(CtlControllerTest, EachOfThe19StatesHasItsOwnPictureOfTheSkin) {
    std::set<QByteArray> seen;
    const auto see = [&](int number) {
        SkinImage picture(&window);
        picture.path(QStringLiteral("pad-%1").arg(number, 2, 10, QLatin1Char('0')));
        picture.inipath(SkinHome());
        picture.resize(165, 165);
        const QImage shot = pad.grab().toImage();
        EXPECT_EQ(shot, picture.grab().toImage()) << number;
        seen.insert(QByteArray(reinterpret_cast<const char*>(shot.constBits()),
                               static_cast<qsizetype>(shot.sizeInBytes())));
    };
    for (int area = 0; area <= 17; ++area) {
        Press(area);
        see(area);
        ReleaseAt(PadPoint(area));
        see(0);
    }
    pad.ChangeEnable(false);
    see(18);
    EXPECT_EQ(seen.size(), 19U);
}

TEST_F(CtlControllerTest, WithoutPicturesAPlainOneBearsItsName) {
    CtlController plain({rig.communication, rig.mirrorMove, display}, QString(), &window);
    plain.setAccessibleName(QStringLiteral("Mirror pad"));
    const QImage shot = plain.grab().toImage();
    std::set<QRgb> colours;
    for (int x = 0; x < 165; ++x) {
        colours.insert(shot.pixel(x, 82));
    }
    EXPECT_GT(colours.size(), 3U);
}

}  // namespace
}  // namespace travo::test
