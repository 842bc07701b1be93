// What the kernel is asked about a serial line. Pseudo-terminals have no modem signals: a stand-in for the
// system call answers for the driver of an adapter that has them.
#include "platform/qt/SerialLine.h"

#include <linux/serial.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <map>

#include "platform/SerialRig.h"

namespace travo::test {
namespace {

struct StandInDriver {
    bool isOn = false;
    bool hasSignals = true;
    bool counts = true;
    int signals = 0;
    serial_icounter_struct counters = {};
    std::map<int, std::vector<unsigned long>> asked;  // by descriptor

    int Answer(int descriptor, unsigned long request, void* argument) {
        asked[descriptor].push_back(request);
        if (request == TIOCMGET && hasSignals) {
            *static_cast<int*>(argument) = signals;
            return 0;
        }
        if (request == TIOCGICOUNT && counts) {
            *static_cast<serial_icounter_struct*>(argument) = counters;
            return 0;
        }
        errno = ENOTTY;
        return -1;
    }
};

StandInDriver driver;

}  // namespace
}  // namespace travo::test

// Takes the place of the C library's for the whole test program.
extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept {
    std::va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (travo::test::driver.isOn && (request == TIOCMGET || request == TIOCGICOUNT)) {
        return travo::test::driver.Answer(descriptor, request, argument);
    }
    return static_cast<int>(::syscall(SYS_ioctl, descriptor, request, argument));
}

namespace travo::test {
namespace {

using platform::ClearToSendEvent;
using platform::qt::ClearToSend;
using platform::qt::ClearToSendOf;

constexpr int AnyDescriptor = 77;

class SerialLineTest : public SerialRig {
protected:
    SerialLineTest() {
        driver = {};
        driver.isOn = true;
    }
    ~SerialLineTest() override { driver = {}; }
};

TEST_F(SerialLineTest, ClearToSendIsThatSignalAndNoOther) {
    driver.signals = TIOCM_CTS;
    EXPECT_TRUE(ClearToSendOf(AnyDescriptor)->on);
    driver.signals = TIOCM_DSR | TIOCM_CAR | TIOCM_RNG | TIOCM_RTS | TIOCM_DTR | TIOCM_LE;
    EXPECT_FALSE(ClearToSendOf(AnyDescriptor)->on);
    driver.signals |= TIOCM_CTS;
    EXPECT_TRUE(ClearToSendOf(AnyDescriptor)->on);
}

TEST_F(SerialLineTest, ChangesAreThoseThatTheDriverCountedOfThatSignal) {
    driver.counters.cts = 41;
    driver.counters.dsr = 7;
    driver.counters.dcd = 8;
    driver.counters.rng = 9;
    driver.counters.rx = 1000;
    EXPECT_EQ(ClearToSendOf(AnyDescriptor), (ClearToSend{.on = false, .changes = 41}));
}

TEST_F(SerialLineTest, ADriverThatDoesNotCountTellsTheLevelAlone) {
    driver.counts = false;
    driver.signals = TIOCM_CTS;
    EXPECT_EQ(ClearToSendOf(AnyDescriptor), (ClearToSend{.on = true, .changes = std::nullopt}));
}

TEST_F(SerialLineTest, AnAdapterWithoutModemSignalsTellsNothingWhateverItCounts) {
    driver.hasSignals = false;
    driver.counters.cts = 3;
    EXPECT_EQ(ClearToSendOf(AnyDescriptor), std::nullopt);
}

TEST_F(SerialLineTest, TheKernelIsAskedAboutThatDescriptorWithItsOwnTwoRequests) {
    ClearToSendOf(AnyDescriptor);
    const std::map<int, std::vector<unsigned long>> both{{AnyDescriptor, {TIOCMGET, TIOCGICOUNT}}};
    EXPECT_EQ(driver.asked, both);
}

TEST_F(SerialLineTest, APseudoTerminalAndAClosedDescriptorHaveNoModemSignals) {
    driver.isOn = false;
    const int terminal = ::open(wire_.Device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    EXPECT_EQ(ClearToSendOf(terminal), std::nullopt);
    ::close(terminal);
    EXPECT_EQ(ClearToSendOf(terminal), std::nullopt);
    EXPECT_EQ(ClearToSendOf(-1), std::nullopt);
}

// The ports as the program makes them, which ask the kernel.
class AdapterWithSignalsTest : public SerialLineTest {
protected:
    void OpenAsTheProgramDoes() {
        port_ = kernelPorts_.Create(
            [this] {
                events_.push_back(port_->CommEvent());
                received_ += port_->Input();
            },
            [] {});
        port_->CommPort(1);
        port_->Settings("2400,N,8,1");
        port_->InputLen(0);
        port_->InputMode(platform::TextMode);
        port_->RThreshold(0);
        port_->PortOpen(true);
    }
    bool IsEvent(std::size_t number) {
        return ServeUntil([this, number] { return events_.size() >= number; });
    }

    platform::qt::QtSerialPorts kernelPorts_{folder_.path()};
};

TEST_F(AdapterWithSignalsTest, ARisingAndAFallingSignalAreAnEventEach) {
    driver.counts = false;
    OpenAsTheProgramDoes();
    driver.signals = TIOCM_CTS;
    ASSERT_TRUE(IsEvent(1));
    driver.signals = 0;
    ASSERT_TRUE(IsEvent(2));
    EXPECT_EQ(events_, (std::vector{ClearToSendEvent, ClearToSendEvent}));
}

TEST_F(AdapterWithSignalsTest, APulseThatIsOverBeforeAnybodyLooksIsAnEvent) {
    OpenAsTheProgramDoes();
    driver.counters.cts += 2;
    ASSERT_TRUE(IsEvent(1));
    WakeUpsWhileServing(50);
    EXPECT_EQ(events_, std::vector{ClearToSendEvent});
}

TEST_F(AdapterWithSignalsTest, ChangesOfOtherSignalsAreNone) {
    OpenAsTheProgramDoes();
    driver.signals = TIOCM_DSR | TIOCM_RNG;
    driver.counters.dsr = 5;
    driver.counters.rng = 5;
    WakeUpsWhileServing(100);
    EXPECT_TRUE(events_.empty());
}

TEST_F(AdapterWithSignalsTest, TextComesToTheProgramAtTheSignalAndNotAtItsReception) {
    OpenAsTheProgramDoes();
    wire_.Send("A+00.100\r\n");
    ASSERT_TRUE(ServeUntil([this] { return port_->InBufferCount() == 10; }));
    WakeUpsWhileServing(50);
    EXPECT_EQ(received_, "");
    driver.signals = TIOCM_CTS;
    ASSERT_TRUE(IsEvent(1));
    EXPECT_EQ(received_, "A+00.100\r\n");
}

TEST_F(AdapterWithSignalsTest, OfASilentLineOneDescriptorAloneIsAsked) {
    OpenAsTheProgramDoes();
    ASSERT_TRUE(ServeUntil([] {
        return std::any_of(driver.asked.begin(), driver.asked.end(),
                           [](const auto& each) { return each.second.size() > 4; });
    }));
    EXPECT_EQ(driver.asked.size(), 1U);
}

TEST_F(SerialLineTest, ALineTakesBytesUntilItIsFullOrGone) {
    driver.isOn = false;
    const int terminal =
        ::open(wire_.Device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    EXPECT_TRUE(platform::qt::TakesBytes(terminal));
    const std::string block(4096, 'x');
    while (::write(terminal, block.data(), block.size()) > 0) {
    }
    EXPECT_FALSE(platform::qt::TakesBytes(terminal));
    wire_.Receive();
    EXPECT_TRUE(platform::qt::TakesBytes(terminal));
    ::close(terminal);
    EXPECT_FALSE(platform::qt::TakesBytes(terminal));
}

}  // namespace
}  // namespace travo::test
