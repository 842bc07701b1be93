// The running program before the camera program of a real bus: the whole table, and a camera program that
// misbehaves as its scenarios say.
#include <gtest/gtest.h>

#include <map>

#include "platform/LiveBusRig.h"
#include "support/LiveTable.h"

namespace travo::test {

namespace {

class BusTableStage : public LiveStage {
public:
    platform::LiveCamera& Camera() override { return stage.camera; }
    Texts Calls() override { return stage.Calls(); }
    void Tell(LiveStep step) override {
        const std::map<LiveStep, QString> wishes{{LiveStep::WindowClose, QStringLiteral("WindowClose")},
                                                 {LiveStep::WindowHide, QStringLiteral("WindowHide")},
                                                 {LiveStep::BirdViewSave, QStringLiteral("BirdViewSave")},
                                                 {LiveStep::Lost, QStringLiteral("Die")}};
        stage.Work(wishes.at(step));
    }

    LiveBusRig stage;
};

class LiveBusTableTest : public ::testing::TestWithParam<LiveRow> {};

TEST_P(LiveBusTableTest, LeadsWhereTheTableSaysOverARealBus) {
    BusTableStage stage;
    CheckLiveRow(GetParam(), stage);
}

std::string RowName(const ::testing::TestParamInfo<LiveRow>& info) { return LiveRowName(info.param); }

INSTANTIATE_TEST_SUITE_P(Rows, LiveBusTableTest, ::testing::ValuesIn(LiveTable()), RowName);

const Texts CameraLoad{"Error : Camera Load"};
const Texts WindowLoad{"Error : Window Load"};

// What a dead camera leaves behind.
void ExpectClosed(LiveRig& desk) {
    EXPECT_FALSE(desk.State().LiveOpen);
    EXPECT_FALSE(desk.ButtonPressed());
}

TEST(LiveBusTest, WithoutASessionBusTheOperatorIsToldAndTheProgramRunsOn) {
    const QTemporaryDir empty;
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + empty.path() + "/nobody").toLocal8Bit());
    QtLiveCamera camera;
    LiveRig desk(camera, LiveRig::AtLastEnd::CameraOpen);
    desk.StartUp();
    desk.Link().LiveActionStart();
    desk.Link().LiveActionEnd();
    EXPECT_EQ(desk.Boxes(), CameraLoad);
    ExpectClosed(desk);
}

TEST(LiveBusTest, ACameraProgramThatIsInstalledLaterIsFound) {
    LiveBusRig stage;
    stage.bus.Uninstall(Service);
    LiveRig desk(stage.camera);
    desk.Click();
    EXPECT_EQ(desk.Boxes(), CameraLoad);
    ExpectClosed(desk);
    stage.Install();
    EXPECT_TRUE(ServeUntil([&] {
        desk.Click();  // until the bus has read its folder again
        return desk.State().LiveOpen;
    }));
}

TEST(LiveBusTest, AnEmptyProgramFailsAtTheFirstCall) {
    LiveBusRig stage;
    stage.Play("empty");
    LiveRig desk(stage.camera);
    desk.Click();
    EXPECT_EQ(desk.Boxes(), WindowLoad);
    ExpectClosed(desk);
}

TEST(LiveBusTest, ASlowProgramIsWaitedFor) {
    LiveBusRig stage;
    stage.Play("slow");
    LiveRig desk(stage.camera);
    desk.Click(true);
    EXPECT_EQ(desk.Boxes(), Texts{});
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
}

TEST(LiveBusTest, AProgramThatDiesInTheMiddleOfACallFailsThatCallAndTheLossOfItsNameIsNoSecondDeath) {
    LiveBusRig stage;
    LiveRig desk(stage.camera);
    desk.Click(true);
    stage.Play("dies");
    desk.Click(false);
    EXPECT_EQ(desk.Boxes(), WindowLoad);
    ExpectClosed(desk);
    stage.Play("");
    desk.Click(true);
    stage.Work(QStringLiteral("BirdViewSave"));
    EXPECT_TRUE(ServeUntil([&] { return !desk.Told().empty() && desk.Told().back() == "BirdViewSave"; }));
    EXPECT_TRUE(desk.State().LiveOpen);
    EXPECT_TRUE(desk.ButtonPressed());
    EXPECT_EQ(stage.Started(), 2);
}

TEST(LiveBusTest, AHangingProgramIsWaitedForByNobodyAndDeadAtTheLimit) {
    LiveBusRig stage(Hasty);
    LiveRig desk(stage.camera);
    desk.Click(true);
    stage.Play("hangs");
    desk.State().CurrentMagnification(2);
    EXPECT_TRUE(desk.State().LiveOpen) << "the magnification has gone on";
    EXPECT_TRUE(ServeUntil([&] { return !desk.State().LiveOpen; }));
    EXPECT_EQ(desk.Told(), Texts{"Lost"});
    EXPECT_EQ(desk.Boxes(), Texts{});
    ExpectClosed(desk);
}

TEST(LiveBusTest, AProgramThatAnswersWithAnErrorIsDead) {
    LiveBusRig stage;
    LiveRig desk(stage.camera);
    desk.Click(true);
    stage.Play("refuses");
    desk.Link().LiveActionStart();
    EXPECT_TRUE(ServeUntil([&] { return !desk.State().LiveOpen; }));
    EXPECT_EQ(desk.Boxes(), Texts{});
    desk.Click();
    EXPECT_EQ(desk.Boxes(), WindowLoad);
    ExpectClosed(desk);
}

TEST(LiveBusTest, AProgramThatComesBackIsUsedAgain) {
    LiveBusRig stage(Hasty);
    LiveRig desk(stage.camera);
    desk.Click(true);
    stage.Play("hangs");
    desk.Click(false);
    EXPECT_EQ(desk.Boxes(), WindowLoad);
    stage.Play("");
    stage.Calls();
    desk.Click(true);
    EXPECT_TRUE(desk.State().LiveOpen);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
    EXPECT_EQ(stage.Started(), 1);
}

TEST(LiveBusTest, ANewCreationWaitsForTheReleaseOfTheNameOfAClosingProgram) {
    LiveBusRig stage;
    LiveRig desk(stage.camera);
    desk.Click(true);
    const QString first = stage.Owner();
    stage.Play("lingers");
    stage.Work(QStringLiteral("WindowClose"));
    EXPECT_TRUE(ServeUntil([&] { return !desk.State().LiveOpen; }));
    desk.Click(true);
    EXPECT_TRUE(desk.State().LiveOpen);
    EXPECT_EQ(desk.Boxes(), Texts{});
    EXPECT_NE(stage.Owner(), first);
    EXPECT_EQ(stage.Started(), 2);
}

TEST(LiveBusTest, AClosingProgramThatKeepsItsNameIsAFailureAndNotUsedAgain) {
    LiveBusRig stage(Hasty);
    LiveRig desk(stage.camera);
    desk.Click(true);
    stage.Play("stays");
    stage.Work(QStringLiteral("WindowClose"));
    EXPECT_TRUE(ServeUntil([&] { return !desk.State().LiveOpen; }));
    stage.Calls();
    desk.Click();
    EXPECT_EQ(desk.Boxes(), CameraLoad);
    ExpectClosed(desk);
    EXPECT_EQ(stage.Calls(), Texts{});
    stage.Work(QStringLiteral("ReleaseName"));
    desk.Click(true);
    EXPECT_TRUE(desk.State().LiveOpen);
}

}  // namespace

}  // namespace travo::test
