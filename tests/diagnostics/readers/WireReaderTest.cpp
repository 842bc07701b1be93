// The wires, at pseudo-terminals and files in their place.
#include "diagnostics/readers/WireReader.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "diagnostics/readers/Rig.h"

namespace travo::diagnostics::test {

namespace {

constexpr uid_t Nobody = 65534;

// The effective user without rights, for as long as it lives.
struct WithoutRights {
    WithoutRights() : before(::geteuid()) {
        if (before == 0) {
            EXPECT_EQ(::seteuid(Nobody), 0);
        }
    }
    ~WithoutRights() { EXPECT_EQ(::seteuid(before), 0); }
    uid_t before;
};

class WireReaderTest : public ::testing::Test, protected Rig {
protected:
    WireReaderTest() {
        places.programFolder = folder;
        places.terminals = place.filePath(QStringLiteral("tty"));
        places.lockFolders = {place.filePath(QStringLiteral("lock"))};
    }
    ~WireReaderTest() override {
        for (const int end : {master, slave}) {
            if (end >= 0) {
                ::close(end);
            }
        }
    }

    QString OpenTerminal() {
        char name[256];
        EXPECT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
        return QString::fromLocal8Bit(name);
    }
    LinkCard Card(std::int32_t number, bool isTravoRunning = false) {
        return WireCard(Link::Mirror, ReadWire(number, places), isTravoRunning, discretion);
    }
    std::string Sentence(std::int32_t number, bool isTravoRunning = false) {
        return Card(number, isTravoRunning).text.sentence.toStdString();
    }

    WirePlaces places;
    int master = -1;
    int slave = -1;
};

}  // namespace

TEST_F(WireReaderTest, WithoutANumberNoPortIsSet) {
    EXPECT_EQ(Sentence(-1), "No port is set.");
    EXPECT_EQ(Card(-1).text.mark, Mark::NotSetUp);
    EXPECT_TRUE(Card(-1).details.empty());
}

TEST_F(WireReaderTest, APortThatIsThereIsFree) {
    Pin(1, OpenTerminal());
    EXPECT_EQ(Sentence(1), "Port 1 is there and free. TRAVO is not running.");
    EXPECT_EQ(Sentence(1, true), "Port 1 is there and free, but not open in TRAVO.");
}

TEST_F(WireReaderTest, ThePinnedDeviceIsNamedInTheDetails) {
    const QString terminal = OpenTerminal();
    Pin(1, terminal);
    EXPECT_EQ(Card(1).details[0], (Detail{QStringLiteral("Device"), terminal + QStringLiteral(", pinned")}));
    EXPECT_EQ(Card(1).details[1].value, QStringLiteral("9600, 8 bits, no parity, 1 stop bit"));
}

TEST_F(WireReaderTest, TheAdapterTellsMakerProductAndSerialNumber) {
    const QString terminal = OpenTerminal();
    Pin(1, terminal);
    const QString adapter = place.filePath(QStringLiteral("usb"));
    Put(adapter + QStringLiteral("/manufacturer"), "Acme\n");
    Put(adapter + QStringLiteral("/product"), "USB adapter\n");
    Put(adapter + QStringLiteral("/serial"), "A1B2\n");
    QDir().mkpath(adapter + QStringLiteral("/port"));
    const QString tty = places.terminals + QLatin1Char('/') + QFileInfo(terminal).fileName();
    QDir().mkpath(tty);
    QFile::link(adapter + QStringLiteral("/port"), tty + QStringLiteral("/device"));
    EXPECT_EQ(ReadWire(1, places).adapter, QStringLiteral("Acme USB adapter, serial A1B2"));
}

TEST_F(WireReaderTest, APinnedDeviceThatIsAwayIsMissedAndCannotBeMistakenForAPortThatIsNotThere) {
    Pin(2, place.filePath(QStringLiteral("nowhere")));
    EXPECT_EQ(Sentence(2), "Port 2 is pinned to a device that is not plugged in.");
    EXPECT_EQ(Card(2).text.remedy,
              QStringLiteral("Plug this device in, or pin the port to another: travo --pin mirror DEVICE"));
    EXPECT_EQ(Sentence(999), "Port 999 is not there: nothing is plugged in.");
}

TEST_F(WireReaderTest, APlaceThatTheDriverOnlyKeepsIsNotThere) {
    const QString terminal = OpenTerminal();
    Pin(1, terminal);
    Put(places.terminals + QLatin1Char('/') + QFileInfo(terminal).fileName() + QStringLiteral("/type"),
        "0\n");
    EXPECT_EQ(Card(1).text.mark, Mark::NeedsYou);
}

TEST_F(WireReaderTest, AClaimedPortIsInUseByItsHolder) {
    Pin(1, OpenTerminal());
    ASSERT_EQ(::ioctl(slave, TIOCEXCL), 0);
    EXPECT_EQ(Sentence(1), "Port 1 is in use by test_diagnostics_readers.");
    EXPECT_EQ(Card(1).text.remedy,
              QStringLiteral("Close test_diagnostics_readers, then press SET in its row."));
    ASSERT_EQ(::ioctl(slave, TIOCNXCL), 0);
    EXPECT_EQ(Card(1).text.mark, Mark::Works);
}

TEST_F(WireReaderTest, ALockedPortThatNobodyIsSeenToHoldIsInUseByAnotherProgram) {
    const QString device = place.filePath(QStringLiteral("device"));
    Put(device, {});
    Pin(1, device);
    QString name = device;
    Put(places.lockFolders[0] + QStringLiteral("/LCK..") + name.replace(QLatin1Char('/'), QLatin1Char('_')),
        QByteArray::number(::getppid()) + "\n");
    EXPECT_EQ(Sentence(1), "Port 1 is in use by another program.");
}

TEST_F(WireReaderTest, OnlyARunningTravoHoldsItsPortRightly) {
    WireFacts facts;
    facts.number = 1;
    facts.device = QStringLiteral("/dev/ttyUSB0");
    facts.isInUse = true;
    facts.programs = QStringList{QStringLiteral("TRAVO")};
    EXPECT_EQ(WireCard(Link::Motor, facts, true, discretion).text.sentence,
              QStringLiteral("Port 1 is open in TRAVO. What was said shows there, with F2."));
    EXPECT_EQ(WireCard(Link::Motor, facts, false, discretion).text.sentence,
              QStringLiteral("Port 1 is in use by TRAVO."));
}

TEST_F(WireReaderTest, ADeviceThatNobodyMayOpenIsDenied) {
    const QString device = place.filePath(QStringLiteral("device"));
    Put(device, {});
    Pin(1, device);
    ASSERT_EQ(::chmod(QFile::encodeName(device).constData(), 0), 0);
    const WithoutRights none;
    EXPECT_EQ(Sentence(1), "Port 1 may not be opened: permission denied.");
}

TEST_F(WireReaderTest, ADeviceOfAGroupOfOthersNamesTheGroup) {
    const group* dialout = ::getgrnam("dialout");
    if (::geteuid() != 0 || dialout == nullptr) {
        GTEST_SKIP() << "Only root can give a file to the group dialout.";
    }
    const QString device = place.filePath(QStringLiteral("device"));
    Put(device, {});
    Pin(1, device);
    ASSERT_EQ(::chown(QFile::encodeName(device).constData(), 0, dialout->gr_gid), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(device).constData(), 0660), 0);
    const WithoutRights none;
    EXPECT_EQ(Sentence(1), "Port 1 may not be opened: your user is not in group dialout.");
    EXPECT_EQ(Card(1).text.remedy,
              QStringLiteral("Have your user added to dialout, log in again, then press SET in its row."));
}

TEST_F(WireReaderTest, TwoInstrumentsOnOneDeviceAreToldAtTheLaterOne) {
    const QString terminal = OpenTerminal();
    Pin(1, terminal);
    Pin(2, terminal);
    WireFacts mirror = ReadWire(1, places);
    WireFacts gauge = ReadWire(-1, places);
    WireFacts motor = ReadWire(2, places);
    FindShared(mirror, gauge, motor);
    EXPECT_EQ(mirror.sharedWith, QString());
    EXPECT_EQ(gauge.sharedWith, QString());
    EXPECT_EQ(WireCard(Link::Motor, motor, false, discretion).text.sentence,
              QStringLiteral("Port 2 is in use by TRAVO: mirror."));
}

}  // namespace travo::diagnostics::test
