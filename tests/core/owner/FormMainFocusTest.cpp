// Where the keyboard goes on when the control that has the focus goes off.
#include <gmock/gmock.h>

#include "controls/FocusMark.h"
#include "core/owner/FormMainRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

class FormMainFocusTest : public FormMainRig {
protected:
    std::string Focused() const {
        const QWidget* const focused = window_->focusWidget();
        return focused == nullptr ? "none" : focused->accessibleName().toStdString();
    }
    // The controls of a panel that can have the focus now.
    QList<QWidget*> Focusable(int tab) {
        QList<QWidget*> all;
        for (QWidget* const control : Panel(tab).findChildren<QWidget*>()) {
            if (control->focusPolicy() != Qt::NoFocus && control->isEnabled() && control->isVisible()) {
                all << control;
            }
        }
        return all;
    }
    void StepMode() {
        Open(User);
        Click(*PanelOf<CtlUser>(*window_).findChild<QWidget*>(QStringLiteral("usrKVCheckButton3(1)")));
        ASSERT_TRUE(Picture(0).isHidden());
    }
    QWidget& StepButton(int index) {
        return *window_->findChild<QWidget*>(QStringLiteral("usrKVButton2(%1)").arg(index),
                                             Qt::FindDirectChildrenOnly);
    }
    QWidget& UserButton() {
        return *window_->findChild<QWidget*>(QStringLiteral("usrKVCheckButton1"), Qt::FindDirectChildrenOnly);
    }
    static bool ShowsFocus(const QWidget& control) {
        return control.findChild<FocusMark*>(QString(), Qt::FindDirectChildrenOnly)->IsShown();
    }
    // What has gone to an instrument.
    Journal Sent() {
        Journal sent;
        for (const std::string& entry : std::exchange(journal_, {})) {
            if (entry.find(" > ") != std::string::npos || entry.rfind("Driver", 0) == 0) {
                sent.push_back(entry);
            }
        }
        return sent;
    }
};

TEST_F(FormMainFocusTest, AKeyPressedAfterAStatusLineThatSwitchesTheFocusedButtonOffSendsNothing) {
    window_->State().CellPosition(1, 0, 10);
    for (const auto& [motors, magnification] : {std::pair(0, 2), std::pair(1, 1), std::pair(0, 1)}) {
        int wentOff = 0;
        Status(1, 2);
        for (QWidget* const control : Focusable(Experiment)) {
            Status(1, 2);
            control->setFocus(Qt::TabFocusReason);
            ASSERT_TRUE(control->hasFocus()) << control->accessibleName().toStdString();
            Status(motors, magnification);
            if (control->isEnabled()) {
                continue;
            }
            ++wentOff;
            EXPECT_EQ(window_->focusWidget(), &Picture(Experiment))
                << control->accessibleName().toStdString() << " gave it to " << Focused();
            journal_.clear();
            Key(Qt::Key_Space);
            EXPECT_EQ(Sent(), Journal{}) << control->accessibleName().toStdString();
        }
        EXPECT_GE(wentOff, magnification == 1 ? 3 : 1);
    }
    EXPECT_TRUE(driver_.moves.empty());
}

TEST_F(FormMainFocusTest, WhicheverControlOfAPanelGoesOffTheFocusGoesToThePanelsTab) {
    for (const int tab : {Experiment, Calibration, CellPosition, Escape, Connection, User}) {
        Open(tab);
        const QList<QWidget*> controls = Focusable(tab);
        ASSERT_GE(controls.size(), 5) << tab;
        for (QWidget* const control : controls) {
            for (const bool isHidden : {false, true}) {
                control->setFocus(Qt::TabFocusReason);
                ASSERT_TRUE(control->hasFocus());
                isHidden ? control->hide() : control->setEnabled(false);
                EXPECT_EQ(window_->focusWidget(), &Picture(tab))
                    << control->accessibleName().toStdString() << " gave it to " << Focused();
                EXPECT_TRUE(ShowsFocus(Picture(tab)));
                isHidden ? control->show() : control->setEnabled(true);
            }
        }
    }
}

TEST_F(FormMainFocusTest, InStepModeItGoesToAStepButtonThatIsEnabled) {
    StepMode();
    const std::array<int, 5> order{Connection, Calibration, Escape, CellPosition, Experiment};
    for (int step = 0; step < 5; ++step) {
        for (QWidget* const control : Focusable(order.at(static_cast<std::size_t>(step)))) {
            control->setFocus(Qt::TabFocusReason);
            control->setEnabled(false);
            EXPECT_EQ(window_->focusWidget(), &StepButton(step == 4 ? 0 : 1))
                << control->accessibleName().toStdString() << " gave it to " << Focused();
            control->setEnabled(true);
        }
        Click(StepButton(1));
    }
    Click(UserButton());
    for (QWidget* const control : Focusable(User)) {
        control->setFocus(Qt::TabFocusReason);
        control->hide();
        EXPECT_EQ(window_->focusWidget(), &UserButton()) << "both step buttons are off";
        control->show();
    }
}

TEST_F(FormMainFocusTest, AtTheFirstAndTheLastStepItGoesFromTheButtonThatGoesOffToTheOther) {
    StepMode();
    EXPECT_EQ(window_->focusWidget(), &StepButton(1))
        << "the button that was pressed has gone with its panel";
    StepButton(1).setFocus(Qt::TabFocusReason);
    for (int step = 1; step <= 4; ++step) {
        Key(Qt::Key_Space);
        EXPECT_EQ(Focused(), step < 4 ? "Next" : "Previous") << step;
    }
    for (int step = 3; step >= 0; --step) {
        Key(Qt::Key_Space);
        EXPECT_EQ(Focused(), step > 0 ? "Previous" : "Next") << step;
    }
    EXPECT_EQ(Sent(), Journal{});
}

TEST_F(FormMainFocusTest, ComingBackToStepModeTheFocusIsOnTheOneThatIsEnabledAtStepZero) {
    StepMode();
    for (int step = 0; step < 4; ++step) {
        Click(StepButton(1));
    }
    Click(UserButton());
    Click(*PanelOf<CtlUser>(*window_).findChild<QWidget*>(QStringLiteral("usrKVCheckButton3(0)")));
    EXPECT_EQ(window_->focusWidget(), &Picture(Experiment));
    StepMode();
    EXPECT_FALSE(StepButton(0).isEnabled());
    EXPECT_EQ(window_->focusWidget(), &StepButton(1));
}

TEST_F(FormMainFocusTest, AfterSpaceTheFocusStaysOnTheTabThatWasPressedAndIsSeenThere) {
    for (const int from : {Experiment, Calibration, CellPosition, Escape, Connection, User}) {
        for (const int to : {Experiment, Calibration, CellPosition, Escape, Connection, User}) {
            if (from == to) {
                continue;
            }
            Open(from);
            QWidget& pressed = Tab(to);
            pressed.setFocus(Qt::TabFocusReason);
            Key(Qt::Key_Space);
            ASSERT_TRUE(Panel(to).isVisible());
            EXPECT_EQ(window_->focusWidget(), &Picture(to)) << from << " to " << to << ": " << Focused();
            EXPECT_TRUE(ShowsFocus(Picture(to)));
        }
    }
}

TEST_F(FormMainFocusTest, AClickOnATabLeavesTheFocusThereWithoutALine) {
    for (const int tab : {User, Experiment, CellPosition, Escape, Connection, Calibration}) {
        Open(tab);
        EXPECT_EQ(window_->focusWidget(), &Picture(tab));
        EXPECT_FALSE(ShowsFocus(Picture(tab)));
    }
}

TEST_F(FormMainFocusTest, WorkedByKeysNoCaptureAndNoSetHandsTheFocusToAnAct) {
    Open(Calibration);
    for (const char letter : {'A', 'B', 'C'}) {
        Button(Calibration, QStringLiteral("Position ") + QLatin1Char(letter)).setFocus(Qt::TabFocusReason);
        Key(Qt::Key_Space);
        EXPECT_EQ(Focused(), letter == 'C' ? "Calibration" : std::string("Position ") + letter);
    }
    QAbstractButton& z = Button(Calibration, QStringLiteral("Position Z"));
    ASSERT_TRUE(z.isVisible());
    Sent();
    Key(Qt::Key_Space);
    EXPECT_EQ(Sent(), Journal{}) << "a key too many captures nothing";
    z.setFocus(Qt::TabFocusReason);
    Key(Qt::Key_Space);
    EXPECT_EQ(Focused(), "Position Z") << "focus stays on what was pressed";
    Button(Calibration, QStringLiteral("Set")).setFocus(Qt::TabFocusReason);
    Key(Qt::Key_Space);
    EXPECT_EQ(Focused(), "Calibration");
    QAbstractButton& reset = Button(Calibration, QStringLiteral("Reset"));
    reset.setFocus(Qt::TabFocusReason);
    Key(Qt::Key_Space);
    EXPECT_EQ(Focused(), "Reset");
}

TEST_F(FormMainFocusTest, WhatGoesOffBehindAnotherWindowLeavesTheFocusToTheTab) {
    QWidget other;
    for (const bool isHidden : {false, true}) {
        QAbstractButton& view = Button(Experiment, QStringLiteral("View"));
        view.setFocus(Qt::TabFocusReason);
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        isHidden ? view.hide() : view.setEnabled(false);
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        EXPECT_EQ(window_->focusWidget(), &Picture(Experiment)) << Focused();
        isHidden ? view.show() : view.setEnabled(true);
    }
}

TEST_F(FormMainFocusTest, TabStillGoesFromControlToControl) {
    QAbstractButton& view = Button(Experiment, QStringLiteral("View"));
    view.setFocus(Qt::TabFocusReason);
    Key(Qt::Key_Tab);
    EXPECT_NE(window_->focusWidget(), &view);
    EXPECT_TRUE(PanelOf<CtlExperiment2>(*window_).isAncestorOf(window_->focusWidget()));
}

}  // namespace

}  // namespace travo::test
