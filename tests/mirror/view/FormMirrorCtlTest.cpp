#include "mirror/view/FormMirrorCtl.h"

#include "mirror/view/MirrorWindowRig.h"

namespace travo::test {
namespace {

class FormMirrorCtlTest : public MirrorWindowRig {
protected:
    FormMirrorCtlTest() {
        rig.OpenPorts();
        rig.state.CurrentMagnification(2);
        rig.state.bMirrorMotorONOFF = true;
        rig.magnificationTold = [this](std::int16_t magnification) {
            window.ChangeMagnification(magnification);
        };
        rig.instruments.mirrorMotors = [this](std::int16_t ONOFF) { window.checkMotor(ONOFF); };
    }

    usrKVButton& Focus(int index) {
        return *window.findChild<usrKVButton*>(QStringLiteral("usrKVButton2(%1)").arg(index));
    }
    bool PadEnabled() {
        const bool enabled = window.CtlController1.isEnabled();
        EXPECT_EQ(window.CtlController1.PictureShown(), enabled ? 0 : 18);
        return enabled;
    }
    void PadEnabled(bool enabled) { window.CtlController1.ChangeEnable(enabled); }
    // One letter a focus button: e enabled, d disabled.
    std::string FocusStates() {
        std::string states;
        for (int index = 0; index < 4; ++index) {
            states += Focus(index).Enabled() ? 'e' : 'd';
        }
        return states;
    }
    void SetPorts(bool mirror, bool motor) {
        mirror ? rig.communication.MirrorPortOpen(1) : rig.communication.MirrorPortClose();
        motor ? rig.communication.MotorPortOpen(3) : rig.communication.MotorPortClose();
        TakeSent();
    }
    void ClickPad(int area) { QTest::mouseClick(&window.CtlController1, Qt::LeftButton, {}, PadPoint(area)); }
    void Status(int motors, int magnification) {
        rig.MirrorPort().Receive("sSAA0,0,0," + std::to_string(motors) + "," + std::to_string(magnification) +
                                 ",0,0,0\r\n");
    }

    FormMirrorCtl window{{{*this, *this}, rig.state, rig.communication, rig.mirrorMove, rig.display},
                         SkinHome()};
};

// ---- Who is enabled when ----

TEST_F(FormMirrorCtlTest, ActivationGoesByTheTwoPortsTheMotorsAndTheMagnificationForEveryState) {
    for (int state = 0; state < 64; ++state) {
        const bool mirror = (state & 1) != 0;
        const bool motor = (state & 2) != 0;
        const bool before = (state & 4) != 0;
        const auto magnification = static_cast<std::int16_t>(state >> 3 & 3);
        SetPorts(mirror, motor);
        rig.state.bMirrorMotorONOFF = (state & 32) != 0;
        rig.state.CurrentMagnification(magnification);
        PadEnabled(before);
        window.Activated();
        EXPECT_EQ(PadEnabled(), mirror && rig.state.bMirrorMotorONOFF && magnification != 1) << state;
        EXPECT_EQ(FocusStates(), motor ? "eeee" : "dddd") << state;
    }
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtlTest, ChangeMagnificationGoesByTheMotorsAndTheMagnificationForEveryState) {
    for (int state = 0; state < 16; ++state) {
        rig.state.bMirrorMotorONOFF = (state & 1) != 0;
        SetPorts((state & 2) != 0, (state & 4) != 0);
        for (const std::int16_t magnification : std::to_array<std::int16_t>({0, 1, 2, 3, 4, -1})) {
            PadEnabled((state & 8) != 0);
            window.ChangeMagnification(magnification);
            EXPECT_EQ(PadEnabled(), rig.state.bMirrorMotorONOFF && magnification != 1)
                << state << " " << magnification;
        }
    }
    EXPECT_EQ(FocusStates(), "eeee");
}

TEST_F(FormMirrorCtlTest, CheckMotorGoesByItsValueAndThePresentMagnificationForEveryState) {
    for (int state = 0; state < 64; ++state) {
        rig.state.bMirrorMotorONOFF = (state & 1) != 0;
        SetPorts((state & 2) != 0, (state & 4) != 0);
        rig.state.CurrentMagnification(static_cast<std::int16_t>(state >> 4));
        for (const std::int16_t ONOFF : std::to_array<std::int16_t>({0, 1, 2, -1, 32767})) {
            PadEnabled((state & 8) != 0);
            window.checkMotor(ONOFF);
            EXPECT_EQ(PadEnabled(), ONOFF != 0 && state >> 4 != 1) << state << " " << ONOFF;
        }
    }
    EXPECT_EQ(FocusStates(), "eeee");
}

TEST_F(FormMirrorCtlTest, AtMagnificationIndex1ThePadIsDisabledAndAPressOnItDoesNothingWhateverTheMotors) {
    window.ShowWindow();
    for (const bool on : {true, false}) {
        rig.state.bMirrorMotorONOFF = on;
        for (int step = 0; step < 3; ++step) {
            PadEnabled(true);
            rig.state.CurrentMagnification(1);
            if (step == 1) {
                window.Activated();
            } else if (step == 2) {
                window.checkMotor(on ? 1 : 0);
            }
            EXPECT_FALSE(PadEnabled());
            TakeSent();
            for (int area = 1; area <= 17; ++area) {
                ClickPad(area);
            }
            EXPECT_EQ(TakeSent(), Sent{});
        }
    }
    EXPECT_EQ(moves, 0) << "a press on the disabled pad is none on the ground";
}

TEST_F(FormMirrorCtlTest, WithTheMirrorsMotorsOffThePadIsDisabled) {
    window.ShowWindow();
    EXPECT_TRUE(PadEnabled());
    Status(0, 2);
    EXPECT_FALSE(PadEnabled());
    Status(0, 3);
    EXPECT_FALSE(PadEnabled());
    TakeSent();
    ClickPad(1);
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtlTest, WithTheMirrorsMotorsOffThePadStaysDisabledWhenTheWindowComesToTheFront) {
    window.ShowWindow();
    Status(0, 2);
    QEvent event(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &event);
    EXPECT_FALSE(PadEnabled());
    TakeSent();
    ClickPad(1);
    EXPECT_EQ(TakeSent(), Sent{});
    Status(1, 2);
    EXPECT_TRUE(PadEnabled());
}

TEST_F(FormMirrorCtlTest, AStatusLineThatChangesTheMagnificationFrom1To2EnablesThePadAtOnce) {
    window.ShowWindow();
    Status(1, 1);
    EXPECT_FALSE(PadEnabled());
    Status(1, 2);
    EXPECT_TRUE(PadEnabled());
    TakeSent();
    ClickPad(2);
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A10", "1 cD2A-10"}));
}

TEST_F(FormMirrorCtlTest, AStatusLineThatChangesTheMagnificationWithTheMotorsOffDoesNotEnableThePad) {
    window.ShowWindow();
    Status(0, 1);
    Status(0, 2);
    EXPECT_FALSE(PadEnabled());
    Status(1, 2);
    EXPECT_TRUE(PadEnabled());
}

TEST_F(FormMirrorCtlTest, WithTheMotorPortClosedTheFourFocusButtonsAreDisabledAtActivation) {
    SetPorts(true, false);
    EXPECT_EQ(FocusStates(), "eeee");
    window.ShowWindow();
    EXPECT_EQ(FocusStates(), "dddd");
    SetPorts(true, true);
    EXPECT_EQ(FocusStates(), "dddd");
    QEvent event(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &event);
    EXPECT_EQ(FocusStates(), "eeee");
}

TEST_F(FormMirrorCtlTest, AMirrorPortThatClosesAfterActivationLetsThePadReactAndSendsNothing) {
    window.ShowWindow();
    rig.communication.MirrorPortClose();
    TakeSent();
    QTest::mousePress(&window.CtlController1, Qt::LeftButton, {}, PadPoint(8));
    EXPECT_EQ(window.CtlController1.PictureShown(), 8);
    QTest::mouseRelease(&window.CtlController1, Qt::LeftButton, {}, PadPoint(8));
    EXPECT_EQ(window.CtlController1.PictureShown(), 0);
    EXPECT_EQ(TakeSent(), Sent{});
}

// ---- Presses ----

TEST_F(FormMirrorCtlTest, EveryFocusButtonMovesTheFocusByItsOwnAmount) {
    window.ShowWindow();
    const char* const sent[] = {"3 RELMOVEZ1000", "3 RELMOVEZ100", "3 RELMOVEZ-100", "3 RELMOVEZ-1000"};
    for (int index = 0; index < 4; ++index) {
        QTest::mouseClick(&Focus(index), Qt::LeftButton);
        EXPECT_EQ(TakeSent(), Sent{sent[index]});
        QTest::keyClick(&Focus(index), Qt::Key_Space);
        EXPECT_EQ(TakeSent(), Sent{sent[index]});
        Actions(Focus(index)).doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(TakeSent(), Sent{sent[index]});
    }
}

TEST_F(FormMirrorCtlTest, AFocusButtonWithTheMotorPortClosedSendsNothing) {
    window.ShowWindow();
    rig.communication.MotorPortClose();
    rig.journal.clear();
    for (int index = 0; index < 4; ++index) {
        QTest::mouseClick(&Focus(index), Qt::LeftButton);
    }
    EXPECT_EQ(rig.journal, Journal{});
}

TEST_F(FormMirrorCtlTest, ItsCreationDoesNothing) {
    rig.journal.clear();
    const FormMirrorCtl second({{*this, *this}, rig.state, rig.communication, rig.mirrorMove, rig.display},
                               SkinHome());
    EXPECT_EQ(rig.journal, Journal{});
    EXPECT_TRUE(second.isHidden());
}

TEST_F(FormMirrorCtlTest, ThePadsKeysAndActionsWorkInTheWindow) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.CtlController1.setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A10"});
    EXPECT_TRUE(window.CtlController1.hasFocus()) << "an arrow does not carry the focus away";
    Actions(window.CtlController1).doAction(QStringLiteral("Inner lower left"));
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A-1", "1 cD2A1"}));
}

// Space would move the objective.
TEST_F(FormMirrorCtlTest, APadThatIsDisabledHandsTheFocusToNoOtherControlAndTakesItBack) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.CtlController1.setFocus(Qt::TabFocusReason);
    for (int turn = 0; turn < 2; ++turn) {
        window.checkMotor(0);
        window.checkMotor(0);
        EXPECT_EQ(window.focusWidget(), nullptr);
        TakeSent();
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QTest::keyClick(window.windowHandle(), Qt::Key_Up);
        EXPECT_EQ(TakeSent(), Sent{});
        window.checkMotor(1);
        EXPECT_TRUE(window.CtlController1.hasFocus());
        QTest::keyClick(window.windowHandle(), Qt::Key_Up);
        EXPECT_EQ(TakeSent(), Sent{"1 cD1A1"});
    }
    window.checkMotor(0);
    Focus(2).setFocus();
    window.checkMotor(1);
    EXPECT_TRUE(Focus(2).hasFocus());
    window.checkMotor(0);
    window.checkMotor(1);
    EXPECT_TRUE(Focus(2).hasFocus());
}

TEST_F(FormMirrorCtlTest, APadThatIsDisabledTakesTheFocusBackAlsoWhenTheWindowHasComeToTheFrontMeanwhile) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.CtlController1.setFocus(Qt::TabFocusReason);
    Status(0, 2);
    QEvent event(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &event);
    EXPECT_EQ(window.focusWidget(), &window);
    Status(1, 2);
    EXPECT_TRUE(window.CtlController1.hasFocus());
}

// ---- The window ----

TEST_F(FormMirrorCtlTest, CloseTellsTheOwnerNumberTwo) { ExpectCloseTells(window, 2); }

TEST_F(FormMirrorCtlTest, SizeSetsWidthAndHeightBackToTheDesignValues) {
    ExpectSizeBringsBack(window, {276, 222});
}

TEST_F(FormMirrorCtlTest, APressOnTheBackgroundMovesTheWindowAndOneOnThePadsCornerDoesNot) {
    window.ShowWindow();
    PressAt(window, {184, 100});
    PressAt(window, {60, 16});
    PressAt(window, {100, 215});
    EXPECT_EQ(moves, 3);
    TakeSent();
    PressAt(window, {15, 48});
    EXPECT_EQ(moves, 3);
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtlTest, DraggingACornerResizesTheWindowAndItsControlsFollowItsProportions) {
    DragToTwice(window, {276, 222});
    EXPECT_EQ(window.CtlController1.geometry(), QRect(24, 90, 330, 330));
    EXPECT_EQ(Focus(3).geometry(), QRect(382, 348, 146, 72));
    for (int area = 1; area <= 17; ++area) {
        QTest::mousePress(&window.CtlController1, Qt::LeftButton, {}, PadPoint(area) * 2);
        EXPECT_EQ(window.CtlController1.PictureShown(), area);
        QTest::mouseRelease(&window.CtlController1, Qt::LeftButton, {}, {});
    }
}

TEST_F(FormMirrorCtlTest, EveryControlStandsInItsPlace) {
    window.ShowWindow();
    EXPECT_EQ(window.size(), QSize(276, 222));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Mirror and focus"));
    ExpectPlace(window, QStringLiteral("CtlController1"), {12, 45, 165, 165});
    const char* const skins[] = {"MirrorUp2", "MirrorUp", "MirrorDown", "MirrorDown2"};
    for (int index = 0; index < 4; ++index) {
        ExpectPlace(window, QStringLiteral("usrKVButton2(%1)").arg(index), {191, 45 + 43 * index, 73, 36});
        EXPECT_EQ(Focus(index).path(), QLatin1String(skins[index]));
    }
}

}  // namespace
}  // namespace travo::test
