#include "platform/qt/SessionBus.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QTemporaryDir>

#include "platform/LiveBusRig.h"
#include "support/SilentBus.h"

namespace travo::test {

namespace {

using platform::qt::IsSilent;
using platform::qt::SessionBusAddress;
using platform::qt::SilentBusGuard;

// For a bus that answers: not the limit says so. For one that does not: not to wait for long.
constexpr std::chrono::milliseconds Long{60000};
constexpr std::chrono::milliseconds Short{200};

QByteArray Environment() { return qgetenv("DBUS_SESSION_BUS_ADDRESS"); }

TEST(SessionBusTest, ABusThatAnswersIsNotSilent) {
    const PrivateBus bus;
    EXPECT_FALSE(IsSilent(SessionBusAddress(), Long));
}

TEST(SessionBusTest, ABusThatRefusesUsIsNotSilent) {
    const PrivateBus bus(PrivateBus::Room::None);
    EXPECT_FALSE(IsSilent(SessionBusAddress(), Long));
}

TEST(SessionBusTest, NoBusIsNotSilent) {
    const QTemporaryDir empty;
    EXPECT_FALSE(IsSilent(QString(), Long));
    EXPECT_FALSE(IsSilent(QStringLiteral("unix:path=") + empty.filePath(QStringLiteral("nobody")), Long));
    EXPECT_FALSE(IsSilent(QStringLiteral("unix:path=/") + QString(200, QLatin1Char('x')), Long));
}

TEST(SessionBusTest, ABusThatIsReachedOtherwiseIsNotTried) {
    EXPECT_FALSE(IsSilent(QStringLiteral("tcp:host=localhost,port=1"), Long));
    EXPECT_FALSE(IsSilent(QStringLiteral("autolaunch:"), Long));
}

TEST(SessionBusTest, ABusThatTakesAConnectionAndSaysNothingIsSilent) {
    const SilentBus silent(SilentBus::Manner::TakesConnections);
    EXPECT_TRUE(IsSilent(silent.Address(), Short));
}

TEST(SessionBusTest, ABusThatHasNoRoomForAConnectionIsSilent) {
    const SilentBus silent(SilentBus::Manner::HasNoRoom);
    EXPECT_TRUE(IsSilent(silent.Address(), Short));
}

TEST(SessionBusTest, ABusThatLetsUsInAndDoesNotGreetUsIsSilent) {
    SilentBus silent(SilentBus::Manner::LetsUsIn);
    EXPECT_TRUE(IsSilent(silent.Address(), std::chrono::seconds(2)));
    EXPECT_TRUE(silent.HasLetUsIn());
}

TEST(SessionBusTest, TheFirstEntryOfAnAddressThatTakesAConnectionCounts) {
    const SilentBus silent(SilentBus::Manner::TakesConnections);
    const PrivateBus bus;
    EXPECT_TRUE(IsSilent(QStringLiteral("unix:path=/nobody;") + silent.Address(), Short));
    EXPECT_FALSE(IsSilent(SessionBusAddress() + QLatin1Char(';') + silent.Address(), Long));
}

TEST(SessionBusTest, ANameInAnAddressMayBeEscapedAndAbstract) {
    const SilentBus silent(SilentBus::Manner::TakesConnections);
    EXPECT_TRUE(IsSilent(silent.EscapedAddress() + QStringLiteral(",guid=00"), Short));
    const SilentBus abstract(SilentBus::Manner::TakesConnections, SilentBus::Place::Abstract);
    EXPECT_TRUE(IsSilent(abstract.Address(), Short));
}

TEST(SilentBusGuardTest, ABusThatAnswersStaysWhereItIs) {
    const PrivateBus bus;
    const QByteArray before = Environment();
    SilentBusGuard guard(Long);
    EXPECT_EQ(Environment(), before);
    guard.LetGo();
    EXPECT_EQ(Environment(), before);
}

TEST(SilentBusGuardTest, ASilentBusThatHasBeenLetGoStaysOutOfTheToolkitsReach) {
    const SilentBus silent(SilentBus::Manner::TakesConnections);
    qputenv("DBUS_SESSION_BUS_ADDRESS", silent.Address().toLocal8Bit());
    SilentBusGuard guard(Short);
    EXPECT_NE(Environment(), silent.Address().toLocal8Bit());
    guard.LetGo();
    EXPECT_EQ(Environment(), silent.Address().toLocal8Bit());
    EXPECT_FALSE(QDBusConnection::sessionBus().isConnected());
    EXPECT_EQ(silent.Newcomers(), 1) << "the guard alone has tried it";
}

TEST(SilentBusGuardTest, ASilentBusInTheRuntimeFolderIsOutOfReachAsWell) {
    const SilentBus silent(SilentBus::Manner::TakesConnections, SilentBus::Place::RuntimeFolder);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    SilentBusGuard guard(Short);
    EXPECT_FALSE(
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("two")).isConnected());
    guard.LetGo();
    EXPECT_FALSE(qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
}

TEST(QtLiveCameraBusTest, ASilentBusIsAFailureAtTheLimitOfACall) {
    const SilentBus silent(SilentBus::Manner::TakesConnections);
    qputenv("DBUS_SESSION_BUS_ADDRESS", silent.Address().toLocal8Bit());
    QtLiveCamera camera(Hasty);
    Told told;
    EXPECT_THROW(camera.Create(told), platform::LiveCameraFailure);
    EXPECT_EQ(silent.Newcomers(), 1) << "the bus library has not tried it as well";
}

}  // namespace

}  // namespace travo::test
