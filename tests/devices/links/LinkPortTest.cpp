#include "devices/links/LinkPort.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "support/FakeMachine.h"

namespace travo::test {
namespace {

class LinkPortTest : public ::testing::Test, public FakeMachine {
protected:
    FakeSerialPort& Port() { return *serialPorts.created.front(); }
    // Opens the port as a link does: its number, the opening, a first command.
    void Open(std::int16_t number = 1) {
        port->Open([&](platform::SerialPort& opened) {
            opened.CommPort(number);
            opened.PortOpen(true);
            port->Send("first");
        });
    }

    std::optional<LinkPort> port{std::in_place, serialPorts, [this] { journal.emplace_back("event"); },
                                 [this] { journal.emplace_back("lost"); }};
};

const Journal Nothing;

TEST_F(LinkPortTest, IsCreatedClosed) {
    EXPECT_EQ(serialPorts.created.size(), 1U);
    EXPECT_FALSE(port->IsOpen());
    EXPECT_EQ(journal, Nothing);
}

TEST_F(LinkPortTest, OpeningRunsTheProcedureOnThePort) {
    Open(4);
    EXPECT_TRUE(port->IsOpen());
    EXPECT_EQ(journal, (Journal{"port 4 open", "port 4 > first"}));
}

TEST_F(LinkPortTest, OpeningClosesAnOpenPortFirst) {
    Open();
    journal.clear();
    Open(5);
    EXPECT_TRUE(port->IsOpen());
    EXPECT_EQ(journal, (Journal{"port 1 close", "port 5 open", "port 5 > first"}));
}

TEST_F(LinkPortTest, APortThatDoesNotOpenStaysClosedAndNobodyIsTold) {
    serialPorts.missing = {1};
    EXPECT_NO_THROW(Open());
    EXPECT_FALSE(port->IsOpen());
    EXPECT_EQ(journal, Journal{"port 1 open"});
}

TEST_F(LinkPortTest, WhateverIsThrownInTheOpeningClosesThePortAndNobodyIsTold) {
    const std::function<void()> failures[] = {[] { throw std::runtime_error("no answer"); },
                                              [] { throw 42; }};
    for (const auto& fail : failures) {
        journal.clear();
        EXPECT_NO_THROW(port->Open([&](platform::SerialPort& opened) {
            opened.CommPort(1);
            opened.PortOpen(true);
            fail();
        }));
        EXPECT_FALSE(port->IsOpen());
        EXPECT_EQ(journal, (Journal{"port 1 open", "port 1 close"}));
    }
}

TEST_F(LinkPortTest, AFormerPortThatDoesNotCloseEndsTheOpeningAndNobodyIsTold) {
    Open();
    Port().failClose = true;
    journal.clear();
    EXPECT_NO_THROW(Open(5));
    EXPECT_EQ(journal, (Journal{"port 1 close", "port 1 close"}));
    Port().failClose = false;
}

TEST_F(LinkPortTest, ClosingClosesOnlyAnOpenPort) {
    port->Close();
    EXPECT_EQ(journal, Nothing);
    Open();
    journal.clear();
    port->Close();
    port->Close();
    EXPECT_FALSE(port->IsOpen());
    EXPECT_EQ(journal, Journal{"port 1 close"});
}

TEST_F(LinkPortTest, AFailureOfTheClosingGoesToTheCaller) {
    Open();
    Port().failClose = true;
    EXPECT_THROW(port->Close(), std::runtime_error);
    Port().failClose = false;
}

TEST_F(LinkPortTest, ItsEndClosesAnOpenPortAndLeavesAClosedOneAlone) {
    Open();
    journal.clear();
    port.reset();
    EXPECT_EQ(journal, Journal{"port 1 close"});
    journal.clear();
    port.emplace(
        serialPorts, [] {}, [] {});
    port.reset();
    EXPECT_EQ(journal, Nothing);
}

TEST_F(LinkPortTest, ItsEndIsSilentWhereThePortDoesNotClose) {
    Open();
    Port().failClose = true;
    journal.clear();
    port.reset();
    EXPECT_EQ(journal, Journal{"port 1 close"});
}

TEST_F(LinkPortTest, BytesAreSentAsTheyStandAndOnlyWhileThePortIsOpen) {
    EXPECT_FALSE(port->Send("lost"));
    Open();
    Port().TakeOutput();
    const std::string bytes("a\0\xE4\r", 4);
    EXPECT_TRUE(port->Send(bytes));
    EXPECT_EQ(Port().TakeOutput(), bytes);
    port->Close();
    EXPECT_FALSE(port->Send("lost"));
    EXPECT_EQ(Port().TakeOutput(), "");
}

TEST_F(LinkPortTest, AFailureOfTheSendingGoesToTheCaller) {
    Open();
    Port().failOutput = true;
    EXPECT_THROW(port->Send("x"), std::runtime_error);
}

TEST_F(LinkPortTest, AllThatWaitsIsReadAtOnceAndThenNothing) {
    EXPECT_EQ(port->Input(), "");
    Port().Receive("some ");
    Port().Receive("bytes");
    EXPECT_EQ(port->Input(), "some bytes");
    EXPECT_EQ(port->Input(), "");
}

TEST_F(LinkPortTest, EachEventAndTheLossOfThePortAreTold) {
    Open();
    journal.clear();
    Port().Tell(3);
    EXPECT_EQ(port->CommEvent(), 3);
    Port().Tell(2);
    EXPECT_EQ(port->CommEvent(), 2);
    Port().Vanish();
    EXPECT_EQ(journal, (Journal{"event", "event", "lost"}));
    EXPECT_FALSE(port->IsOpen());
}

}  // namespace
}  // namespace travo::test
