#include "workbench/commands/Commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "workbench/commands/Bench.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct CommandsRig : Bench {
    using Bench::Bench;
    std::string Ask(std::string_view line, Time now = milliseconds(100)) {
        return commands.Answer(line, now);
    }
};

}  // namespace

TEST(CommandsTest, DriverCallsAnswerStatusAndValues) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 1 9500 12500 12500");
    EXPECT_EQ(desk.Ask("driver select 2"), "status 0 1");
    EXPECT_EQ(desk.Ask("driver select 7"), "status 0 0");
    EXPECT_EQ(desk.Ask("driver getcount"), "status 0 4");
    EXPECT_EQ(desk.Ask("driver reconnect"), "status 0");
    EXPECT_EQ(desk.Ask("driver moveto 9900 12500 12500"), "status 0");
    EXPECT_EQ(desk.Ask("driver getposition", milliseconds(200)), "status 0 2 9900 12500 12500");
    EXPECT_EQ(desk.Ask("driver moveto 0 0 -1"), "status -3");
    EXPECT_EQ(desk.Ask("counters"), "ok getposition 2 moveto 2 select 2 getcount 1 reconnect 1 refused 1");
    EXPECT_EQ(desk.Ask("counters forget"), "ok");
    EXPECT_EQ(desk.Ask("counters"), "ok getposition 0 moveto 0 select 0 getcount 0 reconnect 0 refused 0");
}

TEST(CommandsTest, AFailedDriverCallAnswersItsStatusAlone) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("fault driver fail 2"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok fail");
    EXPECT_EQ(desk.Ask("driver getposition"), "status -1");
    EXPECT_EQ(desk.Ask("driver select 2"), "status -1");
    EXPECT_EQ(desk.Ask("driver getcount"), "status 0 4");
    EXPECT_EQ(desk.Ask("fault driver fail always getcount"), "ok");
    EXPECT_EQ(desk.Ask("driver getcount"), "status -1");
    EXPECT_EQ(desk.Ask("driver getcount"), "status -1");
    EXPECT_EQ(desk.Ask("driver reconnect"), "status 0");
    EXPECT_EQ(desk.Ask("fault driver fail off"), "ok");
    EXPECT_EQ(desk.Ask("driver getcount"), "status 0 4");
}

TEST(CommandsTest, OnlyDriverCallsWaitWhileTheDriverHangs) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("fault driver hang 0.5"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok hang");
    EXPECT_TRUE(desk.commands.MustWait("driver getcount", milliseconds(599)));
    EXPECT_TRUE(desk.commands.MustWait("  driver", milliseconds(599)));
    EXPECT_FALSE(desk.commands.MustWait("world tip 1", milliseconds(599)));
    EXPECT_FALSE(desk.commands.MustWait("", milliseconds(599)));
    EXPECT_FALSE(desk.commands.MustWait("driver getcount", milliseconds(600)));
    desk.Ask("fault driver hang 100");
    desk.Ask("fault driver hang off");
    EXPECT_FALSE(desk.commands.MustWait("driver getcount", milliseconds(100)));
}

TEST(CommandsTest, CountRangeAndHardwareFaultsReachTheDriver) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("hardware select 4"), "ok");
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 4 9500 12500 12500");
    EXPECT_EQ(desk.Ask("fault range 4"), "ok");
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 4 30000 12500 12500");
    EXPECT_EQ(desk.Ask("fault range off"), "ok");
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 4 9500 12500 12500");
    EXPECT_EQ(desk.Ask("fault count 3"), "ok");
    EXPECT_EQ(desk.Ask("driver getposition"), "status -2");
    EXPECT_EQ(desk.Ask("fault range 1"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok count range");
    EXPECT_EQ(desk.Ask("fault clear"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok");
    EXPECT_EQ(desk.Ask("driver getcount"), "status 0 4");
    EXPECT_EQ(desk.Ask("hardware select 5"), "error this manipulator is not connected");
}

TEST(CommandsTest, TheJoystickMovesANeedleWhateverIsSelected) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("world move 3 9900 12500 12500"), "ok");
    EXPECT_EQ(desk.Ask("world moving"), "ok 0 0 1 0");
    EXPECT_EQ(desk.Ask("world moving", milliseconds(200)), "ok 0 0 0 0");
    EXPECT_EQ(desk.Ask("world counts 3", milliseconds(200)), "ok 9900 12500 12500");
    EXPECT_EQ(desk.Ask("world jog 3 -100 5 0", milliseconds(200)), "ok");
    EXPECT_EQ(desk.Ask("world counts 3", milliseconds(300)), "ok 9800 12505 12500");
    EXPECT_TRUE(desk.Ask("world move 3 25001 0 0").starts_with("error "));
}

TEST(CommandsTest, TheWorldTellsTrueTips) {
    CommandsRig desk;
    desk.Ask("mount 1 0");
    EXPECT_EQ(desk.Ask("world tip 1"), "ok -3000.000 0.000 0.000 -3000.000 0.000 0.000");
    desk.Ask("world move 1 9900 12500 12400");
    EXPECT_EQ(desk.Ask("world tip 1", milliseconds(150)),
              "ok -2800.000 0.000 50.000 -2600.000 0.000 100.000");
}

TEST(CommandsTest, AimGivesTheCountsOfAPlace) {
    CommandsRig desk;
    desk.Ask("mount 2 90");
    EXPECT_EQ(desk.Ask("world aim 2 10 20.4 -5"), "ok 12520 12510 12505");
    EXPECT_TRUE(desk.Ask("world aim 2 10 20 1e300").starts_with("error "));
    EXPECT_TRUE(desk.Ask("world aim 2 10 nan 1").starts_with("error "));
}

TEST(CommandsTest, AMountIsToldAndChanged) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("mount 4 300 1.5 -2 10 20 30"), "ok");
    EXPECT_EQ(desk.Ask("mount 4"), "ok 300.000 1.500 -2.000 10.000 20.000 30.000");
    EXPECT_EQ(desk.Ask("mount 4 90"), "ok");
    EXPECT_EQ(desk.Ask("world aim 4 0 0 0"), "ok 12500 12500 12500");
    EXPECT_TRUE(desk.Ask("mount 4 90 0 0 1").starts_with("error "));
    EXPECT_TRUE(desk.Ask("mount").starts_with("error "));
}

TEST(CommandsTest, CrossingsAreListedAndForgotten) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("world crossings"), "ok 0 0");
    desk.Ask("world move 2 12900 12500 12500");
    desk.Ask("world move 1 12900 12500 12500", milliseconds(2000));
    const std::string answer = desk.Ask("world crossings", milliseconds(4000));
    EXPECT_EQ(answer, "ok 1 1 1 2 2750.000 0.000 0.000");
    EXPECT_EQ(desk.Ask("world crossings forget", milliseconds(4000)), "ok");
    EXPECT_EQ(desk.Ask("world crossings", milliseconds(4000)), "ok 0 1");
    EXPECT_TRUE(desk.Ask("world crossings away").starts_with("error "));
}

TEST(CommandsTest, TheViewAndTheCellsAreToldInCommonUnits) {
    CommandsRig desk;
    EXPECT_EQ(desk.Ask("world view 10 0"), "ok -50.000 0.000");
    EXPECT_TRUE(desk.Ask("world view 181 0").starts_with("error "));
    EXPECT_TRUE(desk.Ask("world cells").starts_with("ok -84 45 420.000 -225.827 0.000 56 73 "));
}

TEST(CommandsTest, SettingsAreWrittenToTheFileNamedOrIntoTheProgramFolder) {
    std::string folder = (std::filesystem::temp_directory_path() / "desk-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    CommandsRig desk(folder);
    EXPECT_EQ(desk.Ask("write-settings"), "ok");
    EXPECT_TRUE(std::filesystem::exists(folder + "/KVData.ini"));
    EXPECT_EQ(desk.Ask("write-settings " + folder + "/a  b.ini \r"), "ok");
    EXPECT_TRUE(std::filesystem::exists(folder + "/a  b.ini"));
    EXPECT_TRUE(desk.Ask("write-settings " + folder + "/missing/a.ini").starts_with("error "));
    CommandsRig homeless;
    EXPECT_TRUE(homeless.Ask("write-settings").starts_with("error "));
    std::filesystem::remove_all(folder);
}

TEST(CommandsTest, AShutdownIsAskedFor) {
    CommandsRig desk;
    EXPECT_FALSE(desk.commands.ShutdownWanted());
    EXPECT_EQ(desk.Ask("ping"), "ok");
    EXPECT_EQ(desk.Ask("shutdown now"), "error nothing may follow \"shutdown\"");
    EXPECT_FALSE(desk.commands.ShutdownWanted());
    EXPECT_EQ(desk.Ask("shutdown"), "ok");
    EXPECT_TRUE(desk.commands.ShutdownWanted());
}

TEST(CommandsTest, WhatIsNoCommandIsRefusedAndChangesNothing) {
    CommandsRig desk;
    for (const char* line : {"",
                             "   ",
                             "\r",
                             "driver",
                             "driver fly",
                             "driver getposition 1",
                             "driver moveto 1 2",
                             "driver moveto 1 2 3 4",
                             "driver moveto 1 2 x",
                             "driver moveto 1 2 99999999999",
                             "driver select",
                             "driver select 1.5",
                             "driver getcount 1",
                             "driver reconnect 1",
                             "world",
                             "world tip",
                             "world tip 0",
                             "world tip 5",
                             "world tip 1 2",
                             "world move 1 2 3",
                             "world jog 9 1 1 1",
                             "world moving 1",
                             "world view 1",
                             "world cells 1",
                             "fault",
                             "fault driver",
                             "fault driver fail",
                             "fault driver fail -1",
                             "fault driver fail 1 fly",
                             "fault driver hang",
                             "fault driver hang -9999",
                             "fault driver hang x",
                             "fault driver burn",
                             "fault count",
                             "fault count 5",
                             "fault count -1",
                             "fault range",
                             "fault range 0",
                             "fault clear 1",
                             "fault list 1",
                             "hardware select",
                             "hardware select x",
                             "counters 1",
                             "ping 1"}) {
        EXPECT_TRUE(desk.Ask(line).starts_with("error ")) << line;
    }
    EXPECT_EQ(desk.Ask("fault list"), "ok");
    EXPECT_EQ(desk.Ask("world moving"), "ok 0 0 0 0");
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 1 9500 12500 12500");
}

TEST(CommandsTest, GarbageOfAnyKindIsAnsweredWithOneLine) {
    CommandsRig desk;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(0, 300);
    for (int round = 0; round < 2000; ++round) {
        std::string line(length(random), ' ');
        for (char& character : line) {
            character = static_cast<char>(byte(random));
        }
        const std::string answer = desk.Ask(line);
        EXPECT_TRUE(answer.starts_with("error "));
        EXPECT_EQ(answer.find('\n'), std::string::npos);
    }
    EXPECT_TRUE(desk.Ask(std::string(1 << 20, 'x')).starts_with("error "));
}

}  // namespace workbench
