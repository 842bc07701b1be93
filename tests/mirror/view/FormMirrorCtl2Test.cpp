#include "mirror/view/FormMirrorCtl2.h"

#include "mirror/view/MirrorWindowRig.h"

namespace travo::test {
namespace {

constexpr int On = 3;
constexpr int Off = 4;

class FormMirrorCtl2Test : public MirrorWindowRig {
protected:
    FormMirrorCtl2Test() {
        rig.OpenPorts();
        rig.state.CurrentMagnification(2);
        rig.state.bMirrorMotorONOFF = true;
        rig.magnificationTold = [this](std::int16_t magnification) {
            window.ChangeMagnification(magnification);
        };
        rig.instruments.mirrorMotors = [this](std::int16_t ONOFF) { window.checkMotor(ONOFF); };
    }

    usrKVCheckButton& Button(int index) {
        return *window.findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton1(%1)").arg(index));
    }
    // One letter a button: P pressed in, r raised; a blank behind the first group.
    std::string Values() {
        std::string values;
        for (int index = 0; index < 5; ++index) {
            values += index == On ? " " : "";
            values += Button(index).Value() ? 'P' : 'r';
        }
        return values;
    }
    // Likewise: e enabled, d disabled.
    std::string States() {
        std::string states;
        for (int index = 0; index < 5; ++index) {
            states += index == On ? " " : "";
            states += Button(index).Enabled() ? 'e' : 'd';
        }
        return states;
    }
    void Set(const std::string& values) {
        std::string packed = values;
        packed.erase(3, 1);
        for (int index = 0; index < 5; ++index) {
            Button(index).SetRaised(packed.at(static_cast<std::size_t>(index)) == 'r');
        }
    }
    void EnableAll(bool enabled) {
        for (int index = 0; index < 5; ++index) {
            Button(index).Enabled(enabled);
        }
    }
    void SetPort(bool open) {
        open ? rig.communication.MirrorPortOpen(1) : rig.communication.MirrorPortClose();
        TakeSent();
    }
    Sent Click(int index) {
        TakeSent();
        QTest::mouseClick(&Button(index), Qt::LeftButton);
        return TakeSent();
    }
    void Status(int motors, int magnification) {
        rig.MirrorPort().Receive("sSAA0,0,0," + std::to_string(motors) + "," + std::to_string(magnification) +
                                 ",0,0,0\r\n");
    }

    // Made while the ports are closed, as at every start.
    FormMirrorCtl2 window{{{*this, *this}, rig.state, rig.communication}, SkinHome()};
};

// ---- Creation ----

TEST_F(FormMirrorCtl2Test, CreationWithTheMirrorPortClosedDoesNothing) {
    EXPECT_EQ(Values(), "rrr rr");
    EXPECT_EQ(States(), "eee ee");
    EXPECT_TRUE(window.isHidden());
    SetPort(false);
    rig.journal.clear();
    const FormMirrorCtl2 second({{*this, *this}, rig.state, rig.communication}, SkinHome());
    EXPECT_EQ(rig.journal, Journal{});
}

TEST_F(FormMirrorCtl2Test, CreationWithTheMirrorPortOpenSwitchesTheMotorsOn) {
    rig.journal.clear();
    const FormMirrorCtl2 second({{*this, *this}, rig.state, rig.communication}, SkinHome());
    EXPECT_EQ(TakeSent(), Sent{"1 cPMS1"});
    const auto value = [&second](int index) {
        return second.findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton1(%1)").arg(index))
            ->Value();
    };
    EXPECT_TRUE(value(On));
    EXPECT_FALSE(value(Off));
}

// ---- Activation ----

TEST_F(FormMirrorCtl2Test, ActivationGoesByPortMotorsAndMagnificationForEveryState) {
    for (int state = 0; state < 32; ++state) {
        const bool open = (state & 1) != 0;
        const bool motors = (state & 2) != 0;
        const int magnification = state >> 3;
        SetPort(open);
        rig.state.bMirrorMotorONOFF = motors;
        rig.state.CurrentMagnification(static_cast<std::int16_t>(magnification));
        for (const char* const before : {"rrr rr", "Prr Pr", "rPr rP", "rrP Pr"}) {
            Set(before);
            EnableAll((state & 4) != 0);
            window.Activated();
            EXPECT_EQ(States(), !open ? "ddd dd" : motors ? "eee ee" : "ddd ee") << state;
            const std::string own = std::string(before).substr(0, 3);
            EXPECT_EQ(Values().substr(0, 3), magnification == 2   ? "rPr"
                                             : magnification == 3 ? "rrP"
                                                                  : own)
                << state << " from " << before;
            EXPECT_EQ(Values().substr(4), std::string(before).substr(4)) << state;
        }
    }
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtl2Test, ActivationPassesIndex1Over) {
    rig.state.CurrentMagnification(1);
    Set("rrr Pr");
    window.Activated();
    EXPECT_EQ(Values(), "rrr Pr");
    Set("rrP Pr");
    window.Activated();
    EXPECT_EQ(Values(), "rrP Pr");
}

TEST_F(FormMirrorCtl2Test, ComingToTheFrontIsActivation) {
    EnableAll(false);
    window.ShowWindow();
    EXPECT_EQ(States(), "eee ee");
    EXPECT_EQ(Values(), "rPr rr");
    SetPort(false);
    QEvent event(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &event);
    EXPECT_EQ(States(), "ddd dd");
}

// ---- Presses ----

TEST_F(FormMirrorCtl2Test, EveryMagnificationButtonPressesItselfRaisesTheOthersAndSendsItsMagnification) {
    window.ShowWindow();
    const char* const sent[] = {"1 cMAG1", "1 cMAG2", "1 cMAG3"};
    const char* const after[] = {"Prr", "rPr", "rrP"};
    for (const char* const before : {"rrr Pr", "Prr Pr", "rPr Pr", "rrP Pr", "PPP Pr", "rrP rP"}) {
        for (int index = 0; index < 3; ++index) {
            Set(before);
            EXPECT_EQ(Click(index), Sent{sent[index]}) << before;
            EXPECT_EQ(Values(), after[index] + std::string(before).substr(3)) << before;
        }
    }
}

TEST_F(FormMirrorCtl2Test, OnAndOffPressThemselvesRaiseTheOtherAndSwitchTheMotors) {
    window.ShowWindow();
    for (const char* const before : {"rPr rr", "rPr Pr", "rPr rP", "rPr PP"}) {
        Set(before);
        EXPECT_EQ(Click(On), Sent{"1 cPMS1"}) << before;
        EXPECT_EQ(Values(), "rPr Pr") << before;
        Set(before);
        EXPECT_EQ(Click(Off), Sent{"1 cPMS0"}) << before;
        EXPECT_EQ(Values(), "rPr rP") << before;
    }
}

TEST_F(FormMirrorCtl2Test, APressOnAButtonThatIsPressedInKeepsItPressedInAndSendsAgain) {
    window.ShowWindow();
    EXPECT_EQ(Click(2), Sent{"1 cMAG3"});
    EXPECT_EQ(Click(2), Sent{"1 cMAG3"});
    EXPECT_EQ(Click(On), Sent{"1 cPMS1"});
    EXPECT_EQ(Click(On), Sent{"1 cPMS1"});
    EXPECT_EQ(Values(), "rrP Pr");
}

TEST_F(FormMirrorCtl2Test, APressOnAMagnificationButtonWithThePortClosedSendsNothingAndDoesNotStayDown) {
    window.ShowWindow();
    SetPort(false);
    for (int index = 0; index < 5; ++index) {
        Set("rrr rr");
        EXPECT_EQ(Click(index), Sent{});
        EXPECT_EQ(Values(), "rrr rr") << index;
    }
}

// The rule is for the pressed button alone.
TEST_F(FormMirrorCtl2Test, APressWithThePortClosedRaisesTheButtonAndLeavesTheOthers) {
    window.ShowWindow();
    SetPort(false);
    Set("rPr Pr");
    EXPECT_EQ(Click(1), Sent{});
    EXPECT_EQ(Values(), "rrr Pr");
    Set("rPr Pr");
    EXPECT_EQ(Click(2), Sent{});
    EXPECT_EQ(Values(), "rPr Pr");
    EXPECT_EQ(Click(Off), Sent{});
    EXPECT_EQ(Values(), "rPr Pr");
}

TEST_F(FormMirrorCtl2Test, KeysAndAccessibleActionsPressAsTheMouseDoes) {
    window.ShowWindow();
    TakeSent();
    QTest::keyClick(&Button(0), Qt::Key_Space);
    EXPECT_EQ(TakeSent(), Sent{"1 cMAG1"});
    Actions(Button(2)).doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(TakeSent(), Sent{"1 cMAG3"});
    Actions(Button(Off)).doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(TakeSent(), Sent{"1 cPMS0"});
    EXPECT_EQ(Values(), "rrP rP");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Button(0))->role(), QAccessible::CheckBox);
}

TEST_F(FormMirrorCtl2Test, ADisabledButtonTakesNoPress) {
    rig.state.bMirrorMotorONOFF = false;
    window.ShowWindow();
    EXPECT_EQ(Click(2), Sent{});
    EXPECT_EQ(Values(), "rPr rr");
    EXPECT_EQ(moves, 0);
}

// ---- What the instruments tell ----

TEST_F(FormMirrorCtl2Test, ChangeMagnificationMovesTheSelectionForEveryValue) {
    for (const char* const before : {"rrr Pr", "Prr rP", "rPr rr", "PPP Pr"}) {
        for (const auto& [magnification, after] : {std::pair<std::int16_t, const char*>{1, "Prr"},
                                                   {2, "rPr"},
                                                   {3, "rrP"},
                                                   {0, "rrr"},
                                                   {4, "rrr"},
                                                   {-1, "rrr"}}) {
            Set(before);
            window.ChangeMagnification(magnification);
            EXPECT_EQ(Values(), after + std::string(before).substr(3)) << before << " " << magnification;
        }
    }
    EXPECT_EQ(States(), "eee ee");
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtl2Test, CheckMotorSetsOnAndOffAndEnablesForEveryState) {
    for (int state = 0; state < 64; ++state) {
        SetPort((state & 1) != 0);
        rig.state.bMirrorMotorONOFF = (state & 2) != 0;
        rig.state.CurrentMagnification(static_cast<std::int16_t>(state >> 4));
        for (const char* const before : {"rPr rr", "rPr Pr", "Prr rP"}) {
            for (const std::int16_t ONOFF : std::to_array<std::int16_t>({0, 1, 2, -1, 32767})) {
                Set(before);
                EnableAll((state & 4) != 0);
                window.checkMotor(ONOFF);
                const std::string own = std::string(before).substr(4);
                EXPECT_EQ(Values(), std::string(before).substr(0, 4) + (ONOFF == 1   ? "Pr"
                                                                        : ONOFF == 0 ? "rP"
                                                                                     : own))
                    << state << " " << before << " " << ONOFF;
                EXPECT_EQ(States(), ONOFF != 0 ? "eee ee" : "ddd ee") << state << " " << ONOFF;
            }
        }
    }
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(FormMirrorCtl2Test, CheckMotorWith2EnablesTheMagnificationButtonsAndLeavesOnAndOffAsTheyWere) {
    for (const char* const before : {"rPr Pr", "rPr rP"}) {
        window.checkMotor(0);
        Set(before);
        window.checkMotor(2);
        EXPECT_EQ(Values(), before);
        EXPECT_EQ(States(), "eee ee");
    }
}

TEST_F(FormMirrorCtl2Test, WithTheMirrorsMotorsOffTheThreeMagnificationButtonsAreDisabled) {
    window.ShowWindow();
    Status(0, 2);
    EXPECT_EQ(States(), "ddd ee");
    EXPECT_EQ(Values(), "rPr rP");
    window.Activated();
    EXPECT_EQ(States(), "ddd ee");
    Status(1, 2);
    EXPECT_EQ(States(), "eee ee");
    EXPECT_EQ(Values(), "rPr Pr");
}

TEST_F(FormMirrorCtl2Test, AStatusLineMovesTheSelectionToTheMagnificationThatTheControllerReports) {
    window.ShowWindow();
    EXPECT_EQ(Click(2), Sent{"1 cMAG3"});
    Status(1, 1);
    EXPECT_EQ(Values(), "Prr Pr");
    Status(1, 3);
    EXPECT_EQ(Values(), "rrP Pr");
    EXPECT_EQ(TakeSent(), Sent{}) << "what is told is not commanded back";
}

// Space would switch the motors.
TEST_F(FormMirrorCtl2Test, MagnificationButtonsThatAreDisabledDoNotHandTheFocusToOn) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (int index = 0; index < 3; ++index) {
        window.checkMotor(1);
        Button(index).setFocus();
        window.checkMotor(0);
        EXPECT_EQ(window.focusWidget(), nullptr) << index;
    }
    Button(Off).setFocus();
    window.checkMotor(1);
    window.checkMotor(0);
    EXPECT_TRUE(Button(Off).hasFocus());
}

TEST_F(FormMirrorCtl2Test, WhicheverButtonGoesOffTheFocusGoesToNone) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.checkMotor(1);
    for (int index = 0; index < 5; ++index) {
        for (const bool isHidden : {false, true}) {
            Button(index).setFocus();
            ASSERT_TRUE(Button(index).hasFocus());
            isHidden ? Button(index).hide() : Button(index).setEnabled(false);
            EXPECT_EQ(window.focusWidget(), nullptr) << index;
            TakeSent();
            QTest::keyClick(window.windowHandle(), Qt::Key_Space);
            EXPECT_EQ(TakeSent(), Sent{});
            isHidden ? Button(index).show() : Button(index).setEnabled(true);
        }
    }
    EXPECT_TRUE(closed.empty());
}

// Qt would give it to CLOSE.
TEST_F(FormMirrorCtl2Test, AWindowWithoutAFocusGivesItToNoButtonWhenItComesToTheFront) {
    window.ShowWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.checkMotor(1);
    Button(1).setFocus();
    Button(1).setEnabled(false);
    ModalBox box;
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    box.hide();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(window.focusWidget(), &window);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(closed.empty());
}

// ---- The window ----

TEST_F(FormMirrorCtl2Test, CloseTellsTheOwnerNumberFour) { ExpectCloseTells(window, 4); }

TEST_F(FormMirrorCtl2Test, SizeSetsWidthAndHeightBackToTheDesignValues) {
    ExpectSizeBringsBack(window, {276, 192});
}

TEST_F(FormMirrorCtl2Test, APressOnTheBackgroundMovesTheWindow) {
    window.ShowWindow();
    PressAt(window, {95, 80});
    PressAt(window, {60, 16});
    PressAt(window, {40, 123});
    EXPECT_EQ(moves, 3);
}

TEST_F(FormMirrorCtl2Test, DraggingACornerResizesTheWindowAndItsControlsFollowItsProportions) {
    DragToTwice(window, {276, 192});
    EXPECT_EQ(Button(1).geometry(), QRect(196, 116, 160, 100));
    EXPECT_EQ(Button(Off).geometry(), QRect(282, 268, 246, 92));
}

TEST_F(FormMirrorCtl2Test, EveryControlStandsInItsPlace) {
    window.ShowWindow();
    EXPECT_EQ(window.size(), QSize(276, 192));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Magnification"));
    const char* const skins[] = {"ctlmag035", "ctlmag2", "ctlmag4", "On", "Off"};
    for (int index = 0; index < 3; ++index) {
        ExpectPlace(window, QStringLiteral("usrKVCheckButton1(%1)").arg(index),
                    {12 + 86 * index, 58, 80, 50});
    }
    ExpectPlace(window, QStringLiteral("usrKVCheckButton1(3)"), {12, 134, 123, 46});
    ExpectPlace(window, QStringLiteral("usrKVCheckButton1(4)"), {141, 134, 123, 46});
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(Button(index).path(), QLatin1String(skins[index]));
    }
}

}  // namespace
}  // namespace travo::test
