// Devices that go away under an open port.
#include <stdexcept>

#include "platform/SerialRig.h"

namespace travo::test {
namespace {

class SerialVanishingTest : public SerialRig {};

TEST_F(SerialVanishingTest, ThePortClosesOnceWithoutAnEventAndTellsThatItIsLost) {
    OpenAndKeep();
    wire_.Vanish();
    ASSERT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    WakeUpsWhileServing(50);
    EXPECT_FALSE(port_->PortOpen());
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(lost_, std::vector{1});
    EXPECT_EQ(application_.failures, 0);
}

TEST_F(SerialVanishingTest, TheEventLoopSleepsAfterwards) {
    OpenAndKeep();
    wire_.Vanish();
    // Left open, the port would wake it some hundred thousand times.
    EXPECT_LT(WakeUpsWhileServing(500), 100);
    EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialVanishingTest, WhatCameBeforeIsToldFirst) {
    OpenAndKeep();
    wire_.Send("last words");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "last words"; }));
    wire_.Vanish();
    ASSERT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    EXPECT_EQ(received_, "last words");
}

TEST_F(SerialVanishingTest, OutputToAVanishedDeviceIsSilentAndCloses) {
    OpenAndKeep();
    wire_.Vanish();
    port_->Output("lost");
    port_->Output("lost");
    ASSERT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    port_->Output("lost");
    EXPECT_EQ(port_->Input(), "");
    EXPECT_EQ(port_->InBufferCount(), 0);
}

TEST_F(SerialVanishingTest, ThePortClosesDuringABoxAsWell) {
    Open(1, [this] {
        port_->Input();
        wire_.Vanish();
        EXPECT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    });
    wire_.Send("A\r");
    ASSERT_TRUE(ServeUntil([this] { return !events_.empty() && !port_->PortOpen(); }));
    EXPECT_EQ(events_, std::vector{platform::ReceptionEvent});
}

TEST_F(SerialVanishingTest, ALineWhoseModemSignalsAreGoneIsClosed) {
    HasModemSignals();
    OpenAndKeep();
    line_.reset();
    ASSERT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    EXPECT_LT(WakeUpsWhileServing(200), 50);
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(lost_, std::vector{1});
}

TEST_F(SerialVanishingTest, ItDoesNotOpenWhileTheDeviceIsGoneAndOpensOnceItIsBack) {
    OpenAndKeep();
    wire_.Vanish();
    ASSERT_TRUE(ServeUntil([this] { return !port_->PortOpen(); }));
    EXPECT_THROW(port_->PortOpen(true), std::runtime_error);
    EXPECT_FALSE(port_->PortOpen());

    const PseudoTerminal back;
    Pin(1, back.Device());
    port_->PortOpen(true);
    back.Send("hello");
    ASSERT_TRUE(ServeUntil([this] { return received_ == "hello"; }));
    port_->Output("again");
    EXPECT_EQ(back.Receive(), "again");
}

TEST_F(SerialVanishingTest, ClosingBeforeItIsNoticedLeavesTheNextOpeningAlone) {
    OpenAndKeep();
    wire_.Vanish();
    port_->Output("lost");  // the first error; its closing is queued
    port_->PortOpen(false);
    const PseudoTerminal back;
    Pin(1, back.Device());
    port_->PortOpen(true);
    WakeUpsWhileServing(20);
    EXPECT_TRUE(port_->PortOpen());
    EXPECT_TRUE(lost_.empty());
}

TEST_F(SerialVanishingTest, APortThatItsOwnerClosesIsNotLost) {
    OpenAndKeep();
    port_->PortOpen(false);
    wire_.Vanish();
    WakeUpsWhileServing(20);
    EXPECT_TRUE(lost_.empty());
}

TEST_F(SerialVanishingTest, TheTellingMayOpenThePortAnew) {
    const PseudoTerminal back;
    bool wasOpen = true;
    port_ = ports_.Create([] {},
                          [&] {
                              wasOpen = port_->PortOpen();
                              Pin(1, back.Device());
                              port_->PortOpen(true);
                          });
    port_->CommPort(1);
    port_->PortOpen(true);
    wire_.Vanish();
    ASSERT_TRUE(ServeUntil([&] { return !wasOpen; }));
    WakeUpsWhileServing(20);
    EXPECT_TRUE(port_->PortOpen());
}

TEST_F(SerialVanishingTest, TheTellingMayEndThePort) {
    port_ = ports_.Create([] {}, [this] { port_.reset(); });
    port_->CommPort(1);
    port_->PortOpen(true);
    wire_.Vanish();
    ASSERT_TRUE(ServeUntil([this] { return port_ == nullptr; }));
    WakeUpsWhileServing(20);
    EXPECT_EQ(application_.failures, 0);
}

TEST_F(SerialVanishingTest, DestroyingThePortBeforeItIsNoticedIsSafe) {
    OpenAndKeep();
    wire_.Vanish();
    port_->Output("lost");
    port_.reset();
    WakeUpsWhileServing(20);
    EXPECT_TRUE(events_.empty());
    EXPECT_TRUE(lost_.empty());
}

}  // namespace
}  // namespace travo::test
