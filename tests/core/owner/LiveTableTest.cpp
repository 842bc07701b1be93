// The running program before a camera that the test plays: the whole table, and what the program does where
// the camera is missing, fails or comes back.
#include <gtest/gtest.h>

#include "support/LiveTable.h"

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
    void Tell(LiveStep step) override {
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

class LiveTableTest : public ::testing::TestWithParam<LiveRow> {};

TEST_P(LiveTableTest, LeadsWhereTheTableSays) {
    FakeStage stage;
    CheckLiveRow(GetParam(), stage);
}

std::string RowName(const ::testing::TestParamInfo<LiveRow>& info) { return LiveRowName(info.param); }

INSTANTIATE_TEST_SUITE_P(Rows, LiveTableTest, ::testing::ValuesIn(LiveTable()), RowName);

class LiveProgramSideTest : public ::testing::Test {
protected:
    void Open() {
        desk.Click(true);
        stage.Calls();
    }

    FakeStage stage;
    LiveRig desk{stage.camera};
};

TEST_F(LiveProgramSideTest, WithNoCameraProgramTheOperatorIsToldOnceAndTheProgramRunsOnAndCloses) {
    stage.camera.absent = true;
    LiveRig other(stage.camera, LiveRig::AtLastEnd::CameraOpen);
    other.StartUp();
    EXPECT_EQ(other.Boxes(), Texts{"Error : Camera Load"});
    EXPECT_FALSE(other.ButtonPressed());
    EXPECT_EQ(other.Link().State(), LiveLink::Object::None);
    other.State().CurrentMagnification(2);
    other.Closing();
    EXPECT_EQ(other.Boxes(), Texts{"Error : Camera Load"});
    EXPECT_EQ(stage.Calls(), Texts{});
}

TEST_F(LiveProgramSideTest, AButtonThatWasPressedInVainWorksOnceTheCameraProgramIsThere) {
    stage.camera.absent = true;
    desk.Click();
    EXPECT_FALSE(desk.ButtonPressed());
    desk.AttachButton();
    EXPECT_EQ(desk.Boxes(), (Texts{"Error : Camera Load", "Error : Camera Load"}));
    stage.camera.absent = false;
    desk.Click(true);
    EXPECT_TRUE(desk.State().LiveOpen);
}

TEST_F(LiveProgramSideTest, ACloseFromTheCameraSideAndAPressCreateANewObject) {
    Open();
    stage.camera.TellWindowClose();
    desk.Click(true);
    EXPECT_EQ(stage.camera.created, 2);
}

TEST_F(LiveProgramSideTest, ChangingTheMagnificationWhileLiveOpenIsFalseTellsTheLiveProgramNothing) {
    desk.State().CurrentMagnification(2);
    desk.Click(true);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
    desk.State().CurrentMagnification(3);
    EXPECT_EQ(stage.Calls(), Texts{"LiveChangeMagnification 3"});
}

TEST_F(LiveProgramSideTest, ACloseGoesOnWithACameraThatDoesNotHide) {
    Open();
    stage.camera.failing = {"LiveHideWindow"};
    desk.Closing();
    EXPECT_FALSE(desk.State().LiveOpen);
    EXPECT_FALSE(desk.ButtonPressed());
    EXPECT_EQ(desk.Boxes(), Texts{});
}

TEST_F(LiveProgramSideTest, AnAnnouncementThatFailsRaisesTheButtonWithoutABox) {
    Open();
    stage.camera.failing = {"LivePanelLeave"};
    desk.ShowConnectionPanel();
    EXPECT_TRUE(desk.ButtonPressed()) << "nobody has waited for the answer";
    stage.camera.TellFailure();
    EXPECT_FALSE(desk.ButtonPressed());
    EXPECT_FALSE(desk.State().LiveOpen);
    EXPECT_EQ(desk.Boxes(), Texts{});
}

TEST_F(LiveProgramSideTest, APressBehindAnAnnouncementThatFailedIsWindowLoadWithTheButtonRaised) {
    Open();
    stage.camera.failing = {"LivePanelLeave"};
    desk.ShowConnectionPanel();
    desk.Click();
    EXPECT_EQ(desk.Boxes(), Texts{"Error : Window Load"});
    EXPECT_FALSE(desk.ButtonPressed());
}

TEST_F(LiveProgramSideTest, AfterTheLossOfTheCameraAPressOfTheButtonCreatesANewOne) {
    Open();
    stage.camera.TellLost();
    desk.Click(true);
    EXPECT_EQ(stage.camera.created, 2);
    EXPECT_EQ(desk.Boxes(), Texts{});
}

}  // namespace

}  // namespace travo::test
