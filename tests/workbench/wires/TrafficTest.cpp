#include "workbench/wires/Traffic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "workbench/wires/Instruments.h"

namespace workbench {

using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace {

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

// A wire whose traffic is noted as "kind bytes".
struct Rig {
    Rig() {
        Mirror().OnTraffic([this](Time, std::string_view kind, std::string_view bytes) {
            told.push_back(std::string(kind).append(" ").append(bytes));
        });
    }
    Wire& Mirror() { return instruments.WireOf(WireName::Mirror); }
    std::vector<std::string> Told() { return std::exchange(told, {}); }

    World world;
    Instruments instruments{world};
    std::vector<std::string> told;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST(TrafficTest, ARecordIsOneWordWhateverItHolds) {
    Traffic traffic;
    traffic.Take(microseconds(1234567), "mirror", "in", std::string("a b/c\\d\r\n\0\xff", 11));
    EXPECT_EQ(traffic.From(0), " 1 0 1234.567/mirror/in/a\\x20b\\x2fc\\\\d\\r\\n\\x00\\xff");
}

TEST(TrafficTest, ItIsReadOnFromWhereItWasLeftFortyAtATime) {
    Traffic traffic;
    EXPECT_EQ(traffic.From(0), " 0 0");
    for (int record = 0; record < 45; ++record) {
        traffic.Take(milliseconds(record), "driver", "call", std::to_string(record));
    }
    const auto first = WordsOf(traffic.From(0));
    ASSERT_EQ(first.size(), 42U);
    EXPECT_EQ(first[0], "40");
    EXPECT_EQ(first[2], "0.000/driver/call/0");
    EXPECT_EQ(first.back(), "39.000/driver/call/39");
    const auto rest = WordsOf(traffic.From(40));
    ASSERT_EQ(rest.size(), 7U);
    EXPECT_EQ(rest[0], "45");
    EXPECT_EQ(rest.back(), "44.000/driver/call/44");
    EXPECT_EQ(traffic.From(45), " 45 0");
}

TEST(TrafficTest, WhatIsOlderThanTheLatestFourThousandIsCountedAsLost) {
    Traffic traffic;
    for (int record = 0; record < 4100; ++record) {
        traffic.Take(milliseconds(record), "gauge", "out", "A");
    }
    const auto words = WordsOf(traffic.From(30));
    EXPECT_EQ(words[0], "140");
    EXPECT_EQ(words[1], "70");
    EXPECT_EQ(words[2], "100.000/gauge/out/A");
    EXPECT_EQ(WordsOf(traffic.From(100))[1], "0");
    EXPECT_EQ(WordsOf(traffic.From(99))[1], "1");
}

TEST(TrafficTest, ASerialBeyondTheNewestIsAnsweredWithTheOneThatComesNext) {
    Traffic traffic;
    traffic.Take(milliseconds(1), "gauge", "out", "A");
    EXPECT_EQ(traffic.From(5000), " 1 0");
    EXPECT_EQ(traffic.From(INT64_MAX), " 1 0");
}

TEST(WireTrafficTest, OpeningCommandsAnswersAndClosingAreTold) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Receive("rD2", milliseconds(0));
    EXPECT_EQ(desk.Told(), (Texts{"note open"}));
    desk.Mirror().Receive("R\rrMGR\r", milliseconds(1));
    desk.Mirror().Transmit(milliseconds(100));
    EXPECT_EQ(desk.Told(), (Texts{"in rD2R\r", "in rMGR\r", "out aD2R0\r\n", "out aMGR2\r\n"}));
    desk.Mirror().Receive("cD", milliseconds(100));
    desk.Mirror().SetOpen(false, milliseconds(101));
    EXPECT_EQ(desk.Told(), (Texts{"in cD", "note shut"}));
}

TEST(WireTrafficTest, LinesOfTheErgoUnitAreToldByTheirManner) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Told();
    desk.instruments.mirror.PassErgoLine("RZ5", false, milliseconds(0));
    desk.instruments.mirror.PassErgoLine("RE", true, milliseconds(0));
    for (int ms = 1; ms <= 400; ++ms) {
        desk.Mirror().Transmit(milliseconds(ms));
    }
    const Texts told = desk.Told();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0], "apart RZ5\r");
    EXPECT_TRUE(told[1].starts_with("whole RE\rsSAA")) << told[1];
}

TEST(WireTrafficTest, WhatAFaultDidToALineIsToldDirectlyBeforeTheLine) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Told();
    desk.Mirror().Faults().Garble(1);
    desk.Mirror().Receive("rD2R\rrMGR\r", milliseconds(0));
    desk.Mirror().Transmit(milliseconds(100));
    Texts told = desk.Told();
    ASSERT_EQ(told.size(), 5U);
    EXPECT_EQ(told[2], "event garbled aD2R0\r\n");
    EXPECT_TRUE(told[3].starts_with("out ") && told[3] != "out aD2R0\r\n");
    EXPECT_EQ(told[4], "out aMGR2\r\n");
    desk.Mirror().Faults().CutNext(3);
    desk.Mirror().Receive("rD2R\r", milliseconds(200));
    desk.Mirror().Transmit(milliseconds(300));
    EXPECT_EQ(desk.Told(), (Texts{"in rD2R\r", "event cut aD2R0\r\n", "out aD2"}));
    desk.Mirror().Faults().CutNext(0);
    desk.Mirror().Receive("rD2R\r", milliseconds(400));
    EXPECT_EQ(desk.Told(), (Texts{"in rD2R\r", "event cut aD2R0\r\n"}));
    desk.Mirror().Faults().Silence(true);
    desk.Mirror().Receive("rD2R\r", milliseconds(500));
    EXPECT_EQ(desk.Told(), (Texts{"in rD2R\r", "event silent aD2R0\r\n"}));
}

TEST(WireTrafficTest, NoiseFloodAndTheCableAreTold) {
    Rig desk;
    desk.Mirror().SendNoise(5, milliseconds(0));
    EXPECT_EQ(desk.Told(), Texts{});
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().SendNoise(5, milliseconds(0));
    desk.Mirror().SendFlood(2, milliseconds(0));
    EXPECT_EQ(desk.Told(), (Texts{"note open", "event noise 5", "event flood 2"}));
    desk.Mirror().Plug(false, milliseconds(1));
    EXPECT_EQ(desk.Told(), (Texts{"note cable out", "note shut"}));
    desk.Mirror().Plug(true, milliseconds(2));
    EXPECT_EQ(desk.Told(), (Texts{"note cable in"}));
}

TEST(WireTrafficTest, TheGaugesCommandsEndWithTwoBytesAndWhatNeverEndsIsToldInPieces) {
    Rig desk;
    Texts told;
    Wire& gauge = desk.instruments.WireOf(WireName::Gauge);
    gauge.OnTraffic([&](Time, std::string_view kind, std::string_view bytes) {
        told.push_back(std::string(kind).append(" ").append(bytes));
    });
    gauge.Receive("Ar\r", milliseconds(0));
    EXPECT_EQ(told, Texts{});
    gauge.Receive("\n", milliseconds(0));
    EXPECT_EQ(told, (Texts{"in Ar\r\n"}));
    gauge.Receive(std::string(300, 'x'), milliseconds(0));
    EXPECT_EQ(told.back(), "in " + std::string(300, 'x'));
}

}  // namespace workbench
