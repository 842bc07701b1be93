// The camera program as it is shipped, on a bus, a runtime folder and a program folder of its own.
#include "workbench/live/LiveProgram.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "core/ground/Arithmetic.h"
#include "platform/qt/QtLiveCamera.h"
#include "support/LiveRig.h"
#include "support/PrivateBus.h"
#include "workbench/WorkbenchProcess.h"
#include "workbench/client/WorkbenchClient.h"
#include "workbench/live/LiveClient.h"

namespace workbench::live {

namespace {

using travo::platform::qt::QtLiveCamera;
using travo::test::LiveRig;
using travo::test::ServeUntil;
using travo::test::Texts;

// Listens to a camera of its own and does nothing about it.
class Nobody : public travo::platform::LiveCamera::Listener {
    void BirdViewSave() override {}
    void WindowHide() override {}
    void WindowClose() override {}
    void Lost() override {}
};

class LiveProgramTest : public ::testing::Test {
protected:
    LiveProgramTest() {
        qputenv("XDG_RUNTIME_DIR", runtime_.path().toLocal8Bit());
        qputenv("QT_QPA_PLATFORM", "offscreen");
        bus_.emplace();
        const QString program = program_.filePath(QStringLiteral("TRAVOLive"));
        EXPECT_TRUE(QFile::copy(QStringLiteral(LIVE_PROGRAM), program));
        EXPECT_EQ(QProcess::execute(QStringLiteral(LIVE_SERVICE_SCRIPT), {bus_->Folder(), program_.path()}),
                  0);
        camera_ = std::make_unique<QtLiveCamera>();
        desk_ = std::make_unique<LiveRig>(*camera_);
    }
    ~LiveProgramTest() override {
        desk_.reset();
        camera_.reset();
        bus_.reset();
    }

    void Open() {
        desk_->Click(true);
        ASSERT_TRUE(desk_->State().LiveOpen);
        process_ = NoteProcess();
    }
    // The process behind the name; the bus's end looks whether it has ended.
    qint64 NoteProcess() {
        const QString name = QStringLiteral("asking");
        qint64 process = 0;
        {
            QDBusConnection asking =
                QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
            process = asking.interface()->servicePid(QStringLiteral("TRAVOLive.Live")).value();
        }
        QDBusConnection::disconnectFromBus(name);
        const QString file = bus_->File(QStringLiteral("processes"));
        travo::test::WriteText(file,
                               travo::test::ReadText(file) + QString::number(process) + QLatin1Char('\n'));
        return process;
    }
    bool Ended() const {
        const QString status = travo::test::ReadText(QStringLiteral("/proc/%1/stat").arg(process_))
                                   .section(QLatin1Char(')'), -1);
        return status.isEmpty() || status.trimmed().startsWith(QLatin1Char('Z'));
    }
    // What it has been announced takes effect without anybody waiting for it.
    template <typename Condition>
    bool Becomes(Condition condition) {
        return ServeUntil([&] { return condition(client_->Now()); });
    }
    // The program has heard that of the camera; what the end of a camera brings may come behind it.
    bool Told(const std::string& event) {
        return ServeUntil([&] { return std::ranges::count(desk_->Told(), event) > 0; });
    }
    QImage Still() const { return QImage(program_.filePath(QStringLiteral("BirdView.bmp"))); }
    std::int64_t Received(const char* call) { return client_->Counters()[call]; }

    QTemporaryDir runtime_;
    QTemporaryDir program_;
    std::optional<travo::test::PrivateBus> bus_;
    std::unique_ptr<QtLiveCamera> camera_;
    std::unique_ptr<LiveRig> desk_;
    // Made when it is first asked for: the runtime folder is another one for each test.
    struct Client {
        LiveClient& operator*() {
            if (!client) {
                client.emplace();
            }
            return *client;
        }
        LiveClient* operator->() { return &**this; }
        std::optional<LiveClient> client;
    } client_;
    qint64 process_ = 0;
};

TEST_F(LiveProgramTest, ShowsAndHidesItsWindowAndTellsNothingOfThat) {
    Open();
    EXPECT_TRUE(client_->Now().visible);
    EXPECT_TRUE(client_->Now().attached);
    desk_->Click(false);
    EXPECT_FALSE(client_->Now().visible);
    client_->Save();
    EXPECT_TRUE(Told("BirdViewSave"));
    EXPECT_EQ(desk_->Told(), Texts{"BirdViewSave"}) << "no WindowHide before it";
}

TEST_F(LiveProgramTest, HiddenByItsOperatorItTellsSoAndIsHiddenOnce) {
    Open();
    client_->Hide();
    EXPECT_TRUE(Told("WindowHide"));
    EXPECT_FALSE(desk_->ButtonPressed());
    EXPECT_TRUE(desk_->State().LiveOpen);
    EXPECT_EQ(Received("LiveHideWindow"), 1);
    desk_->Click(true);
    EXPECT_TRUE(client_->Now().visible);
}

TEST_F(LiveProgramTest, ClosedByItsOperatorItTellsSoAndEnds) {
    Open();
    client_->Close();
    EXPECT_TRUE(Told("WindowClose"));
    EXPECT_FALSE(desk_->State().LiveOpen);
    const qint64 first = process_;
    desk_->Click(true);
    EXPECT_TRUE(desk_->State().LiveOpen);
    EXPECT_NE(NoteProcess(), first);
    EXPECT_TRUE(ServeUntil([this] { return Ended(); }));
}

TEST_F(LiveProgramTest, AskedToEndBySignalItClosesAsByItsOperator) {
    Open();
    kill(static_cast<pid_t>(process_), SIGTERM);
    EXPECT_TRUE(Told("WindowClose"));
    EXPECT_TRUE(ServeUntil([this] { return Ended(); }));
}

TEST_F(LiveProgramTest, ThePictureIsWholeWhenItIsToldOf) {
    Open();
    client_->Save();
    EXPECT_TRUE(Told("BirdViewSave"));
    EXPECT_EQ(Still().size(), QSize(640, 480));
    EXPECT_EQ(client_->Now().saved, 1);
}

TEST_F(LiveProgramTest, APictureThatCannotBeSavedIsNotToldOf) {
    Open();
    ASSERT_TRUE(QDir(program_.path()).mkdir(QStringLiteral("BirdView.bmp")));
    EXPECT_THROW(client_->Save(), travo::Failure);
    client_->Hide();
    EXPECT_TRUE(Told("WindowHide"));
    EXPECT_EQ(desk_->Told(), Texts{"WindowHide"});
}

TEST_F(LiveProgramTest, RunsWithoutAWorkbenchAndSeesOneThatComes) {
    Open();
    client_->Save();
    EXPECT_TRUE(Told("BirdViewSave"));
    const QImage without = Still();
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient world;
    world.SetMagnification(1);
    client_->Save();
    ASSERT_TRUE(ServeUntil([this] { return client_->Now().saved == 2; }));
    EXPECT_NE(Still(), without);
}

TEST_F(LiveProgramTest, ThePictureFollowsTheWorld) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient world;
    world.SetMagnification(1);
    Open();
    client_->Save();
    const QImage before = Still();
    world.Move(1, {12500, 12500, 12500});
    ASSERT_TRUE(world.WaitForRest(std::chrono::seconds(20)));
    client_->Save();
    EXPECT_NE(Still(), before);
    world.Move(1, {9500, 12500, 12500});
    ASSERT_TRUE(world.WaitForRest(std::chrono::seconds(20)));
    client_->Save();
    EXPECT_EQ(Still(), before);
}

TEST_F(LiveProgramTest, TakesEveryCallOfTheLink) {
    Open();
    desk_->Link().LiveCalibPoints();
    EXPECT_TRUE(Becomes([](const auto& now) { return now.overlay == "points"; }));
    desk_->Link().LiveCalibZ();
    EXPECT_TRUE(Becomes([](const auto& now) { return now.overlay == "z"; }));
    desk_->Link().LiveCalibCenter();
    EXPECT_TRUE(Becomes([](const auto& now) { return now.overlay == "center"; }));
    desk_->Link().AnnouncePanelLeave();
    EXPECT_TRUE(Becomes([](const auto& now) { return now.overlay == "none"; }));
    desk_->Link().LiveActionStart();
    EXPECT_TRUE(Becomes([](const auto& now) { return now.action; }));
    desk_->Link().LiveActionEnd();
    EXPECT_TRUE(Becomes([](const auto& now) { return !now.action; }));
    desk_->State().CurrentMagnification(3);
    EXPECT_TRUE(Becomes([](const auto& now) { return now.toldMagnification == 3; }));
    EXPECT_EQ(Received("LiveAttach"), 1);
    EXPECT_EQ(Received("LiveShowWindow"), 1);
    EXPECT_EQ(desk_->Told(), Texts{});
}

TEST_F(LiveProgramTest, EndsWithItsLastCaller) {
    Open();
    QtLiveCamera other;
    Nobody nobody;
    other.Create(nobody);
    other.Call(QLatin1String("LiveAttach"));
    EXPECT_EQ(client_->Now().callers, 2);
    desk_->Link().Release();
    EXPECT_TRUE(ServeUntil([this] { return client_->Now().callers == 1; }));
    EXPECT_NO_THROW(other.Call(QLatin1String("LiveShowWindow")));
    other.Release();
    EXPECT_TRUE(ServeUntil([this] { return Ended(); }));
}

TEST_F(LiveProgramTest, IsFoundByACallerThatComesWhileTheLastOneLeaves) {
    QtLiveCamera leaving;
    Nobody nobody;
    for (int round = 0; round < 5; ++round) {
        leaving.Create(nobody);
        EXPECT_NO_THROW(leaving.Call(QLatin1String("LiveAttach")));
        NoteProcess();
        leaving.Release();
    }
    desk_->Click(true);
    NoteProcess();
    EXPECT_EQ(desk_->Boxes(), Texts{});
    EXPECT_TRUE(desk_->State().LiveOpen);
}

TEST_F(LiveProgramTest, EndsWhenNobodyCallsItWithinTenSeconds) {
    desk_->Link().Create();
    process_ = NoteProcess();
    EXPECT_TRUE(ServeUntil([this] { return Ended(); }, 60000));
    EXPECT_TRUE(Told("Lost"));
}

TEST_F(LiveProgramTest, EndsWithTheBus) {
    Open();
    bus_->Stop();
    EXPECT_TRUE(ServeUntil([this] { return Ended(); }));
}

TEST_F(LiveProgramTest, ASecondOneOnTheSameBusIsRefused) {
    Open();
    EXPECT_EQ(QProcess::execute(program_.filePath(QStringLiteral("TRAVOLive")), {}), 1);
    EXPECT_NO_THROW(desk_->Link().LiveShowWindow());
}

TEST_F(LiveProgramTest, KilledItIsDeadAndAPressStartsAnother) {
    Open();
    client_->Kill();
    EXPECT_TRUE(Told("Lost"));
    EXPECT_FALSE(desk_->ButtonPressed());
    desk_->Click(true);
    EXPECT_EQ(desk_->Boxes(), Texts{});
    NoteProcess();
    EXPECT_TRUE(client_->Running());
}

TEST_F(LiveProgramTest, HangingItIsDeadAndComesBack) {
    Open();
    client_->Hang(3.0);
    desk_->Click(false);
    EXPECT_EQ(desk_->Boxes(), Texts{"Error : Window Load"});
    EXPECT_FALSE(desk_->State().LiveOpen);
    EXPECT_FALSE(desk_->ButtonPressed());
    EXPECT_TRUE(client_->Running());
    desk_->Click(true);
    EXPECT_TRUE(desk_->State().LiveOpen);
}

TEST_F(LiveProgramTest, AnAnnouncementThatIsMadeToFailKillsTheObject) {
    Open();
    client_->Fail(1);
    desk_->Link().LiveActionStart();
    EXPECT_TRUE(Told("Lost"));
    EXPECT_FALSE(client_->Now().action);
    desk_->Click(true);
    EXPECT_TRUE(desk_->State().LiveOpen);
}

TEST_F(LiveProgramTest, TheWorkbenchHandsCommandsOnAndOneThatHangsTakesThemUpLater) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient world;
    EXPECT_EQ(world.Ask("camera running"), "0");
    Open();
    EXPECT_EQ(world.Ask("camera running"), "1");
    world.Ask("camera hide");
    EXPECT_TRUE(Told("WindowHide"));
    world.Ask("camera fail 1");
    desk_->Link().LiveActionStart();
    EXPECT_TRUE(Told("Lost"));
    desk_->Click(true);
    world.Ask("camera hang 1");
    world.Ask("camera close");
    EXPECT_EQ(world.Ask("camera running"), "1");
    EXPECT_TRUE(Told("WindowClose"));
    EXPECT_TRUE(ServeUntil([&] { return world.Ask("camera running") == "0"; }));
    EXPECT_THROW(world.Ask("camera kill"), travo::Failure);
}

TEST_F(LiveProgramTest, RefusesCommandsThatItDoesNotKnow) {
    Open();
    for (const char* const line : {"", "dance", "hang", "hang -1", "hang 1e9", "fail -1", "fail x"}) {
        EXPECT_THROW(client_->Ask(line), travo::Failure) << line;
    }
    EXPECT_TRUE(client_->Running());
}

}  // namespace

}  // namespace workbench::live
