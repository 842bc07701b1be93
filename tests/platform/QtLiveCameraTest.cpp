#include "platform/qt/QtLiveCamera.h"

#include <gtest/gtest.h>

#include "platform/LiveBusRig.h"

namespace travo::test {

namespace {

using platform::LiveCameraFailure;

const QLatin1String ShowWindow("LiveShowWindow");
const QLatin1String Attach("LiveAttach");
const QLatin1String Magnification("LiveChangeMagnification");

TEST(QtLiveCameraTest, WaitsTenSecondsForAStartAndTwoForACallAndForARelease) {
    EXPECT_EQ(Patient.start, std::chrono::seconds(10));
    EXPECT_EQ(Patient.call, std::chrono::seconds(2));
    EXPECT_EQ(Patient.release, std::chrono::seconds(2));
}

TEST(QtLiveCameraTest, WithoutASessionBusCreateRaisesAndTheRestIsHarmless) {
    const QTemporaryDir empty;
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", empty.path().toLocal8Bit());
    QtLiveCamera camera;
    Told told;
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
    EXPECT_THROW(camera.Call(ShowWindow), LiveCameraFailure);
    camera.Announce(Attach);
    camera.Release();
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + empty.path() + "/nobody").toLocal8Bit());
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
}

TEST(QtLiveCameraTest, ABusThatRefusesUsIsAFailureAndNotTheEnd) {
    const PrivateBus bus(PrivateBus::Room::None);
    QtLiveCamera camera;
    Told told;
    EXPECT_THROW(camera.Create(told), LiveCameraFailure);
}

TEST(QtLiveCameraTest, FindsTheBusInTheRuntimeFolder) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, AnAbsentProgramIsAFailureAtOnce) {
    LiveBusRig stage;
    stage.bus.Uninstall(Service);
    Told told;
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
}

TEST(QtLiveCameraTest, CallsNeverStartTheProgram) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    stage.Work(QStringLiteral("Die"));
    EXPECT_TRUE(told.Wait({"Lost"}));
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
    stage.camera.Announce(Magnification, 1);
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
    EXPECT_EQ(stage.Owner(), QString());
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCameraTest, AProgramThatEndsBeforeItIsReadyIsAFailure) {
    LiveBusRig stage;
    stage.Play("ends at once");
    Told told;
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCameraTest, AProgramThatNeverComesUpIsAFailureAtTheLimit) {
    LiveBusRig stage({std::chrono::milliseconds(300), std::chrono::milliseconds(300), {}});
    stage.Play("never comes up");
    Told told;
    EXPECT_THROW(stage.camera.Create(told), LiveCameraFailure);
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
}

TEST(QtLiveCameraTest, AnAnswerThatComesTooLateIsNotTakenForThatOfTheNextCall) {
    LiveBusRig stage(Hasty);
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

TEST(QtLiveCameraTest, TheLossOfTheProgramIsToldOnce) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    stage.Work(QStringLiteral("Die"));
    EXPECT_TRUE(told.Wait({"Lost"}));
    EXPECT_THROW(stage.camera.Call(ShowWindow), LiveCameraFailure);
}

TEST(QtLiveCameraTest, CallsGoToTheProgramOfTheCreationOnly) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, TheMagnificationGoesAsASixteenBitNumber) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    stage.camera.Announce(Magnification, 3);
    stage.camera.Call(ShowWindow);
    EXPECT_EQ(stage.Calls(), (Texts{"LiveChangeMagnification 3 n", "LiveShowWindow"}));
}

TEST(QtLiveCameraTest, AnEventNeverComesFromWithinACall) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    stage.Play("tells first");
    stage.camera.Call(ShowWindow);
    EXPECT_EQ(told.texts, Texts{});
    EXPECT_TRUE(told.Wait({"BirdViewSave"}));
}

TEST(QtLiveCameraTest, AnEventOnItsWayAtTheReleaseIsNotTold) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, TheProgramOfAnEarlierObjectIsNotHeardAnyMore) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, AnEventOfSomebodyElseIsNotTold) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, ReleasingLeavesTheBusSoThatTheProgramCanEnd) {
    LiveBusRig stage;
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

TEST(QtLiveCameraTest, ReplacingAnObjectStaysOnTheBusAllTheTime) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    const int before = stage.bus.Clients();
    stage.camera.Create(told);
    EXPECT_EQ(stage.bus.Clients(), before);
    EXPECT_EQ(stage.Started(), 1);
}

TEST(QtLiveCameraTest, TheEndOfTheBusIsALossAndANewBusIsFound) {
    LiveBusRig stage;
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
