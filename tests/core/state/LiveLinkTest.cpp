#include "core/state/LiveLink.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/FakeLiveCamera.h"

namespace travo::test {

namespace {

// The link with a camera that the test plays; what the link tells comes into the same journal.
class LiveLinkTest : public ::testing::Test, private SharedState::Listener, private LiveLink::Listener {
protected:
    // As whoever opens the camera leaves it.
    void Open() {
        link.Create();
        state.LiveOpen = true;
        journal.clear();
    }

    Journal journal;
    FakeLiveCamera camera{journal};
    SharedState state{*this};
    LiveLink link{camera, state, *this};

private:
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
    void Live_BirdViewSave() override { journal.emplace_back("told BirdViewSave"); }
    void Live_WindowHide() override { journal.emplace_back("told WindowHide"); }
    void Live_WindowClose() override { TellThatItIsClosed("told WindowClose"); }
    void LiveDied() override { TellThatItIsClosed("told Died"); }
    void TellThatItIsClosed(const char* what) {
        EXPECT_FALSE(state.LiveOpen) << "before anybody is told";
        journal.emplace_back(what);
    }
};

const Journal Nothing;

TEST_F(LiveLinkTest, IsEmptyAtFirstAndEmptyAgainWhenCleared) {
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    link.Create();
    EXPECT_EQ(link.State(), LiveLink::Object::Living);
    EXPECT_FALSE(state.LiveOpen);
    link.Clear();
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    EXPECT_EQ(journal, Journal{"live created"});
}

TEST_F(LiveLinkTest, ReleasingLetsTheCameraProgramEnd) {
    Open();
    link.Release();
    EXPECT_EQ(journal, Journal{"live released"});
    link.Release();
    EXPECT_EQ(journal, Journal{"live released"});
}

TEST_F(LiveLinkTest, ACameraThatCannotBeCreatedLeavesTheLinkEmpty) {
    camera.absent = true;
    EXPECT_THROW(link.Create(), platform::LiveCameraFailure);
    EXPECT_EQ(link.State(), LiveLink::Object::None);
    EXPECT_EQ(journal, Nothing);
}

TEST_F(LiveLinkTest, WhatTheCameraTellsIsPassedOn) {
    Open();
    camera.TellBirdViewSave();
    camera.TellWindowHide();
    EXPECT_TRUE(state.LiveOpen);
    camera.TellWindowClose();
    EXPECT_EQ(journal, (Journal{"told BirdViewSave", "told WindowHide", "told WindowClose"}));
    EXPECT_EQ(link.State(), LiveLink::Object::Stale);
}

TEST_F(LiveLinkTest, ALostCameraHasDied) {
    Open();
    camera.TellLost();
    EXPECT_EQ(journal, Journal{"told Died"});
    EXPECT_EQ(link.State(), LiveLink::Object::Stale);
}

TEST_F(LiveLinkTest, AStaleObjectTellsNothingMore) {
    Open();
    camera.TellWindowClose();
    journal.clear();
    camera.TellWindowClose();
    camera.TellWindowHide();
    camera.TellBirdViewSave();
    camera.TellLost();
    EXPECT_EQ(journal, Nothing);
}

TEST_F(LiveLinkTest, AClearedObjectTellsNothingMore) {
    Open();
    link.Clear();
    camera.TellBirdViewSave();
    camera.TellLost();
    EXPECT_EQ(journal, Nothing);
}

TEST_F(LiveLinkTest, ActionStartAndActionEndReachALivingObjectAlsoBeforeLiveOpenIsTrue) {
    link.Create();
    journal.clear();
    link.LiveActionStart();
    link.LiveActionEnd();
    EXPECT_EQ(journal, (Journal{"LiveActionStart", "LiveActionEnd"}));
}

TEST_F(LiveLinkTest, ActionStartAndActionEndDoNothingWithoutALivingObject) {
    link.LiveActionStart();
    link.LiveActionEnd();
    Open();
    camera.TellWindowClose();
    journal.clear();
    link.LiveActionStart();
    link.LiveActionEnd();
    EXPECT_EQ(journal, Nothing);
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
        camera.failing = {name};
        Open();
        EXPECT_THROW(call(link), platform::LiveCameraFailure);
        EXPECT_EQ(journal, (Journal{name, "told Died"}));
        EXPECT_FALSE(state.LiveOpen);
        journal.clear();
        EXPECT_THROW(call(link), platform::LiveCameraFailure);
        EXPECT_EQ(journal, Nothing) << "a dead object is not called, and dies once";
    }
}

TEST_F(LiveLinkTest, HidingItForThoseWhomAnIllCameraMustNotDisturbRaisesNothing) {
    Open();
    camera.failing = {"LiveHideWindow"};
    EXPECT_NO_THROW(link.AnnounceHideWindow());
    EXPECT_EQ(journal, (Journal{"LiveHideWindow", "told Died"}));
    EXPECT_FALSE(state.LiveOpen);
    journal.clear();
    EXPECT_NO_THROW(link.AnnounceHideWindow());
    EXPECT_EQ(journal, Nothing);
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
        camera.failing = {name};
        Open();
        EXPECT_NO_THROW(call(link));
        EXPECT_EQ(journal.size(), 1U) << "nobody has waited for the answer";
        EXPECT_TRUE(state.LiveOpen);
        camera.TellFailure();
        EXPECT_EQ(journal.back(), "told Died");
        EXPECT_FALSE(state.LiveOpen);
        journal.clear();
        EXPECT_NO_THROW(call(link));
        EXPECT_EQ(journal, Nothing);
    }
}

TEST_F(LiveLinkTest, ACallBehindAnAnnouncementThatFailedFindsItOutAndTheObjectDiesOnce) {
    Open();
    camera.failing = {"LivePanelLeave"};
    link.AnnouncePanelLeave();
    EXPECT_THROW(link.LiveHideWindow(), platform::LiveCameraFailure);
    EXPECT_EQ(journal, (Journal{"LivePanelLeave", "told Died"}));
    camera.TellFailure();
    EXPECT_EQ(journal.size(), 2U);
}

TEST_F(LiveLinkTest, AnnouncementsTestLiveOpenFirst) {
    link.Create();
    journal.clear();
    const auto announceAll = [this] {
        link.AnnounceMagnification(2);
        link.AnnouncePanelLeave();
        link.AnnounceCalibPoints();
        link.AnnounceCalibCenter();
        link.AnnounceHideWindow();
    };
    announceAll();
    EXPECT_EQ(journal, Nothing);
    state.LiveOpen = true;
    announceAll();
    EXPECT_EQ(journal, (Journal{"LiveChangeMagnification 2", "LivePanelLeave", "LiveCalibPoints",
                                "LiveCalibCenter", "LiveHideWindow"}));
}

}  // namespace

}  // namespace travo::test
