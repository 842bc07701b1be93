#include "platform/qt/QtLiveCamera.h"

#include <gtest/gtest.h>

#include "platform/LiveBusStage.h"

namespace travo::test {

namespace {

using platform::LiveCameraFailure;

const QLatin1String ShowWindow("LiveShowWindow");
const QLatin1String Attach("LiveAttach");
const QLatin1String Magnification("LiveChangeMagnification");

class LiveBusTableTest : public ::testing::TestWithParam<LiveRow> {};

TEST_P(LiveBusTableTest, LeadsWhereTheTableSaysOverARealBus) {
    BusStage stage;
    CheckLiveRow(GetParam(), stage);
}

std::string RowName(const ::testing::TestParamInfo<LiveRow>& info) { return LiveRowName(info.param); }

INSTANTIATE_TEST_SUITE_P(Rows, LiveBusTableTest, ::testing::ValuesIn(LiveTable()), RowName);

TEST(QtLiveCamera, WaitsTenSecondsForAStartAndTwoForACallAndForARelease) {
    EXPECT_EQ(Patient.start, std::chrono::seconds(10));
    EXPECT_EQ(Patient.call, std::chrono::seconds(2));
    EXPECT_EQ(Patient.release, std::chrono::seconds(2));
}

TEST(QtLiveCamera, WithoutASessionBusCreateRaisesAndTheRestIsHarmless) {
    const QTemporaryDir empty;
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", empty.path().toLocal8Bit());
    QtLiveCamera camera;
    Told told;
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
    EXPECT_THROW(camera.Call(ShowWindow), LiveCameraFailure);
    camera.Release();
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + empty.path() + "/nobody").toLocal8Bit());
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
    LiveDesk desk(camera);
    desk.StartUp();
    desk.link.LiveActionStart();
    desk.link.LiveActionEnd();
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
}

TEST(QtLiveCamera, ABusThatRefusesUsIsAFailureAndNotTheEnd) {
    const PrivateBus bus(PrivateBus::Room::None);
    QtLiveCamera camera;
    Told told;
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
}

TEST(QtLiveCamera, FindsTheBusInTheRuntimeFolder) {
    BusStage stage;
    const QTemporaryDir runtime;
    const QString socket = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")
                               .section(QLatin1String("unix:path="), 1)
                               .section(QLatin1Char(','), 0, 0);
    ASSERT_TRUE(QFile::link(socket, runtime.filePath(QStringLiteral("bus"))));
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    Told told;
    EXPECT_NO_THROW(stage.camera.Create(told));
}

TEST(QtLiveCamera, AnAbsentProgramIsAFailureAtOnceAndALaterTryFindsIt) {
    BusStage stage;
    stage.bus.Uninstall(Service);
    LiveDesk desk(stage.camera);
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
    stage.Install();
    EXPECT_TRUE(ServeUntil([&] {
        desk.Click(true);  // until the bus has read its folder again
        return desk.state.LiveOpen;
    }));
}

TEST(QtLiveCamera, AProgramThatEndsBeforeItIsReadyIsAFailure) {
    BusStage stage;
    stage.Play("ends at once");
    Told told;
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCamera, AProgramThatNeverComesUpIsAFailureAtTheLimit) {
    BusStage stage({std::chrono::milliseconds(300), std::chrono::milliseconds(300), {}});
    stage.Play("never comes up");
    Told told;
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
}

TEST(QtLiveCamera, AnEmptyProgramFailsAtTheFirstCall) {
    BusStage stage;
    stage.Play("empty");
    LiveDesk desk(stage.camera);
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_FALSE(desk.buttonPressed);
}

TEST(QtLiveCamera, ASlowProgramIsWaitedFor) {
    BusStage stage;
    stage.Play("slow");
    LiveDesk desk(stage.camera);
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{});
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
}

TEST(QtLiveCamera, AnAnswerThatComesTooLateIsNotTakenForThatOfTheNextCall) {
    BusStage stage(Hasty);
    Told told;
    stage.camera.Create(told);
    stage.Play("late");
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    stage.Play("hangs");
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    stage.Play("");
    EXPECT_NO_THROW(stage.camera.Call(Attach));
}

TEST(QtLiveCamera, AProgramThatDiesInTheMiddleOfACallFailsThatCall) {
    BusStage stage;
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Play("dies");
    desk.Click(false);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    EXPECT_EQ(desk.told, Texts{"Died"});
    stage.Play("");
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
    EXPECT_EQ(desk.told, Texts{"Died"}) << "the loss of its name is no second death";
    EXPECT_EQ(stage.Started(), 2);
}

TEST(QtLiveCamera, TheLossOfTheProgramIsToldOnce) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.Work(QStringLiteral("Die"));
    EXPECT_TRUE(told.Wait({"Lost"}));
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
}

TEST(QtLiveCamera, AHangingProgramIsWaitedForByNobodyAndDeadAtTheLimit) {
    BusStage stage(Hasty);
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Play("hangs");
    desk.state.CurrentMagnification(2);
    EXPECT_EQ(desk.told, Texts{}) << "the magnification has gone on";
    EXPECT_TRUE(ServeUntil([&] { return !desk.told.empty(); }));
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_EQ(desk.reported, Texts{});
    EXPECT_FALSE(desk.state.LiveOpen);
    EXPECT_FALSE(desk.buttonPressed);
}

TEST(QtLiveCamera, AProgramThatAnswersWithAnErrorIsDead) {
    BusStage stage;
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Play("refuses");
    desk.link.LiveActionStart();
    EXPECT_TRUE(ServeUntil([&] { return !desk.told.empty(); }));
    EXPECT_EQ(desk.told, Texts{"Died"});
    EXPECT_FALSE(desk.state.LiveOpen);
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
}

TEST(QtLiveCamera, AProgramThatComesBackIsUsedAgain) {
    BusStage stage(Hasty);
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Play("hangs");
    desk.Click(false);
    EXPECT_EQ(desk.reported, Texts{"Error : Window Load"});
    stage.Play("");
    stage.Calls();
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveAttach", "LiveShowWindow"}));
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCamera, CallsNeverStartTheProgram) {
    BusStage stage;
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Tell(LiveStep::Lost, desk);
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
    desk.link.LiveActionStart();
    desk.state.LiveOpen = true;
    EXPECT_THROW(desk.link.LiveShowWindow(), LiveCameraFailure);
    EXPECT_EQ(stage.Owner(), QString());
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCamera, CallsGoToTheProgramOfTheCreationOnly) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.Work(QStringLiteral("ReleaseName"));
    QtLiveCamera other;
    Told otherTold;
    other.Create(otherTold);
    ASSERT_EQ(stage.Started(), 2);
    stage.Work(QStringLiteral("Die"));
    EXPECT_TRUE(otherTold.Wait({"Lost"}));
    EXPECT_NO_THROW(stage.camera.Call(ShowWindow)) << "the first program is still there";
    EXPECT_EQ(told.texts, Texts{});
}

TEST(QtLiveCamera, TheMagnificationGoesAsASixteenBitNumber) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.camera.Announce(Magnification, 3);
    stage.camera.Call(ShowWindow);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveChangeMagnification 3 n", "LiveShowWindow"}));
}

TEST(QtLiveCamera, ANewCreationWaitsForTheReleaseOfTheNameOfAClosingProgram) {
    BusStage stage;
    LiveDesk desk(stage.camera);
    desk.Click(true);
    const QString first = stage.Owner();
    stage.Play("lingers");
    stage.Tell(LiveStep::WindowClose, desk);
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
    EXPECT_EQ(desk.reported, Texts{});
    EXPECT_NE(stage.Owner(), first);
    EXPECT_EQ(stage.Started(), 2);
}

TEST(QtLiveCamera, AClosingProgramThatKeepsItsNameIsAFailureAndNotUsedAgain) {
    BusStage stage(Hasty);
    LiveDesk desk(stage.camera);
    desk.Click(true);
    stage.Play("stays");
    stage.Tell(LiveStep::WindowClose, desk);
    stage.Calls();
    desk.Click(true);
    EXPECT_EQ(desk.reported, Texts{"Error : Camera Load"});
    EXPECT_FALSE(desk.buttonPressed);
    EXPECT_EQ(stage.Calls(), Texts{});
    stage.Work(QStringLiteral("ReleaseName"));
    desk.Click(true);
    EXPECT_TRUE(desk.state.LiveOpen);
}

TEST(QtLiveCamera, AnEventNeverComesFromWithinACall) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.Play("tells first");
    stage.camera.Call(ShowWindow);
    EXPECT_EQ(told.texts, Texts{});
    EXPECT_TRUE(told.Wait({"BirdViewSave"}));
}

TEST(QtLiveCamera, AnEventOnItsWayAtTheReleaseIsNotTold) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.Play("tells first");
    stage.camera.Call(ShowWindow);
    stage.camera.Release();
    stage.Play("");
    stage.camera.Create(told);
    stage.Work(QStringLiteral("WindowHide"));
    EXPECT_TRUE(told.Wait({"WindowHide"}));
}

TEST(QtLiveCamera, TheProgramOfAnEarlierObjectIsNotHeardAnyMore) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    const QString first = stage.Owner();
    stage.Work(QStringLiteral("ReleaseName"));
    stage.camera.Create(told);
    ASSERT_NE(stage.Owner(), first);
    stage.Work(QStringLiteral("BirdViewSave"), first);
    stage.Work(QStringLiteral("Die"), first);
    stage.Work(QStringLiteral("WindowHide"));
    EXPECT_TRUE(told.Wait({"WindowHide"}));
}

TEST(QtLiveCamera, AnEventOfSomebodyElseIsNotTold) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    {
        QDBusConnection stranger = QDBusConnection::connectToBus(
            qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("stranger"));
        stranger.send(
            QDBusMessage::createSignal(QStringLiteral("/Live"), Service, QStringLiteral("WindowClose")));
        stranger.interface()->isServiceRegistered(Service);  // answered after the event has gone out
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
    stage.Work(QStringLiteral("WindowHide"));
    EXPECT_TRUE(told.Wait({"WindowHide"}));
}

TEST(QtLiveCamera, ReleasingLeavesTheBusSoThatTheProgramCanEnd) {
    BusStage stage;
    Told told;
    const int before = stage.bus.Clients();
    stage.camera.Create(told);
    EXPECT_EQ(stage.bus.Clients(), before + 2) << "the program and its caller";
    stage.camera.Release();
    EXPECT_TRUE(ServeUntil([&] { return stage.bus.Clients() == before + 1; }));
    stage.camera.Release();
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
    EXPECT_NO_THROW(stage.camera.Create(told));
}

TEST(QtLiveCamera, ReplacingAnObjectStaysOnTheBusAllTheTime) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    const int before = stage.bus.Clients();
    stage.camera.Create(told);
    EXPECT_EQ(stage.bus.Clients(), before);
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCamera, TheEndOfTheBusIsALossAndANewBusIsFound) {
    BusStage stage;
    Told told;
    stage.camera.Create(told);
    stage.bus.Stop();
    EXPECT_TRUE(told.Wait({"Lost"}));
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
    stage.bus.Start();
    EXPECT_NO_THROW(stage.camera.Create(told));
    EXPECT_NO_THROW(stage.camera.Call(Attach));
}

}  // namespace

}  // namespace travo::test
