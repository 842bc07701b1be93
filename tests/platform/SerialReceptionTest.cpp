// Events: which are told, when, and how calls of OnComm stand inside each other.
#include <stdexcept>

#include "platform/SerialRig.h"

namespace travo::test {
namespace {

using platform::ClearToSendEvent;
using platform::ReceptionEvent;
using platform::qt::ClearToSend;
using platform::qt::QtSerialPort;

class SerialReceptionTest : public SerialRig {};

TEST_F(SerialReceptionTest, WithoutModemSignalsAReceptionIsAChangeOfClearToSendAsWell) {
    OpenAndKeep();
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return events_.size() == 2; }));
    EXPECT_EQ(events_, (std::vector{ReceptionEvent, ClearToSendEvent}));
    EXPECT_EQ(received_, "A\r");
}

TEST_F(SerialReceptionTest, WithModemSignalsAReceptionIsOnlyThat) {
    HasModemSignals();
    OpenAndKeep();
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "A\r"; }));
    WakeUpsWhileServing(50);
    EXPECT_EQ(events_, std::vector{ReceptionEvent});
}

TEST_F(SerialReceptionTest, ThresholdZeroFiresNoReceptionEvent) {
    OpenAndKeep(0);
    wire_.Send("A+00.100\r\n");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "A+00.100\r\n"; }));
    EXPECT_EQ(events_, std::vector{ClearToSendEvent});
}

TEST_F(SerialReceptionTest, AReceptionWithoutAChangeOfClearToSendLeavesTheTextInThePort) {
    HasModemSignals();
    OpenAndKeep(0);
    wire_.Send("A+00.100\r\n");
    ASSERT_TRUE(ServeUntil([this] { return port_->InBufferCount() == 10; }));
    WakeUpsWhileServing(50);
    EXPECT_TRUE(events_.empty());
    line_->on = true;
    ASSERT_TRUE(ServeUntil([this] { return !events_.empty(); }));
    EXPECT_EQ(events_, std::vector{ClearToSendEvent});
    EXPECT_EQ(received_, "A+00.100\r\n");
}

TEST_F(SerialReceptionTest, EachChangeOfClearToSendIsOneEvent) {
    HasModemSignals();
    OpenAndKeep(0);
    for (const bool on : {true, false, true}) {
        const std::size_t before = events_.size();
        line_->on = on;
        ASSERT_TRUE(ServeUntil([this, before] { return events_.size() > before; }));
    }
    WakeUpsWhileServing(50);
    EXPECT_EQ(events_, (std::vector(3, ClearToSendEvent)));
}

TEST_F(SerialReceptionTest, APulseThatIsOverBeforeTheLevelIsAskedIsSeenByTheCounter) {
    line_ = ClearToSend{.on = false, .changes = 5};
    OpenAndKeep(0);
    line_->changes = 7;
    ASSERT_TRUE(ServeUntil([this] { return !events_.empty(); }));
    WakeUpsWhileServing(50);
    EXPECT_EQ(events_, std::vector{ClearToSendEvent});
}

TEST_F(SerialReceptionTest, TheThresholdCountsTheCharactersThatWait) {
    HasModemSignals();
    OpenAndKeep(3);
    wire_.Send("ab");
    ASSERT_TRUE(ServeUntil([this] { return port_->InBufferCount() == 2; }));
    WakeUpsWhileServing(20);
    EXPECT_TRUE(events_.empty());
    wire_.Send("c");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "abc"; }));
    EXPECT_EQ(events_, std::vector{ReceptionEvent});
}

TEST_F(SerialReceptionTest, AnInputLengthTakesSoManyAndIsAskedAgainForTheRest) {
    HasModemSignals();
    OpenAndKeep();
    port_->InputLen(1);
    wire_.Send("abc");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "abc"; }));
    EXPECT_EQ(events_, (std::vector(3, ReceptionEvent)));
}

TEST_F(SerialReceptionTest, ALinkThatTakesNothingIsNotCalledOverAndOver) {
    Open(0, [] {});
    wire_.Send("noise");
    ASSERT_TRUE(ServeUntil([this] { return !events_.empty(); }));
    EXPECT_LT(WakeUpsWhileServing(200), 50);
    EXPECT_EQ(events_, std::vector{ClearToSendEvent});
    EXPECT_EQ(port_->InBufferCount(), 5);
}

TEST_F(SerialReceptionTest, OneByteAtATimeArrivesWholeAndInOrder) {
    OpenAndKeep();
    const std::string bytes = Pattern(500);
    for (const char byte : bytes) {
        ASSERT_EQ(wire_.Send({&byte, 1}), 1u);
        const std::size_t before = received_.size();
        ASSERT_TRUE(ServeUntil([this, before] { return received_.size() == before + 1; }));
    }
    EXPECT_EQ(received_, bytes);
}

TEST_F(SerialReceptionTest, AHundredKilobytesAtOnceArriveWholeAndInOrder) {
    OpenAndKeep();
    const std::string bytes = Pattern(100 * 1024);
    ASSERT_TRUE(SendAll(bytes));
    ASSERT_TRUE(ServeUntil([this, &bytes] { return received_.size() >= bytes.size(); }));
    EXPECT_EQ(received_, bytes);
}

TEST_F(SerialReceptionTest, AFloodThatNobodyTakesIsBoundedAndArrivesWholeOnceItIsTaken) {
    Open(0, [] {});
    const std::string bytes = Pattern(QtSerialPort::MostUnreadBytes + 512 * 1024);
    std::string_view rest = bytes;
    ASSERT_TRUE(ServeUntil([this, &rest] {
        rest.remove_prefix(wire_.Send(rest));
        return port_->InBufferCount() == QtSerialPort::MostUnreadBytes;
    }));
    rest.remove_prefix(wire_.Send(rest));
    EXPECT_LT(WakeUpsWhileServing(100), 50);
    EXPECT_EQ(port_->InBufferCount(), QtSerialPort::MostUnreadBytes);

    const Ticking ticking;
    ASSERT_TRUE(ServeUntil([this, &rest, &bytes] {
        rest.remove_prefix(wire_.Send(rest));
        received_ += port_->Input();
        return received_.size() >= bytes.size();
    }));
    EXPECT_TRUE(received_ == bytes);
}

TEST_F(SerialReceptionTest, NoiseOfEveryByteArrivesUnchangedAndClosesNothing) {
    std::string noise;
    for (int byte = 0; byte < 256; ++byte) {
        noise += static_cast<char>(byte);
    }
    noise += std::string("\xFF\0\0\xFF\xFF\0", 6);
    OpenAndKeep();
    ASSERT_TRUE(SendAll(noise));
    ASSERT_TRUE(ServeUntil([this, &noise] { return received_.size() >= noise.size(); }));
    EXPECT_EQ(received_, noise);
    EXPECT_TRUE(port_->PortOpen());
}

TEST_F(SerialReceptionTest, BytesThatComeDuringABoxAreToldDuringIt) {
    bool boxUp = false;
    std::string duringBox;
    Open(1, [&] {
        const std::string text = port_->Input();
        received_ += text;
        if (boxUp) {
            duringBox += text;
        } else if (text == "first") {
            boxUp = true;
            wire_.Send("second");
            EXPECT_TRUE(ServeUntil([&] { return duringBox == "second"; }));
            boxUp = false;
        }
    });
    wire_.Send("first");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "firstsecond"; }));
    EXPECT_EQ(duringBox, "second");
}

TEST_F(SerialReceptionTest, CallsInsideCallsAreBoundedAndTheRestIsToldOnTheWayOut) {
    HasModemSignals();
    constexpr int Bytes = 40;
    int depth = 0;
    int deepest = 0;
    Open(1, [&] {
        received_ += port_->Input();
        deepest = std::max(deepest, ++depth);
        if (events_.size() < Bytes) {
            wire_.Send("x");
            const std::size_t told = events_.size();
            // Either the byte is told inside this call, or it waits in the port.
            EXPECT_TRUE(ServeUntil([&] { return events_.size() > told || port_->InBufferCount() > 0; }));
            WakeUpsWhileServing(depth == QtSerialPort::MostNestedCalls ? 5 : 0);
        }
        --depth;
    });
    wire_.Send("x");
    ASSERT_TRUE(ServeUntil([&] { return depth == 0 && events_.size() >= Bytes; }));
    EXPECT_EQ(deepest, QtSerialPort::MostNestedCalls);
    EXPECT_EQ(received_, std::string(events_.size(), 'x'));
    EXPECT_EQ(port_->InBufferCount(), 0);
}

TEST_F(SerialReceptionTest, AFailureInOnCommLosesNoLaterReception) {
    bool fail = true;
    Open(1, [&] {
        if (std::exchange(fail, false)) {
            throw std::runtime_error("a link fails");
        }
        received_ += port_->Input();
    });
    wire_.Send("a");
    ASSERT_TRUE(ServeUntil([this] { return application_.failures == 1; }));
    wire_.Send("b");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "ab"; }));
    EXPECT_EQ(application_.failures, 1);
}

TEST_F(SerialReceptionTest, ClosingInsideOnCommEndsTheEvents) {
    Open(1, [this] { port_->PortOpen(false); });
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return !events_.empty(); }));
    wire_.Send("B\r");
    WakeUpsWhileServing(20);
    EXPECT_FALSE(port_->PortOpen());
    EXPECT_EQ(events_, std::vector{ReceptionEvent});
}

TEST_F(SerialReceptionTest, ReopeningInsideOnCommStartsANewConversation) {
    bool reopened = false;
    Open(1, [&] {
        if (!std::exchange(reopened, true)) {
            port_->PortOpen(false);
            port_->PortOpen(true);
        }
        received_ += port_->Input();
    });
    wire_.Send("old");
    ASSERT_TRUE(ServeUntil([&] { return reopened; }));
    EXPECT_EQ(events_, std::vector{ReceptionEvent});
    wire_.Send("new");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "new"; }));
    EXPECT_TRUE(port_->PortOpen());
}

TEST_F(SerialReceptionTest, DestroyingThePortInsideOnCommIsSafe) {
    Open(1, [this] { port_.reset(); });
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return port_ == nullptr; }));
    wire_.Send("B\r");
    WakeUpsWhileServing(20);
    EXPECT_EQ(events_, std::vector{ReceptionEvent});
}

TEST_F(SerialReceptionTest, DestroyingThePortInACallInsideACallIsSafe) {
    bool nested = false;
    Open(1, [this, &nested] {
        port_->Input();
        if (std::exchange(nested, true)) {
            port_.reset();
            return;
        }
        wire_.Send("B\r");
        EXPECT_TRUE(ServeUntil([this] { return port_ == nullptr; }));
    });
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return port_ == nullptr; }));
    WakeUpsWhileServing(20);
    EXPECT_EQ(events_.size(), 2u);
}

TEST_F(SerialReceptionTest, DestroyingAPortWhileItsEventIsQueuedIsSafe) {
    const PseudoTerminal otherWire;
    Pin(2, otherWire.Device());
    int calls = 0;
    std::unique_ptr<platform::SerialPort> other;
    // Both receptions are queued in one pass; whichever is told first ends the other port.
    other = Create(2, [&] {
        ++calls;
        port_.reset();
    });
    other->PortOpen(true);
    Open(1, [&] {
        ++calls;
        other.reset();
    });
    wire_.Send("A\r");
    otherWire.Send("A\r");
    ASSERT_TRUE(ServeUntil([&] { return calls > 0; }));
    WakeUpsWhileServing(20);
    EXPECT_TRUE((port_ == nullptr) != (other == nullptr));
}

}  // namespace
}  // namespace travo::test
