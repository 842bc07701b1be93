#include "core/state/LiveLink.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

#include "support/FakeLiveCamera.h"
#include "support/LiveDesk.h"

namespace travo::test {

namespace {

class FakeStage : public LiveStage {
public:
    platform::LiveCamera& Camera() override { return camera; }
    Texts Calls() override {
        Texts calls;
        for (const std::string& entry : journal) {
            if (entry.starts_with("Live")) {
                calls.push_back(entry);
            }
        }
        journal.clear();
        return calls;
    }
    void Tell(LiveStep step, const LiveDesk&) override {
        switch (step) {
            case LiveStep::WindowClose:
                return camera.TellWindowClose();
            case LiveStep::WindowHide:
                return camera.TellWindowHide();
            case LiveStep::BirdViewSave:
                return camera.TellBirdViewSave();
            case LiveStep::Lost:
                return camera.TellLost();
            default:
                return;
        }
    }

    Journal journal;
    FakeLiveCamera camera{journal};
};

class LiveLinkTest : public ::testing::Test {
protected:
    void Open() {
        desk.Click(true);
        stage.Calls();
    }

    FakeStage stage;
    LiveDesk desk{stage.camera};
    LiveLink& link = desk.link;
};

class LiveLinkTableTest : public ::testing::TestWithParam<LiveRow> {};

TEST_P(LiveLinkTableTest, LeadsWhereTheTableSays) {
    FakeStage stage;
    CheckLiveRow(GetParam(), stage);
}

std::string RowName(const ::testing::TestParamInfo<LiveRow>& info) { return LiveRowName(info.param); }

INSTANTIATE_TEST_SUITE_P(Rows, LiveLinkTableTest, ::testing::ValuesIn(LiveTable()), RowName);

TEST_F(LiveLinkTest, IsEmptyAtFirstAndEmptyAgainWhenCleared) {
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    link.Create();
    EXPECT_EQ(link.State(), LiveLink::Object::Living);
    EXPECT_FALSE(desk.state.LiveOpen);
    link.Clear();
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    EXPECT_EQ(stage.journal, Journal{"live created"});
}

TEST_F(LiveLinkTest, ReleasingLetsTheCameraProgramEnd) {
    Open();
    link.Release();
    EXPECT_EQ(stage.journal, Journal{"live released"});
    link.Release();
    EXPECT_EQ(stage.journal, Journal{"live released"});
}

TEST_F(LiveLinkTest, WithNoLiveProgramInstalledCameraLoadIsShownOnceAndTheProgramRunsOn) {
    stage.camera.absent = true;
    desk.StartUp();
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    EXPECT_EQ(desk.told, Texts{});
    link.LiveActionStart();
    link.LiveActionEnd();
    desk.Closing();
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
}

TEST_F(LiveLinkTest, PressingTheCameraButtonWithNoCameraProgramLeavesTheButtonRaised) {
    stage.camera.absent = true;
    desk.Click(true);
    EXPECT_FALSE(desk.buttonPressed);
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
    stage.camera.absent = false;
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
}

TEST_F(LiveLinkTest, ACloseFromTheCameraSideAndAPressCreateANewObjectAndDoNotTouchTheOldOne) {
    Open();
    stage.camera.TellWindowClose();
    EXPECT_EQ(link.State(), LiveLink::Object::Stale);
    desk.Click(true);
    EXPECT_EQ(stage.camera.created, 2);
    EXPECT_EQ(stage.journal, (Journal{"live created", "LiveAttach", "LiveShowWindow"}));
}

TEST_F(LiveLinkTest, HidingFromTheCameraSideRaisesTheButtonAndSendsLiveHideWindowBackOnce) {
    Open();
    stage.camera.TellWindowHide();
    EXPECT_FALSE(desk.buttonPressed);
    EXPECT_TRUE(desk.state.LiveOpen);
    EXPECT_EQ(stage.Calls(), Texts{"LiveHideWindow"});
}

TEST_F(LiveLinkTest, ChangingTheMagnificationWhileLiveOpenIsFalseTellsTheLiveProgramNothing) {
    desk.state.CurrentMagnification(2);
    desk.Click(true);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
    desk.state.CurrentMagnification(3);
    EXPECT_EQ(stage.Calls(), Texts{"LiveChangeMagnification 3"});
}

TEST_F(LiveLinkTest, AStaleObjectTellsNothingMore) {
    Open();
    stage.camera.TellWindowClose();
    desk.told.clear();
    stage.camera.TellWindowClose();
    stage.camera.TellWindowHide();
    stage.camera.TellBirdViewSave();
    stage.camera.TellLost();
    EXPECT_EQ(desk.told, Texts{});
    EXPECT_EQ(stage.Calls(), Texts{});
}

TEST_F(LiveLinkTest, AClearedObjectTellsNothingMore) {
    Open();
    link.Clear();
    stage.camera.TellBirdViewSave();
    stage.camera.TellLost();
    EXPECT_EQ(desk.told, Texts{});
}

TEST_F(LiveLinkTest, ActionStartAndActionEndReachALivingObjectAlsoBeforeLiveOpenIsTrue) {
    link.Create();
    link.LiveActionStart();
    link.LiveActionEnd();
    EXPECT_EQ(stage.Calls(), (Texts{"LiveActionStart", "LiveActionEnd"}));
}

TEST_F(LiveLinkTest, ActionStartAndActionEndDoNothingWithoutALivingObject) {
    link.LiveActionStart();
    link.LiveActionEnd();
    Open();
    stage.camera.TellWindowClose();
    link.LiveActionStart();
    link.LiveActionEnd();
    EXPECT_EQ(stage.Calls(), Texts{});
}

TEST_F(LiveLinkTest, AWindowButtonOnADeadCameraIsWindowLoadWithTheButtonRaised) {
    Open();
    stage.camera.failing = {"LiveHideWindow"};
    desk.Click(false);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_FALSE(desk.buttonPressed);
    EXPECT_EQ(link.State(), LiveLink::Object::Stale);
}

TEST_F(LiveLinkTest, AFailedFirstCallLeavesLiveOpenFalse) {
    stage.camera.failing = {"LiveAttach"};
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_FALSE(desk.buttonPressed);
}

TEST_F(LiveLinkTest, AFailedShowAtStartUpIsCameraLoad) {
    stage.camera.failing = {"LiveShowWindow"};
    desk.StartUp();
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_FALSE(desk.buttonPressed);
}

struct NamedCall {
    const char* name;
    std::function<void(LiveLink&)> call;
};

TEST_F(LiveLinkTest, TheFirstCallThatFailsKillsTheObjectAndIsRaised) {
    const std::vector<NamedCall> calls{
        {"LiveShowWindow", [](LiveLink& live) { live.LiveShowWindow(); }},
        {"LiveHideWindow", [](LiveLink& live) { live.LiveHideWindow(); }},
        {"LiveAttach", [](LiveLink& live) { live.LiveAttach(); }},
    };
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        stage.camera.failing = {};
        desk.Click(true);
        desk.told.clear();
        stage.camera.failing = {name};
        EXPECT_THROW(call(link), platform::LiveCameraFailure);
        EXPECT_EQ(desk.told, Texts{"Died"});
        EXPECT_FALSE(desk.state.LiveOpen);
        EXPECT_FALSE(desk.buttonPressed);
        stage.Calls();
        EXPECT_THROW(call(link), platform::LiveCameraFailure);
        EXPECT_EQ(stage.Calls(), Texts{}) << "a dead object is not called";
        EXPECT_EQ(desk.told, Texts{"Died"}) << "and dies once";
    }
}

TEST_F(LiveLinkTest, ACloseGoesOnWithACameraThatDoesNotHide) {
    Open();
    stage.camera.failing = {"LiveHideWindow"};
    EXPECT_NO_THROW(desk.Closing());
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_EQ(desk.reported, Texts{}) << "no box";
    stage.Calls();
    EXPECT_NO_THROW(desk.Closing());
    EXPECT_EQ(stage.Calls(), Texts{});
}

TEST_F(LiveLinkTest, AnAnnouncementThatFailsKillsTheObjectWhenTheEventLoopSaysSoAndDisturbsNobody) {
    const std::vector<NamedCall> calls{
        {"LiveActionStart", [](LiveLink& live) { live.LiveActionStart(); }},
        {"LiveActionEnd", [](LiveLink& live) { live.LiveActionEnd(); }},
        {"LiveChangeMagnification", [](LiveLink& live) { live.AnnounceMagnification(3); }},
        {"LivePanelLeave", [](LiveLink& live) { live.AnnouncePanelLeave(); }},
        {"LiveCalibPoints", [](LiveLink& live) { live.AnnounceCalibPoints(); }},
        {"LiveCalibPoints", [](LiveLink& live) { live.LiveCalibPoints(); }},
        {"LiveCalibZ", [](LiveLink& live) { live.LiveCalibZ(); }},
        {"LiveCalibCenter", [](LiveLink& live) { live.AnnounceCalibCenter(); }},
        {"LiveCalibCenter", [](LiveLink& live) { live.LiveCalibCenter(); }},
    };
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        stage.camera.failing = {};
        desk.Click(true);
        desk.told.clear();
        stage.camera.failing = {name};
        EXPECT_NO_THROW(call(link));
        EXPECT_EQ(desk.told, Texts{}) << "nobody has waited for the answer";
        EXPECT_TRUE(desk.state.LiveOpen);
        stage.camera.TellFailure();
        EXPECT_EQ(desk.told, Texts{"Died"});
        EXPECT_FALSE(desk.state.LiveOpen);
        EXPECT_FALSE(desk.buttonPressed);
        EXPECT_EQ(desk.reported, Texts{}) << "no box";
        stage.Calls();
        EXPECT_NO_THROW(call(link));
        EXPECT_EQ(stage.Calls(), Texts{});
    }
}

TEST_F(LiveLinkTest, AWindowButtonBehindAnAnnouncementThatFailedIsWindowLoadWithTheButtonRaised) {
    Open();
    stage.camera.failing = {"LivePanelLeave"};
    link.AnnouncePanelLeave();
    desk.Click(false);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.buttonPressed);
    stage.camera.TellFailure();
    EXPECT_EQ(desk.told, Texts{"Died"}) << "it dies once";
}

TEST_F(LiveLinkTest, AnnouncementsTestLiveOpenFirst) {
    link.Create();
    link.AnnounceMagnification(2);
    link.AnnouncePanelLeave();
    link.AnnounceCalibPoints();
    link.AnnounceCalibCenter();
    link.AnnounceHideWindow();
    EXPECT_EQ(stage.Calls(), Texts{});
    desk.state.LiveOpen = true;
    link.AnnounceMagnification(2);
    link.AnnouncePanelLeave();
    link.AnnounceCalibPoints();
    link.AnnounceCalibCenter();
    link.AnnounceHideWindow();
    EXPECT_EQ(stage.Calls(), (Texts{"LiveChangeMagnification 2", "LivePanelLeave", "LiveCalibPoints",
                                    "LiveCalibCenter", "LiveHideWindow"}));
}

TEST_F(LiveLinkTest, AfterTheLossOfTheCameraAPressOfTheButtonCreatesANewOne) {
    Open();
    stage.camera.TellLost();
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.buttonPressed);
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
    EXPECT_TRUE(desk.buttonPressed);
    EXPECT_EQ(desk.reported, Texts{});
}

}  // namespace

}  // namespace travo::test
