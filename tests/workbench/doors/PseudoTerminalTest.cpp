#include "workbench/doors/PseudoTerminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "workbench/TestPort.h"

namespace workbench {

namespace {

constexpr uid_t NobodyUser = 65534;

// Runs as a user for whom a claimed port is closed, in a process of its own. What it gave back.
template <typename Body>
int AsAnOrdinaryUser(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(NobodyUser) != 0) {
            _exit(100);
        }
        _exit(body());
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TEST(PseudoTerminalTest, ShowsWhetherAnybodyHasItOpenFromTheVeryBeginning) {
    const PseudoTerminal terminal;
    EXPECT_FALSE(terminal.IsOpen());
    {
        const TestPort one(terminal.Name());
        EXPECT_TRUE(terminal.IsOpen());
        {
            const TestPort two(terminal.Name());
            EXPECT_TRUE(terminal.IsOpen());
        }
        EXPECT_TRUE(terminal.IsOpen());
    }
    EXPECT_FALSE(terminal.IsOpen());
}

TEST(PseudoTerminalTest, IsRawAtEveryOpening) {
    PseudoTerminal terminal;
    EXPECT_TRUE(TestPort(terminal.Name()).IsRaw());
    EXPECT_TRUE(TestPort(terminal.Name()).IsRaw());
    EXPECT_TRUE(terminal.Refresh());
    EXPECT_TRUE(TestPort(terminal.Name()).IsRaw());
}

TEST(PseudoTerminalTest, CarriesEveryByteBothWays) {
    PseudoTerminal terminal;
    TestPort port(terminal.Name());
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    terminal.Write(all);
    EXPECT_EQ(port.ReadBytes(all.size()), all);
    port.Write(all);
    std::string received;
    while (received.size() < all.size()) {
        received += terminal.Read();
    }
    EXPECT_EQ(received, all);
}

TEST(PseudoTerminalTest, WhatWasWrittenBeforeAClosingIsStillRead) {
    PseudoTerminal terminal;
    TestPort(terminal.Name()).Write("KEYON\r\n");
    EXPECT_FALSE(terminal.IsOpen());
    std::string received;
    while (received.size() < 7) {
        received += terminal.Read();
    }
    EXPECT_EQ(received, "KEYON\r\n");
}

TEST(PseudoTerminalTest, WritingToAReaderThatDoesNotReadEnds) {
    PseudoTerminal terminal;
    const TestPort port(terminal.Name());
    terminal.Write(std::string(1 << 20, 'x'));
    EXPECT_TRUE(terminal.IsOpen());
}

TEST(PseudoTerminalTest, RefreshedItHasLostWhatTheLastReaderLeft) {
    PseudoTerminal terminal;
    {
        TestPort port(terminal.Name());
        terminal.Write("left behind");
        EXPECT_EQ(port.ReadBytes(1), "l");
        terminal.Write("left behind");
    }
    EXPECT_TRUE(terminal.Refresh());
    TestPort next(terminal.Name());
    EXPECT_TRUE(next.Quiet());
}

TEST(PseudoTerminalTest, AClaimThatAKilledProgramLeftIsSeenByRefresh) {
    EXPECT_EQ(AsAnOrdinaryUser([] {
                  PseudoTerminal terminal;
                  { const TestPort claimed(terminal.Name(), true); }
                  const bool refreshed = terminal.Refresh();
                  const TestPort again(terminal.Name());
                  return refreshed || again.IsOpen() ? 1 : 0;
              }),
              0);
}

}  // namespace workbench
