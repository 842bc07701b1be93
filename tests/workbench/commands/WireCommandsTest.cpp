// The commands of optics, wires and their faults, without any process.
#include <gtest/gtest.h>

#include <array>

#include "workbench/commands/Bench.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct WireCommandsRig : Bench {
    using Bench::Bench;
    std::string Ask(std::string_view line, int at = 100) { return commands.Answer(line, milliseconds(at)); }
    std::string Sent(WireName name, int at) {
        std::string text;
        for (const std::string& bytes : instruments.WireOf(name).Transmit(milliseconds(at))) {
            text += bytes;
        }
        return text;
    }
    void Open(WireName name) { instruments.WireOf(name).SetOpen(true, milliseconds(0)); }
};

}  // namespace

TEST(WireCommandsTest, TheOpticsAreToldNowAndAtRest) {
    WireCommandsRig desk;
    EXPECT_EQ(desk.Ask("mirror move 80 -80", 0), "ok");
    EXPECT_EQ(desk.Ask("mirror state", 100), "ok 40.000 -40.000 80.000 -80.000 1 0 0");
    EXPECT_EQ(desk.Ask("world view", 100), "ok -200.000 200.730 -400.000 401.564");
    EXPECT_EQ(desk.Ask("mirror jog 200 0", 1000), "ok");
    EXPECT_EQ(desk.Ask("mirror state", 2000), "ok 180.000 -80.000 180.000 -80.000 1 1 0");
    EXPECT_EQ(desk.Ask("mirror motors off", 2000), "ok");
    EXPECT_EQ(desk.Ask("mirror jog 1 1", 2000), "error the mirror's motors are off");
    EXPECT_EQ(desk.Ask("focus move 8000", 2000), "ok");
    EXPECT_EQ(desk.Ask("focus state", 2100), "ok 40.000 80.000 4000 8000");
    EXPECT_EQ(desk.Ask("focus jog -8000", 3000), "ok");
    EXPECT_EQ(desk.Ask("focus state", 9000), "ok 0.000 0.000 0 0");
    // Quick turns add up, and none stops it where it is.
    EXPECT_EQ(desk.Ask("focus jog 4000", 9000), "ok");
    EXPECT_EQ(desk.Ask("focus jog 4000", 9050), "ok");
    EXPECT_EQ(desk.Ask("focus state", 9050), "ok 20.000 80.000 2000 8000");
    EXPECT_EQ(desk.Ask("focus jog 0", 9100), "ok");
    EXPECT_EQ(desk.Ask("focus state", 9900), "ok 40.000 40.000 4000 4000");
    EXPECT_EQ(desk.Ask("focus move 0", 9900), "ok");
    EXPECT_EQ(desk.Ask("magnification 3"), "ok");
    EXPECT_EQ(desk.Ask("magnification"), "ok 3");
}

TEST(WireCommandsTest, TheCameraGetsAllInOneLine) {
    WireCommandsRig desk;
    desk.Ask("fault count 3", 0);
    const std::string state = desk.Ask("camera state", 0);
    EXPECT_TRUE(
        state.starts_with("ok 0.000 0.000 2 242.900 181.000 0.000 4 1 -2121.320 -2121.320 0.000 "
                          "-8838.835 -8838.835 1 "))
        << state;
    EXPECT_NE(state.find(" 0 -2121.320 2121.320 0.000 -8838.835 8838.835 6 420.000 -225.827 0.000 14.000 "),
              std::string::npos)
        << state;
}

TEST(WireCommandsTest, WiresAreListedAndCount) {
    WireCommandsRig desk;
    desk.Open(WireName::Gauge);
    desk.instruments.WireOf(WireName::Gauge).Receive("Ar\r\nAr\r\n", milliseconds(0));
    EXPECT_EQ(desk.Ask("wire list"), "ok mirror 1 1 0 gauge 2 1 1 motor 3 1 0");
    EXPECT_EQ(desk.Ask("wire counters gauge"), "ok Ar 2");
    EXPECT_EQ(desk.Ask("wire counters gauge forget"), "ok");
    EXPECT_EQ(desk.Ask("wire counters gauge"), "ok");
}

TEST(WireCommandsTest, TheGaugesKeyIsRefusedWhileItsKeysAreDisabled) {
    WireCommandsRig desk;
    desk.Ask("focus move 100", 0);
    EXPECT_EQ(desk.Ask("gauge keys"), "ok 1");
    EXPECT_EQ(desk.Ask("gauge zero"), "ok");
    EXPECT_EQ(desk.Ask("gauge state"), "ok 0.000 1.000");
    desk.instruments.gauge.Receive("KEYOFF\r\n", milliseconds(100));
    EXPECT_EQ(desk.Ask("gauge keys"), "ok 0");
    EXPECT_EQ(desk.Ask("gauge zero"), "error the keys of the gauge are disabled");
}

TEST(WireCommandsTest, EveryFaultIsListedWhileItIsOnAndClearEndsThemAll) {
    WireCommandsRig desk;
    const std::array<std::pair<const char*, const char*>, 15> faults = {
        {{"fault mirror silent on", " mirror:silent"},
         {"fault gauge silent 1", " gauge:silent"},
         {"fault motor silent on", " motor:silent"},
         {"fault mirror vanish", " mirror:vanished"},
         {"fault gauge vanish", " gauge:vanished"},
         {"fault motor garble 2", " motor:garble"},
         {"fault gauge cut 3", " gauge:cut"},
         {"fault mirror error 8", " mirror:error"},
         {"fault mirror error 5 always", " mirror:error"},
         {"fault mirror fields 7 3", " mirror:fields"},
         {"fault mirror limit x on", " mirror:limit mirror:limitx"},
         {"fault mirror limit y on", " mirror:limit mirror:limity"},
         {"fault motor refuse", " motor:refuse"},
         {"fault motor refuse always", " motor:refuse"},
         {"fault gauge garbage on", " gauge:garbage"}}};
    for (const auto& [command, listed] : faults) {
        EXPECT_EQ(desk.Ask(command), "ok") << command;
        EXPECT_EQ(desk.Ask("fault list"), std::string("ok") + listed) << command;
        EXPECT_EQ(desk.Ask("fault clear"), "ok");
        EXPECT_EQ(desk.Ask("fault list"), "ok");
    }
    EXPECT_EQ(desk.Ask("fault mirror silent on"), "ok");
    EXPECT_EQ(desk.Ask("fault driver fail 1"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok fail mirror:silent");
}

TEST(WireCommandsTest, FaultsReachTheWire) {
    WireCommandsRig desk;
    desk.Open(WireName::Mirror);
    desk.Open(WireName::Motor);
    EXPECT_EQ(desk.Ask("fault mirror cut 3", 0), "ok");
    desk.instruments.WireOf(WireName::Mirror).Receive("rD2R\r", milliseconds(0));
    EXPECT_EQ(desk.Sent(WireName::Mirror, 100), "aD2");
    EXPECT_EQ(desk.Ask("fault mirror noise 5", 200), "ok");
    EXPECT_EQ(desk.Sent(WireName::Mirror, 300).size(), 5U);
    EXPECT_EQ(desk.Ask("fault motor flood 3", 300), "ok");
    EXPECT_EQ(desk.Sent(WireName::Motor, 400), "A0\rA1\rA2\r");
    EXPECT_EQ(desk.Ask("ergo RZ7", 500), "ok");
    EXPECT_EQ(desk.Sent(WireName::Mirror, 500), "");
    EXPECT_EQ(desk.Sent(WireName::Mirror, 600), "RZ7\r");
    EXPECT_EQ(desk.Ask("fault mirror motors off", 600), "ok");
    EXPECT_FALSE(desk.world.Optics().MirrorMotorsOn());
}

TEST(WireCommandsTest, WhatIsWrongIsRefusedWithASentence) {
    WireCommandsRig desk;
    for (const char* line : {"mirror",
                             "mirror move 1",
                             "mirror move 1 x",
                             "mirror state 1",
                             "magnification 4",
                             "magnification -1",
                             "focus move 4000001",
                             "focus jog x",
                             "camera state now",
                             "wire counters",
                             "wire counters nothing",
                             "wire counters mirror forgive",
                             "wire log mirror",
                             "wire log mirror /nowhere/at/all",
                             "wire replay mirror /nowhere/at/all",
                             "wire log nothing off",
                             "ergo",
                             "ergo XY",
                             "ergo RZ 1",
                             "ergo together",
                             "ergo together RZ 1",
                             "fault mirror",
                             "fault mirror nothing",
                             "fault mirror silent",
                             "fault mirror silent maybe",
                             "fault mirror noise -1",
                             "fault mirror noise 10001",
                             "fault mirror flood 10001",
                             "fault mirror cut",
                             "fault mirror error",
                             "fault mirror error 100",
                             "fault mirror error 1 sometimes",
                             "fault mirror fields -1",
                             "fault mirror limit z on",
                             "fault mirror vanish now",
                             "fault mirror garbage on",
                             "fault gauge refuse 1",
                             "fault motor error 1",
                             "fault motor refuse -1",
                             "fault motor refuse 1 2",
                             "fault gauge garbage"}) {
        const std::string answer = desk.Ask(line);
        EXPECT_TRUE(answer.starts_with("error ") && answer.size() > 6) << line << ": " << answer;
    }
    EXPECT_EQ(desk.Ask("fault list"), "ok");
}

}  // namespace workbench
