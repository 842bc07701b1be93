// Opening and closing, settings and output.
#include "platform/qt/QtSerialPort.h"

#include <sys/ioctl.h>

#include <QFile>
#include <stdexcept>

#include "platform/OtherProcess.h"
#include "platform/SerialRig.h"
#include "platform/qt/PortClaims.h"

namespace travo::test {
namespace {

using platform::qt::QtSerialPort;

class QtSerialPortTest : public SerialRig {
protected:
    // What opening says when it refuses.
    static std::string Refusal(platform::SerialPort& port) {
        try {
            port.PortOpen(true);
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return "opened";
    }
    void Expect(const std::string& settings, speed_t speed, tcflag_t stopBits) {
        auto port = Create(1, [] {});
        port->Settings(settings);
        port->PortOpen(true);
        const termios line = wire_.Settings();
        EXPECT_EQ(cfgetospeed(&line), speed) << settings;
        EXPECT_EQ(cfgetispeed(&line), speed) << settings;
        EXPECT_EQ(line.c_cflag & CSTOPB, stopBits) << settings;
        EXPECT_EQ(line.c_iflag & (IXON | IXOFF), 0u) << settings;
        EXPECT_EQ(line.c_lflag & (ICANON | ECHO), 0u) << settings;
    }
};

TEST_F(QtSerialPortTest, ANewPortIsClosedAndEmpty) {
    const auto port = Create(1, [] {});
    EXPECT_FALSE(port->PortOpen());
    EXPECT_EQ(port->InBufferCount(), 0);
    EXPECT_EQ(port->Input(), "");
    EXPECT_EQ(port->CommEvent(), 0);
}

TEST_F(QtSerialPortTest, AClosedPortSendsNothingAndMayBeClosedAgain) {
    const auto port = Create(1, [] {});
    port->Output("lost");
    port->PortOpen(false);
    port->PortOpen(true);
    port->PortOpen(false);
    port->Output("lost");
    EXPECT_FALSE(port->PortOpen());
    EXPECT_EQ(wire_.Receive(), "");
}

TEST_F(QtSerialPortTest, APortWithoutADeviceIsRefusedWithItsNumberAndDevice) {
    const auto port = Create(32767, [] {});
    const std::string refusal = Refusal(*port);
    EXPECT_NE(refusal.find("port 32767 (/dev/ttyS32766): "), std::string::npos) << refusal;
    EXPECT_FALSE(port->PortOpen());
}

TEST_F(QtSerialPortTest, ALinkThatLeadsNowhereDoesNotOpenAndDoesNotFallBack) {
    Pin(1, folder_.filePath(QStringLiteral("gone")));
    const auto port = Create(1, [] {});
    EXPECT_EQ(Refusal(*port), "port 1: there is no such device");
    EXPECT_FALSE(port->PortOpen());
}

TEST_F(QtSerialPortTest, ANumberBelowOneIsRefused) {
    EXPECT_EQ(Refusal(*Create(0, [] {})), "port 0: there is no such device");
    EXPECT_EQ(Refusal(*Create(-1, [] {})), "port -1: there is no such device");
}

TEST_F(QtSerialPortTest, AFileThatIsNoTerminalIsRefused) {
    QFile file(folder_.filePath(QStringLiteral("plain")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    Pin(1, file.fileName());
    const auto port = Create(1, [] {});
    EXPECT_THROW(port->PortOpen(true), std::runtime_error);
    EXPECT_FALSE(port->PortOpen());
}

TEST_F(QtSerialPortTest, AnOpenPortIsNotOpenedTwice) {
    const auto port = Create(1, [] {});
    port->PortOpen(true);
    EXPECT_NE(Refusal(*port).find("it is open already"), std::string::npos);
    EXPECT_TRUE(port->PortOpen());
}

TEST_F(QtSerialPortTest, ABusyPortIsRefusedUntilItsOwnerClosesIt) {
    const auto owner = Create(1, [] {});
    const auto second = Create(1, [] {});
    owner->PortOpen(true);
    EXPECT_THROW(second->PortOpen(true), std::runtime_error);
    EXPECT_FALSE(second->PortOpen());
    EXPECT_TRUE(owner->PortOpen());
    owner->PortOpen(false);
    second->PortOpen(true);
    EXPECT_TRUE(second->PortOpen());
}

TEST_F(QtSerialPortTest, TheSameDeviceUnderAnotherNumberIsBusyAsWell) {
    Pin(2, wire_.Device());
    const auto owner = Create(1, [] {});
    const auto second = Create(2, [] {});
    owner->PortOpen(true);
    EXPECT_THROW(second->PortOpen(true), std::runtime_error);
}

TEST_F(QtSerialPortTest, ADeviceThatAnotherProgramHasClaimedIsRefused) {
    const int other = ::open(QFile::encodeName(wire_.Device()).constData(), O_RDWR | O_NOCTTY);
    ASSERT_GE(other, 0);
    ASSERT_EQ(::ioctl(other, TIOCEXCL), 0);
    const auto port = Create(1, [] {});
    EXPECT_THROW(port->PortOpen(true), std::runtime_error);
    ASSERT_EQ(::ioctl(other, TIOCNXCL), 0);
    port->PortOpen(true);
    EXPECT_TRUE(port->PortOpen());
    ::close(other);
}

TEST_F(QtSerialPortTest, ALockFileOfAnotherProgramIsHeededAndNotTakenAway) {
    const OtherProcess other;
    const QString name = QStringLiteral("LCK..") + wire_.Device().mid(5).replace(u'/', u'_');
    QFile lock(QDir(QDir::tempPath()).filePath(name));
    ASSERT_TRUE(platform::qt::UsualLockFolders().contains(QDir::tempPath()));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(other.Number().rightJustified(10) + '\n');
    lock.close();
    const auto port = Create(1, [] {});
    EXPECT_NE(Refusal(*port).find("another program has locked it"), std::string::npos);
    EXPECT_FALSE(port->PortOpen());
    EXPECT_TRUE(lock.remove());
    port->PortOpen(true);
    EXPECT_TRUE(port->PortOpen());
}

TEST_F(QtSerialPortTest, SpeedAndStopBitsReachTheLine) {
    Expect("9600,N,8,1", B9600, 0);
    Expect("2400,N,8,1", B2400, 0);
    Expect("115200,N,8,2", B115200, CSTOPB);
    Expect("9600,N,5,1.5", B9600, CSTOPB);
}

TEST_F(QtSerialPortTest, SettingsThatAreNoneAreRefused) {
    const auto port = Create(1, [] {});
    for (const char* settings : {"", "9600", "9600,n,8,1", "0,N,8,1", "9600,N,8,1.5"}) {
        port->Settings(settings);
        EXPECT_THROW(port->PortOpen(true), std::runtime_error) << settings;
        EXPECT_FALSE(port->PortOpen());
    }
}

TEST_F(QtSerialPortTest, HandshakingAndBinaryModeAreRefused) {
    const auto port = Create(1, [] {});
    port->Handshaking(1);
    EXPECT_THROW(port->PortOpen(true), std::runtime_error);
    port->Handshaking(platform::NoHandshaking);
    port->InputMode(1);
    EXPECT_THROW(port->PortOpen(true), std::runtime_error);
    port->InputMode(platform::TextMode);
    port->PortOpen(true);
    EXPECT_TRUE(port->PortOpen());
}

TEST_F(QtSerialPortTest, OutputIsOnTheWireBeforeTheEventLoopRuns) {
    const auto port = Create(1, [] {});
    port->PortOpen(true);
    port->Output("rD2R\r");
    port->Output("");
    port->Output(std::string_view("\0\n", 2));
    EXPECT_EQ(wire_.Receive(), std::string("rD2R\r\0\n", 7));
}

TEST_F(QtSerialPortTest, OutputRightBeforeClosingIsNotLost) {
    const auto port = Create(1, [] {});
    port->PortOpen(true);
    port->Output("KEYON\r\n");
    port->PortOpen(false);
    EXPECT_EQ(wire_.Receive(), "KEYON\r\n");
}

TEST_F(QtSerialPortTest, OutputToAWireThatNobodyReadsStaysBoundedAndWhole) {
    constexpr std::size_t Size = 1000;
    constexpr std::size_t Count = 2000;
    OpenAndKeep();
    for (std::size_t i = 0; i < Count; ++i) {
        port_->Output(std::string(Size, static_cast<char>('a' + i % 26)));
    }
    EXPECT_LT(WakeUpsWhileServing(200), 200);
    EXPECT_TRUE(port_->PortOpen());

    const Ticking ticking;
    std::string sent;
    // What is told last comes through once the wire takes bytes again.
    ASSERT_TRUE(ServeUntil([this, &sent] {
        sent += wire_.Receive();
        return sent.size() >= QtSerialPort::MostUnsentBytes && sent.size() % Size == 0;
    }));
    ASSERT_TRUE(ServeUntil([this, &sent] {
        port_->Output("end");
        sent += wire_.Receive();
        return sent.find("end") != std::string::npos;
    }));
    const std::size_t kept = sent.find("end");
    EXPECT_EQ(kept % Size, 0u);
    EXPECT_LT(kept, 4 * QtSerialPort::MostUnsentBytes);
    for (std::size_t at = 0; at < kept; at += Size) {
        ASSERT_EQ(sent.substr(at, Size), std::string(Size, sent[at])) << at;
    }
}

TEST_F(QtSerialPortTest, AnOutputBeyondTheBoundIsDroppedWhole) {
    const auto port = Create(1, [] {});
    port->PortOpen(true);
    port->Output(std::string(QtSerialPort::MostUnsentBytes + 1, 'x'));
    port->Output("next");
    EXPECT_EQ(wire_.Receive(), "next");
}

TEST_F(QtSerialPortTest, DestroyingAnOpenPortFreesItsDevice) {
    Create(1, [] {})->PortOpen(true);
    const auto port = Create(1, [] {});
    port->PortOpen(true);
    EXPECT_TRUE(port->PortOpen());
}

}  // namespace
}  // namespace travo::test
