// The user panel's modes and windows, and the live camera at its button.
#include "CtlUserRig.h"

namespace travo::test {
namespace {

class CtlUserWindowsTest : public CtlUserRig {};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString CameraLoad = QStringLiteral("Error : Camera Load");
const QString WindowLoad = QStringLiteral("Error : Window Load");

// Modes.

TEST_F(CtlUserWindowsTest, OneModeIsAlwaysPressedWhateverIsClicked) {
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

TEST_F(CtlUserWindowsTest, AWindowButtonShowsAndHidesItsWindow) {
    for (int index = 1; index <= 4; ++index) {
        rig.journal.clear();
        Click(Window(index));
        Click(Window(index));
        EXPECT_THAT(rig.journal,
                    ElementsAre("show " + std::to_string(index), "hide " + std::to_string(index)));
    }
}

TEST_F(CtlUserWindowsTest,
       ClosingASecondaryWindowWithItsOwnButtonRaisesItsButtonAndItStaysClosedAtTheNextStart) {
    Click(Window(3));
    rig.journal.clear();
    Panel().FormClose(3);
    EXPECT_FALSE(Window(3).Value());
    EXPECT_THAT(rig.journal, ElementsAre("hide 3"));
    CloseProgram();
    EXPECT_EQ(Setting(QStringLiteral("3")), QStringLiteral("1"));
    EXPECT_FALSE(Window(3).Value());
}

TEST_F(CtlUserWindowsTest, AWindowThatFailsIsToldAsWindowLoadAndTheButtonStaysAsItIs) {
    windowsFail = true;
    Click(Window(2));
    EXPECT_EQ(rig.boxes.Texts(), QStringList{WindowLoad});
    EXPECT_TRUE(rig.Log().contains("Error : Window Load"));
    EXPECT_TRUE(Window(2).Value());
}

TEST_F(CtlUserWindowsTest, AWindowNumberThatDoesNotExistIsRefused) {
    EXPECT_THROW(Panel().FormClose(5), BoundsFailure);
    EXPECT_THROW(Panel().FormClose(-1), BoundsFailure);
}

// The live camera.

TEST_F(CtlUserWindowsTest, TheCameraButtonCreatesAttachesAndShows) {
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_TRUE(Window(0).Value());
}

TEST_F(CtlUserWindowsTest, TheCameraButtonWithTheCameraOpenHidesAndShowsWithoutANewObject) {
    Click(Window(0));
    rig.journal.clear();
    Click(Window(0));
    EXPECT_TRUE(rig.state.LiveOpen);
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow", "LiveShowWindow"));
}

TEST_F(CtlUserWindowsTest, TheCameraButtonRaisedWithoutACameraCreatesAttachesAndHides) {
    StoreWindow(0, QStringLiteral("0"));
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveHideWindow"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserWindowsTest, PressingTheCameraButtonWithNoCameraProgramLeavesTheButtonRaisedAfterTheError) {
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

TEST_F(CtlUserWindowsTest, APressAfterAFailedOneTriesAgain) {
    rig.camera.absent = true;
    Click(Window(0));
    rig.camera.absent = false;
    rig.journal.clear();
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_TRUE(Window(0).Value());
}

TEST_F(CtlUserWindowsTest, ACameraThatFailsToAttachIsToldAsWindowLoadAndIsDead) {
    rig.camera.failing = {"LiveAttach"};
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "box Error : Window Load"));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserWindowsTest, ACameraThatDiesAtAPressIsToldAsWindowLoadWithItsButtonRaised) {
    Click(Window(0));
    Click(Window(0));
    rig.camera.failing = {"LiveShowWindow"};
    rig.journal.clear();
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("LiveShowWindow", "box Error : Window Load"));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_FALSE(Window(0).Value());
}

TEST_F(CtlUserWindowsTest, TheLossOfTheCameraProgramRaisesTheButtonWithoutABox) {
    Click(Window(0));
    rig.camera.TellLost();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserWindowsTest, ACloseFromTheCameraSideThenAPressCreatesANewObjectAndDoesNotTouchTheOldOne) {
    Click(Window(0));
    rig.journal.clear();
    rig.camera.TellWindowClose();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
    Click(Window(0));
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach", "LiveShowWindow"));
    EXPECT_EQ(rig.camera.created, 2);
}

TEST_F(CtlUserWindowsTest, HidingFromTheCameraSideRaisesTheButtonAndSendsLiveHideWindowBackOnce) {
    Click(Window(0));
    rig.journal.clear();
    rig.camera.TellWindowHide();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow"));
}

TEST_F(CtlUserWindowsTest, LiveFromHideWithoutACameraOnlyRaisesTheButton) {
    StoreWindow(0, QStringLiteral("0"));
    Panel().LiveFromHide();
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserWindowsTest, LiveButtonChangeSetsTheButtonAndNothingElse) {
    Panel().LiveButtonChange(false);
    EXPECT_TRUE(Window(0).Value());
    Panel().LiveButtonChange(true);
    EXPECT_FALSE(Window(0).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserWindowsTest, TheFormCloseOfTheCameraHidesIt) {
    Click(Window(0));
    rig.journal.clear();
    Panel().FormClose(0);
    EXPECT_THAT(rig.journal, ElementsAre("LiveHideWindow"));
    EXPECT_FALSE(Window(0).Value());
}

// Every state of the camera with everything that can happen to it here.
enum class CameraState { None, Visible, Hidden, ClosedByItself };
enum class CameraEvent { Click, FormClose, WindowHide, WindowClose, Lost };

struct CameraRow {
    CameraState before;
    CameraEvent event;
    bool pressed;
    bool open;
    Journal calls;
};

class CtlUserCameraTest : public CtlUserRig, public ::testing::WithParamInterface<CameraRow> {
protected:
    void Bring(CameraState state) {
        if (state == CameraState::None) {
            return;
        }
        Click(Window(0));
        if (state == CameraState::Hidden) {
            Click(Window(0));
        } else if (state == CameraState::ClosedByItself) {
            rig.camera.TellWindowClose();
        }
        rig.journal.clear();
    }
    void Happen(CameraEvent event) {
        switch (event) {
            case CameraEvent::Click:
                return Click(Window(0));
            case CameraEvent::FormClose:
                return Panel().FormClose(0);
            case CameraEvent::WindowHide:
                return rig.camera.TellWindowHide();
            case CameraEvent::WindowClose:
                return rig.camera.TellWindowClose();
            case CameraEvent::Lost:
                return rig.camera.TellLost();
        }
    }
};

TEST_P(CtlUserCameraTest, GoesFromEachStateWhereTheEventTakesIt) {
    const CameraRow& row = GetParam();
    Bring(row.before);
    Happen(row.event);
    EXPECT_EQ(Window(0).Value(), row.pressed);
    EXPECT_EQ(rig.state.LiveOpen, row.open);
    EXPECT_EQ(rig.journal, row.calls);
}

const Journal CreatedAndShown{"live created", "LiveAttach", "LiveShowWindow"};
const Journal CreatedAndHidden{"live created", "LiveAttach", "LiveHideWindow"};

INSTANTIATE_TEST_SUITE_P(
    EveryStateWithEveryEvent, CtlUserCameraTest,
    ::testing::Values(
        CameraRow{CameraState::None, CameraEvent::Click, true, true, CreatedAndShown},
        CameraRow{CameraState::None, CameraEvent::FormClose, false, true, CreatedAndHidden},
        CameraRow{CameraState::None, CameraEvent::WindowHide, false, false, {}},
        CameraRow{CameraState::None, CameraEvent::WindowClose, false, false, {}},
        CameraRow{CameraState::None, CameraEvent::Lost, false, false, {}},
        CameraRow{CameraState::Visible, CameraEvent::Click, false, true, {"LiveHideWindow"}},
        CameraRow{CameraState::Visible, CameraEvent::FormClose, false, true, {"LiveHideWindow"}},
        CameraRow{CameraState::Visible, CameraEvent::WindowHide, false, true, {"LiveHideWindow"}},
        CameraRow{CameraState::Visible, CameraEvent::WindowClose, false, false, {}},
        CameraRow{CameraState::Visible, CameraEvent::Lost, false, false, {}},
        CameraRow{CameraState::Hidden, CameraEvent::Click, true, true, {"LiveShowWindow"}},
        CameraRow{CameraState::Hidden, CameraEvent::FormClose, false, true, {"LiveHideWindow"}},
        CameraRow{CameraState::Hidden, CameraEvent::WindowHide, false, true, {"LiveHideWindow"}},
        CameraRow{CameraState::Hidden, CameraEvent::WindowClose, false, false, {}},
        CameraRow{CameraState::Hidden, CameraEvent::Lost, false, false, {}},
        CameraRow{CameraState::ClosedByItself, CameraEvent::Click, true, true, CreatedAndShown},
        CameraRow{CameraState::ClosedByItself, CameraEvent::FormClose, false, true, CreatedAndHidden},
        CameraRow{CameraState::ClosedByItself, CameraEvent::WindowHide, false, false, {}},
        CameraRow{CameraState::ClosedByItself, CameraEvent::WindowClose, false, false, {}},
        CameraRow{CameraState::ClosedByItself, CameraEvent::Lost, false, false, {}}));

}  // namespace
}  // namespace travo::test
