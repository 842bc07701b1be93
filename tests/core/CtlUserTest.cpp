// The user panel, worked as the operator works it.
#include "core/CtlUser.h"

#include <gmock/gmock.h>

#include <QTest>
#include <memory>

#include "support/PanelRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString XYTold = QStringLiteral("XY Offset changes to minimum value");
const QString ZTold = QStringLiteral("Z Offset changes to minimum value");
const QString CameraLoad = QStringLiteral("Error : Camera Load");
const QString WindowLoad = QStringLiteral("Error : Window Load");

// The panel with the test as its owner and as the camera's listener.
class CtlUserPanel : public ::testing::Test, private CtlUser::Owner, private LiveLink::Listener {
protected:
    CtlUserPanel() { rig.journal.clear(); }
    ~CtlUserPanel() override { panel.reset(); }

    CtlUser::System System() {
        return {rig.state, live, rig.needleMove, rig.objective, rig.failures, rig.profile, folders, *this};
    }

    CtlUser& Panel() {
        if (!panel) {
            panel = std::make_unique<CtlUser>(System(), rig.ProgramFolder());
            panel->resize(486, 520);
            panel->show();
            panel->Shown();
        }
        return *panel;
    }

    template <class Control>
    Control& Find(const QString& name) {
        return *Panel().findChild<Control*>(name);
    }
    usrKVCheckButton& Window(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton1(%1)").arg(index));
    }
    usrKVCheckButton& Switch(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton2(%1)").arg(index));
    }
    usrKVCheckButton& Mode(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton3(%1)").arg(index));
    }
    NumberBox& Offset(int index) { return Find<NumberBox>(QStringLiteral("txtOffset(%1)").arg(index)); }

    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    void Apply() { Click(Find<usrKVButton>(QStringLiteral("usrKVButton1"))); }
    // Puts a number in place of what stands there, key by key.
    void Type(int index, const QString& digits) {
        Offset(index).selectAll();
        QTest::keyClicks(&Offset(index), digits);
    }

    // A text of the settings file, as the next start reads it.
    QString Setting(const QString& key) {
        return rig.ini.GetString(QStringLiteral("Window"), key, QStringLiteral("none"));
    }
    void StoreWindow(int index, const QString& value) {
        rig.ini.WriteString(QStringLiteral("Window"), QString::number(index), value);
    }

    void CloseProgram() { panel.reset(); }

    // Needle 0 at (1000, 0), needle 1 across its way to (2000, 0).
    void PlaceNeedlesInTheWay();
    // Sends needle 0 there: true when it was sent.
    bool MoveThroughTheWay() { return rig.needleMove.NeedleMove(0, {2000, 0, 0}, 1, false, false); }

    void ModeChange(bool bWizerd) override {
        rig.journal.push_back(bWizerd ? "ModeChange true" : "ModeChange false");
    }
    void ShowWindow(std::int32_t Index) override { Toggle("show ", Index); }
    void HideWindow(std::int32_t Index) override { Toggle("hide ", Index); }
    void Live_BirdViewSave() override {}
    void Live_WindowHide() override { Panel().LiveFromHide(); }
    void Live_WindowClose() override { Panel().LiveButtonChange(true); }
    void LiveDied() override { Panel().LiveButtonChange(true); }

    PanelRig rig;
    FakeFolders folders{rig.journal};
    LiveLink live{rig.camera, rig.state, *this};
    bool windowsFail = false;
    std::unique_ptr<CtlUser> panel;

private:
    void Toggle(const std::string& what, std::int32_t Index) {
        rig.journal.push_back(what + std::to_string(Index));
        if (windowsFail) {
            throw std::runtime_error("the window cannot be built");
        }
    }
};

void CtlUserPanel::PlaceNeedlesInTheWay() {
    const std::array<CalibrationMap::Points, 2> points{
        {{{{10000, 20000, 5000}, {7000, 24000, 5000}, {13000, 24000, 5000}, {10000, 20000, 6000}}},
         {{{10000, 10000, 5000}, {6000, 7000, 5000}, {6000, 13000, 5000}, {10000, 10000, 6000}}}}};
    for (std::int32_t needle = 0; needle < 2; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
                rig.needleMove.ManipulatorCalibrationPosXYZ(needle, axis, point,
                                                            points.at(static_cast<std::size_t>(needle))
                                                                .at(static_cast<std::size_t>(point))
                                                                .at(static_cast<std::size_t>(axis)));
            }
            rig.needleMove.PosZero(needle, axis, 0);
        }
        rig.needleMove.CalibrationCalculation(needle);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.needleMove.ManiCenter(needle, axis, 0);
        }
        rig.state.CalibrationON(needle, true);
    }
    rig.needleMove.PosZero(1, 1, -5000);
    rig.state.Needle(0, 0, 1000);
    rig.state.Needle(1, 0, 1500);
    rig.state.Needle(1, 1, 100);
}

// Construction and the end.

TEST_F(CtlUserPanel, StartsInTabModeWithBothSwitchesRaised) {
    EXPECT_EQ(Panel().objectName(), QStringLiteral("CtlUser1"));
    EXPECT_TRUE(Mode(0).Value());
    EXPECT_FALSE(Mode(1).Value());
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(Panel().ContactONOff(), 0);
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserPanel, TheVersionHasMajorAndMinorNumberOnly) {
    EXPECT_EQ(Find<NumberLabel>(QStringLiteral("lblVersion")).text(),
              QStringLiteral("Version " TRAVO_VERSION));
}

TEST_F(CtlUserPanel, WithoutASettingsFileEveryWindowButtonIsRaised) {
    for (int index = 0; index < 5; ++index) {
        EXPECT_FALSE(Window(index).Value()) << index;
    }
}

TEST_F(CtlUserPanel, AKeyOfZeroPressesItsButtonAndAnyOtherRaisesItAndNothingIsOpened) {
    StoreWindow(0, QStringLiteral("0"));
    StoreWindow(1, QStringLiteral("1"));
    StoreWindow(2, QStringLiteral("0"));
    StoreWindow(3, QStringLiteral("-1"));
    StoreWindow(4, QStringLiteral("open"));  // reads as 0
    EXPECT_TRUE(Window(0).Value());
    EXPECT_FALSE(Window(1).Value());
    EXPECT_TRUE(Window(2).Value());
    EXPECT_FALSE(Window(3).Value());
    EXPECT_TRUE(Window(4).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
    EXPECT_EQ(live.State(), LiveLink::Object::None);
}

TEST_F(CtlUserPanel, AWindowButtonPressedAtTheEndOfTheRunGivesZeroAndTheWindowOpensAtTheNextStart) {
    Click(Window(1));
    Click(Window(4));
    CloseProgram();
    EXPECT_EQ(rig.Settings(), QByteArray("[Window]\r\n0=1\r\n1=0\r\n2=1\r\n3=1\r\n4=0\r\n"));
    EXPECT_TRUE(Window(1).Value());
    EXPECT_TRUE(Window(4).Value());
    EXPECT_FALSE(Window(2).Value());
}

TEST_F(CtlUserPanel, AProgramFolderWithASeparatorAtItsEndIsTheSameFolder) {
    { const CtlUser other(System(), rig.ProgramFolder() + QLatin1Char('/')); }
    EXPECT_EQ(Setting(QStringLiteral("0")), QStringLiteral("1"));
}

TEST_F(CtlUserPanel, ARunThatNeverCameToLoadLeavesTheSettingsFileUntouched) {
    StoreWindow(0, QStringLiteral("0"));
    const QByteArray before = rig.Settings();
    Click(Window(1));
    Panel().SaveWindowsAtEnd(false);
    CloseProgram();
    EXPECT_EQ(rig.Settings(), before);
}

// Offsets.

TEST_F(CtlUserPanel, EachTimeItIsShownTheBoxesAndTheMinimumStandAsTheVariables) {
    Panel();
    rig.needleMove.lngXYOffset = 250;
    rig.objective.lngOffset = 175;
    rig.objective.lngMinimumOffset = 120;
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    Panel().Shown();
    EXPECT_EQ(Offset(0).text(), QStringLiteral("250"));
    EXPECT_EQ(Offset(1).text(), QStringLiteral("175"));
    EXPECT_EQ(Find<NumberLabel>(QStringLiteral("lblMinVal")).text(), QStringLiteral("120"));
}

TEST_F(CtlUserPanel, AnOffsetOfTenDigitsFromTheSettingsIsShownWhole) {
    rig.objective.lngOffset = 2147483647;
    Panel();
    EXPECT_EQ(Offset(1).text(), QStringLiteral("2147483647"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 2147483647);
    rig.objective.lngOffset = 100;
    Panel().Shown();
    Type(1, QStringLiteral("1234567890"));
    EXPECT_EQ(Offset(1).text(), QStringLiteral("123456789"));
}

TEST_F(CtlUserPanel, TheApplyButtonStoresBothOffsets) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("150"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 300);
    EXPECT_EQ(rig.objective.lngOffset, 150);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, TypingAloneChangesNothing) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("150"));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

TEST_F(CtlUserPanel, AnXYOffsetOfZeroIsAcceptedWithoutAnyMessage) {
    rig.needleMove.lngXYOffset = 70;
    Panel();
    Type(0, QStringLiteral("0"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, AZOffsetOf99WithTheSwitchRaisedGivesTheMessageAndTheBoxShows100) {
    rig.objective.lngOffset = 500;
    Panel();
    Type(1, QStringLiteral("99"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
    ASSERT_EQ(rig.boxes.shown.size(), 1U);
    EXPECT_EQ(rig.boxes.shown[0].text, ZTold);
    EXPECT_EQ(rig.boxes.shown[0].buttons, platform::BoxButtons::OK);
    EXPECT_EQ(rig.boxes.shown[0].icon, platform::BoxIcon::None);
    EXPECT_TRUE(rig.Log().isEmpty());
}

TEST_F(CtlUserPanel, AZOffsetOfTheMinimumItselfIsAccepted) {
    Type(1, QStringLiteral("100"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, TheBoxShowsTheMinimumBeforeTheMessageIsSeenAndXYComesFirst) {
    rig.needleMove.lngMinimumXYOffset = 10;
    Panel();
    QStringList seen;
    rig.boxes.whileShown = [&] { seen << Offset(0).text() + QLatin1Char(' ') + Offset(1).text(); };
    Type(0, QStringLiteral("9"));
    Type(1, QStringLiteral("5"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), (QStringList{XYTold, ZTold}));
    EXPECT_EQ(seen, (QStringList{QStringLiteral("10 5"), QStringLiteral("10 100")}));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 10);
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

TEST_F(CtlUserPanel, AFractionIsRoundedToNearestWithTiesToEven) {
    const std::vector<std::pair<QString, std::int32_t>> rows{{QStringLiteral("120.5"), 120},
                                                             {QStringLiteral("121.5"), 122},
                                                             {QStringLiteral("121.49"), 121},
                                                             {QStringLiteral("+121"), 121},
                                                             {QStringLiteral(" 130 "), 130}};
    for (const auto& [text, value] : rows) {
        Offset(1).setText(text);
        EXPECT_EQ(Offset(1).text(), text);
        Apply();
        EXPECT_EQ(rig.objective.lngOffset, value) << text.toStdString();
    }
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, AFractionBelowTheMinimumIsBelowItThoughItRoundsToIt) {
    Offset(1).setText(QStringLiteral("99.9"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
}

// The offset switch.

TEST_F(CtlUserPanel, OffsetOFFReadAtLoadPressesTheSwitchAndZOffsetsBelow100AreAcceptedUntilItIsRaised) {
    Panel().OffsetONOff(1);
    EXPECT_TRUE(Switch(0).Value());
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    Type(1, QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 7);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    Click(Switch(0));
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    Type(1, QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
}

TEST_F(CtlUserPanel, PressingTheOffsetSwitchChangesNoValue) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("7"));
    Click(Switch(0));
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 7);
}

TEST_F(CtlUserPanel, RaisingTheOffsetSwitchStoresWhatStandsInTheBoxesAsTheApplyButtonDoesButSilently) {
    rig.needleMove.lngMinimumXYOffset = 10;
    Panel();
    Click(Switch(0));
    Type(0, QStringLiteral("9"));
    Type(1, QStringLiteral("222"));
    Click(Switch(0));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 10);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("10"));
    EXPECT_EQ(rig.objective.lngOffset, 222);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, WritingOffsetONOffChecksNoOffset) {
    rig.objective.lngOffset = 5;
    Panel().OffsetONOff(-1);
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    Panel().OffsetONOff(0);
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(rig.objective.lngOffset, 5);
    Type(1, QStringLiteral("5"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
}

// The contact switch.

TEST_F(CtlUserPanel, TheContactSwitchPressedLetsANeedlePassAndRaisedStopsIt) {
    PlaceNeedlesInTheWay();
    EXPECT_FALSE(MoveThroughTheWay());
    Click(Switch(1));
    EXPECT_EQ(Panel().ContactONOff(), 1);
    EXPECT_TRUE(MoveThroughTheWay());
    Click(Switch(1));
    EXPECT_EQ(Panel().ContactONOff(), 0);
    EXPECT_FALSE(MoveThroughTheWay());
}

TEST_F(CtlUserPanel, WritingContactONOffPressesTheSwitchAndTellsTheNeedleMoves) {
    PlaceNeedlesInTheWay();
    Panel().ContactONOff(5);
    EXPECT_TRUE(Switch(1).Value());
    EXPECT_EQ(Panel().ContactONOff(), 1);
    EXPECT_TRUE(MoveThroughTheWay());
    Panel().ContactONOff(0);
    EXPECT_FALSE(Switch(1).Value());
    EXPECT_FALSE(MoveThroughTheWay());
}

TEST_F(CtlUserPanel, TheContactSwitchDoesNotTouchTheOffsets) {
    Click(Switch(0));
    Type(1, QStringLiteral("7"));
    Click(Switch(1));
    Click(Switch(1));
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

// Modes.

TEST_F(CtlUserPanel, OneModeIsAlwaysPressedWhateverIsClicked) {
    struct Row {
        int clicked;
        bool tab;
        std::string told;
    };
    const std::vector<Row> rows{{1, false, "ModeChange false"},
                                {1, false, "ModeChange false"},
                                {0, true, "ModeChange true"},
                                {0, true, "ModeChange true"}};
    for (const Row& row : rows) {
        rig.journal.clear();
        Click(Mode(row.clicked));
        EXPECT_EQ(Mode(0).Value(), row.tab);
        EXPECT_EQ(Mode(1).Value(), !row.tab);
        EXPECT_THAT(rig.journal, ElementsAre(row.told));
    }
}

// Windows.

TEST_F(CtlUserPanel, AWindowButtonShowsAndHidesItsWindow) {
    for (int index = 1; index <= 4; ++index) {
        rig.journal.clear();
        Click(Window(index));
        Click(Window(index));
        EXPECT_THAT(rig.journal,
                    ElementsAre("show " + std::to_string(index), "hide " + std::to_string(index)));
    }
}

TEST_F(CtlUserPanel, ClosingASecondaryWindowWithItsOwnButtonRaisesItsButtonAndItStaysClosedAtTheNextStart) {
    Click(Window(3));
    rig.journal.clear();
    Panel().FormClose(3);
    EXPECT_FALSE(Window(3).Value());
    EXPECT_THAT(rig.journal, ElementsAre("hide 3"));
    CloseProgram();
    EXPECT_EQ(Setting(QStringLiteral("3")), QStringLiteral("1"));
    EXPECT_FALSE(Window(3).Value());
}

TEST_F(CtlUserPanel, AWindowThatFailsIsToldAsWindowLoadAndTheButtonStaysAsItIs) {
    windowsFail = true;
    Click(Window(2));
    EXPECT_EQ(rig.boxes.Texts(), QStringList{WindowLoad});
    EXPECT_TRUE(rig.Log().contains("Error : Window Load"));
    EXPECT_TRUE(Window(2).Value());
}

TEST_F(CtlUserPanel, AWindowNumberThatDoesNotExistIsRefused) {
    EXPECT_THROW(Panel().FormClose(5), BoundsFailure);
    EXPECT_THROW(Panel().FormClose(-1), BoundsFailure);
}

// The live camera.

TEST_F(CtlUserPanel, TheCameraButtonCreatesAttachesAndShows) {
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_TRUE(Window(0).Value());
}

TEST_F(CtlUserPanel, TheCameraButtonWithTheCameraOpenHidesAndShowsWithoutANewObject) {
    Click(Window(0));
    rig.journal.clear();
    Click(Window(0));
    EXPECT_TRUE(rig.state.LiveOpen);
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow", "LiveShowWindow"));
}

TEST_F(CtlUserPanel, TheCameraButtonRaisedWithoutACameraCreatesAttachesAndHides) {
    StoreWindow(0, QStringLiteral("0"));
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveHideWindow"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserPanel, PressingTheCameraButtonWithNoCameraProgramLeavesTheButtonRaisedAfterTheError) {
    rig.camera.absent = true;
    bool raisedDuringTheBox = false;
    rig.boxes.whileShown = [&] { raisedDuringTheBox = !Window(0).Value(); };
    Click(Window(0));
    EXPECT_EQ(rig.boxes.Texts(), QStringList{CameraLoad});
    EXPECT_TRUE(raisedDuringTheBox);
    EXPECT_TRUE(rig.Log().contains("Error : Camera Load"));
    EXPECT_FALSE(rig.Log().contains("Error : Window Load"));
    EXPECT_FALSE(Window(0).Value());
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_EQ(live.State(), LiveLink::Object::None);
}

TEST_F(CtlUserPanel, APressAfterAFailedOneTriesAgain) {
    rig.camera.absent = true;
    Click(Window(0));
    rig.camera.absent = false;
    rig.journal.clear();
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_TRUE(Window(0).Value());
}

TEST_F(CtlUserPanel, ACameraThatFailsToAttachIsToldAsWindowLoadAndIsDead) {
    rig.camera.failing = {"LiveAttach"};
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "box Error : Window Load"));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserPanel, ACameraThatDiesAtAPressIsToldAsWindowLoadWithItsButtonRaised) {
    Click(Window(0));
    Click(Window(0));
    rig.camera.failing = {"LiveShowWindow"};
    rig.journal.clear();
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("LiveShowWindow", "box Error : Window Load"));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserPanel, TheLossOfTheCameraProgramRaisesTheButtonWithoutABox) {
    Click(Window(0));
    rig.camera.TellLost();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserPanel, ACloseFromTheCameraSideThenAPressCreatesANewObjectAndDoesNotTouchTheOldOne) {
    Click(Window(0));
    rig.journal.clear();
    rig.camera.TellWindowClose();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_EQ(rig.camera.created, 2);
}

TEST_F(CtlUserPanel, HidingFromTheCameraSideRaisesTheButtonAndSendsLiveHideWindowBackOnce) {
    Click(Window(0));
    rig.journal.clear();
    rig.camera.TellWindowHide();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow"));
}

TEST_F(CtlUserPanel, LiveFromHideWithoutACameraOnlyRaisesTheButton) {
    StoreWindow(0, QStringLiteral("0"));
    Panel().LiveFromHide();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserPanel, LiveButtonChangeSetsTheButtonAndNothingElse) {
    Panel().LiveButtonChange(false);
    EXPECT_TRUE(Window(0).Value());
    Panel().LiveButtonChange(true);
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserPanel, TheFormCloseOfTheCameraHidesIt) {
    Click(Window(0));
    rig.journal.clear();
    Panel().FormClose(0);
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow"));
    EXPECT_FALSE(Window(0).Value());
}

// What the boxes let through.

TEST_F(CtlUserPanel, AKeyOtherThanBackspaceAndTheDigitsIsDropped) {
    for (int index = 0; index < 2; ++index) {
        Type(index, QStringLiteral("1a2-3.4+ 5e6,789"));
        EXPECT_EQ(Offset(index).text(), QStringLiteral("123456789"));
        QTest::keyClick(&Offset(index), Qt::Key_Backspace);
        EXPECT_EQ(Offset(index).text(), QStringLiteral("12345678"));
    }
}

TEST_F(CtlUserPanel, ABoxTakesNineDigits) {
    Type(0, QStringLiteral("9999999999"));
    EXPECT_EQ(Offset(0).text(), QStringLiteral("999999999"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 999999999);
}

TEST_F(CtlUserPanel, AnEmptyTextBoxShowsZeroAtOnce) {
    Type(0, QStringLiteral("42"));
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
}

TEST_F(CtlUserPanel, ATextThatIsNegativeOrNoNumberIsReplacedByZeroAtOnce) {
    for (const char* const text : {"-1", "-0.6", "abc", "12x", "nan", "inf", "--1", "0x10", "1e300", "9e9"}) {
        Offset(1).setText(QStringLiteral("500"));
        Offset(1).setText(QLatin1String(text));
        EXPECT_EQ(Offset(1).text(), QStringLiteral("0")) << text;
    }
}

TEST_F(CtlUserPanel, ATextThatRoundsToANonNegativeNumberStays) {
    for (const char* const text : {"-0.5", "0.5", "12.75", "1e3", "007"}) {
        Offset(1).setText(QLatin1String(text));
        EXPECT_EQ(Offset(1).text(), QLatin1String(text));
    }
}

}  // namespace
}  // namespace travo::test
