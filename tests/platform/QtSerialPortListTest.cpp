#include "platform/qt/QtSerialPortList.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <limits>
#include <stdexcept>

#include "platform/OtherProcess.h"
#include "platform/PseudoTerminal.h"

namespace travo::platform::qt {
namespace {

using test::OtherProcess;

using Entries = std::vector<SerialPortList::Entry>;

constexpr std::int16_t NoNumber = 0;

// A privileged user may do anything: while this lives, the list is asked with the rights of another,
// who may enter the folder.
class AsAnotherUser {
public:
    explicit AsAnotherUser(const QString& folder) {
        QDirIterator folders(folder, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        Admit(folder);
        while (folders.hasNext()) {
            Admit(folders.next());
        }
        EXPECT_TRUE(!privileged_ || ::seteuid(Nobody) == 0);
    }
    ~AsAnotherUser() { EXPECT_TRUE(!privileged_ || ::seteuid(0) == 0); }
    AsAnotherUser(const AsAnotherUser&) = delete;
    AsAnotherUser& operator=(const AsAnotherUser&) = delete;

private:
    static constexpr uid_t Nobody = 65534;

    static void Admit(const QString& folder) {
        EXPECT_EQ(::chmod(QFile::encodeName(folder).constData(), 0755), 0);
    }

    bool privileged_ = ::geteuid() == 0;
};

// A small system in a folder: its device tree, its devices, its lock files.
class QtSerialPortListTest : public ::testing::Test {
protected:
    QtSerialPortListTest() {
        for (const char* name : {"ports", "tree", "hardware", "dev", "lock", "spool"}) {
            QDir(folder_.path()).mkdir(QString::fromLatin1(name));
        }
        places_ = {folder_.path(), Path("tree"), Path("dev"), {Path("lock"), Path("spool")}};
    }

    QString Path(const QString& name) const { return QDir(folder_.path()).canonicalPath() + u'/' + name; }
    QString Path(const char* name) const { return Path(QString::fromLatin1(name)); }
    QString Device(const char* name) const { return Path("dev/") + QString::fromLatin1(name); }

    void Write(const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(text);
    }
    // A terminal of the device tree with a device behind it, and its file among the devices.
    void AddTerminal(const char* name, const QByteArray& type = {}, const QByteArray& product = {}) {
        const QString terminal = Path("tree/") + QString::fromLatin1(name);
        const QString hardware = Path("hardware/") + QString::fromLatin1(name);
        QDir().mkpath(terminal);
        QDir().mkpath(hardware + QStringLiteral("/interface"));
        QFile::link(hardware + QStringLiteral("/interface"), terminal + QStringLiteral("/device"));
        if (!type.isEmpty()) {
            Write(terminal + QStringLiteral("/type"), type);
        }
        if (!product.isEmpty()) {
            Write(hardware + QStringLiteral("/product"), product);
        }
        Write(Device(name), "");
    }
    void Pin(int number, const QString& target) {
        ASSERT_TRUE(QFile::link(target, Path(QStringLiteral("ports/com%1").arg(number))));
    }
    void Lock(const char* folder, const char* device, const QByteArray& text) {
        const QString name = Device(device).replace(u'/', u'_');
        Write(Path(folder) + QStringLiteral("/LCK..") + name, text);
    }
    Entries List() { return QtSerialPortList(places_).List(); }
    QString WhyNot(const char* device) {
        for (const auto& entry : List()) {
            if (entry.device == Device(device)) {
                return entry.whyNot;
            }
        }
        return QStringLiteral("not listed");
    }

    QTemporaryDir folder_;
    QtSerialPortList::Places places_;
};

TEST_F(QtSerialPortListTest, ASystemWithoutPortsGivesAnEmptyList) { EXPECT_EQ(List(), Entries()); }

TEST_F(QtSerialPortListTest, ASystemThatGivesNoListIsAFailure) {
    places_.terminals = Path("none");
    EXPECT_THROW(List(), std::runtime_error);
}

TEST_F(QtSerialPortListTest, BuiltInPortsHaveNumbersFromOneAndAdaptersNone) {
    AddTerminal("ttyUSB0", {}, "Two Wire Adapter\n");
    AddTerminal("ttyS10", "4\n");
    AddTerminal("ttyS0", "4\n");
    const Entries expected{{1, Device("ttyS0"), {}, {}},
                           {11, Device("ttyS10"), {}, {}},
                           {NoNumber, Device("ttyUSB0"), QStringLiteral("Two Wire Adapter"), {}}};
    EXPECT_EQ(List(), expected);
}

TEST_F(QtSerialPortListTest, TerminalsWithoutHardwareAreNoPorts) {
    AddTerminal("ttyS1", "0\n");
    QDir().mkpath(Path("tree/tty7"));
    Write(Device("tty7"), "");
    EXPECT_EQ(List(), Entries());
}

TEST_F(QtSerialPortListTest, ALinkGivesAnAdapterItsNumber) {
    AddTerminal("ttyUSB0", {}, "Adapter\n");
    Pin(7, Device("ttyUSB0"));
    EXPECT_EQ(List(), (Entries{{7, Device("ttyUSB0"), QStringLiteral("Adapter"), {}}}));
}

TEST_F(QtSerialPortListTest, ALinkTakesTheNumberOfABuiltInPort) {
    AddTerminal("ttyS0", "4\n");
    AddTerminal("ttyUSB0");
    Pin(1, Device("ttyUSB0"));
    EXPECT_EQ(List(), (Entries{{1, Device("ttyUSB0"), {}, {}}, {NoNumber, Device("ttyS0"), {}, {}}}));
}

TEST_F(QtSerialPortListTest, ALinkedDeviceThatIsNoHardwareIsListed) {
    Write(Device("pts3"), "");
    Pin(2, Device("pts3"));
    EXPECT_EQ(List(), (Entries{{2, Device("pts3"), {}, {}}}));
}

TEST_F(QtSerialPortListTest, ALinkThatLeadsNowhereIsMissing) {
    Pin(3, Device("gone"));
    EXPECT_EQ(List(), (Entries{{3, Path("ports/com3"), {}, QStringLiteral("missing")}}));
}

TEST_F(QtSerialPortListTest, HardwareWithoutADeviceFileIsMissing) {
    AddTerminal("ttyS0", "4\n");
    QFile::remove(Device("ttyS0"));
    EXPECT_EQ(WhyNot("ttyS0"), QStringLiteral("missing"));
}

TEST_F(QtSerialPortListTest, ADeviceThatMayNotBeReadAndWrittenHasNoPermission) {
    AddTerminal("ttyS0", "4\n");
    QFile::setPermissions(Device("ttyS0"), {});
    const AsAnotherUser user(folder_.path());
    EXPECT_EQ(WhyNot("ttyS0"), QStringLiteral("no permission"));
}

TEST_F(QtSerialPortListTest, ALockFileOfALivingProcessMeansInUse) {
    const OtherProcess other;
    AddTerminal("ttyUSB0");
    EXPECT_EQ(WhyNot("ttyUSB0"), QString());
    Lock("spool", "ttyUSB0", other.Number().rightJustified(10) + '\n');
    EXPECT_EQ(WhyNot("ttyUSB0"), QStringLiteral("in use"));
}

TEST_F(QtSerialPortListTest, ALockFileThatNamesTheProgramAsWellMeansInUseWhileThatProgramLives) {
    const OtherProcess other;
    AddTerminal("ttyUSB0");
    const QByteArray program =
        QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).fileName().toUtf8();
    Lock("lock", "ttyUSB0", other.Number() + '\n' + program + "\nhost\n");
    EXPECT_EQ(WhyNot("ttyUSB0"), QStringLiteral("in use"));
    // The number has been given to another program since.
    Lock("lock", "ttyUSB0", other.Number() + "\nanother program\nhost\n");
    EXPECT_EQ(WhyNot("ttyUSB0"), QString());
}

TEST_F(QtSerialPortListTest, ALockFileThatNamesThisProcessDoesNotLockItOut) {
    AddTerminal("ttyUSB0");
    Lock("lock", "ttyUSB0", QByteArray::number(::getpid()).rightJustified(10) + '\n');
    EXPECT_EQ(WhyNot("ttyUSB0"), QString());
}

TEST_F(QtSerialPortListTest, ATerminalThatAProcessHasClaimedIsInUse) {
    const test::PseudoTerminal wire;
    Pin(2, wire.Device());
    EXPECT_EQ(List().front().whyNot, QString());
    const OtherProcess other(OtherProcess::Holds::ClaimedTerminal, wire.Device());
    EXPECT_EQ(List().front().whyNot, QStringLiteral("in use"));
}

TEST_F(QtSerialPortListTest, ATerminalThatThisProcessHasClaimedIsInUse) {
    const test::PseudoTerminal wire;
    Pin(2, wire.Device());
    const int own = ::open(QFile::encodeName(wire.Device()).constData(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(::ioctl(own, TIOCEXCL), 0);
    EXPECT_EQ(List().front().whyNot, QStringLiteral("in use"));
    ::close(own);
    EXPECT_EQ(List().front().whyNot, QString());
}

TEST_F(QtSerialPortListTest, ATerminalThatAProcessOnlyHoldsOpenCanBeOpened) {
    const test::PseudoTerminal wire;
    Pin(2, wire.Device());
    const OtherProcess other(OtherProcess::Holds::OpenTerminal, wire.Device());
    EXPECT_EQ(List().front().whyNot, QString());
}

TEST_F(QtSerialPortListTest, NoPortIsOpenedForTheList) {
    const int far = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_TRUE(far >= 0 && ::grantpt(far) == 0 && ::unlockpt(far) == 0);
    Pin(2, QString::fromLocal8Bit(::ptsname(far)));
    EXPECT_EQ(List().size(), 1U);
    // A terminal that has been opened and closed says so to its far end.
    pollfd wire{.fd = far, .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&wire, 1, 0), 0);
    ::close(far);
}

TEST_F(QtSerialPortListTest, ALockFileOfADeadProcessOrOfNobodyMeansNothing) {
    AddTerminal("ttyUSB0");
    const QByteArray nobody = QByteArray::number(std::numeric_limits<int>::max());
    for (const QByteArray& text :
         {nobody, QByteArray(), QByteArray("junk"), QByteArray("0"), QByteArray("-1")}) {
        Lock("lock", "ttyUSB0", text);
        EXPECT_EQ(WhyNot("ttyUSB0"), QString()) << text.toStdString();
    }
}

}  // namespace
}  // namespace travo::platform::qt
