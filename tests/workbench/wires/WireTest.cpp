#include "workbench/wires/Wire.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "core/ground/Arithmetic.h"
#include "workbench/wires/Instruments.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct Rig {
    Wire& Mirror() { return instruments.WireOf(WireName::Mirror); }
    std::string Sent(Wire& wire, int at) {
        std::string text;
        for (const std::string& bytes : wire.Transmit(milliseconds(at))) {
            text += bytes;
        }
        return text;
    }

    World world;
    Instruments instruments{world};
};

std::string LogPath() { return testing::TempDir() + "replay.log"; }

}  // namespace

TEST(WireTest, CarriesAnswersAtItsOwnPace) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Receive("rD2R\r", milliseconds(0));
    EXPECT_TRUE(desk.Mirror().Busy());
    EXPECT_EQ(desk.Sent(desk.Mirror(), 4), "aD2");
    EXPECT_EQ(desk.Sent(desk.Mirror(), 8), "R0\r\n");
    EXPECT_FALSE(desk.Mirror().Busy());
    Wire& gauge = desk.instruments.WireOf(WireName::Gauge);
    gauge.SetOpen(true, milliseconds(0));
    gauge.Receive("Ar\r\n", milliseconds(0));
    EXPECT_EQ(desk.Sent(gauge, 25), "A+00.0");
    EXPECT_EQ(desk.Sent(gauge, 42), "00\r\n");
}

TEST(WireTest, NothingIsQueuedWhileNobodyHasThePortOpen) {
    Rig desk;
    desk.Mirror().Receive("cSAS1\rrD2R\r", milliseconds(0));
    desk.instruments.mirror.PassErgoLine("RE", false, milliseconds(0));
    desk.Mirror().SendFlood(100, milliseconds(0));
    desk.Mirror().SendNoise(100, milliseconds(0));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 900), "");
    EXPECT_FALSE(desk.Mirror().Busy());
    desk.instruments.mirror.PassErgoLine("RE", false, milliseconds(900));
    desk.Mirror().SetOpen(true, milliseconds(900));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 950), "");
    EXPECT_EQ(desk.instruments.mirror.Received().size(), 2U);
}

TEST(WireTest, AClosingLosesWhatWasUnderWay) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Receive("rD2R\r", milliseconds(0));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 4), "aD2");
    desk.Mirror().SetOpen(false, milliseconds(5));
    desk.Mirror().SetOpen(true, milliseconds(6));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 500), "");
}

TEST(WireTest, ASilentInstrumentActsAllTheSame) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Faults().Silence(true);
    desk.Mirror().Receive("cMAG3\r", milliseconds(0));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 500), "");
    EXPECT_EQ(desk.world.Optics().Magnification(), 3);
    EXPECT_EQ(desk.instruments.mirror.Received().at("cMAG"), 1);
}

TEST(WireTest, AFloodIsPacedAsWellAndNoiseIsOnIt) {
    Rig desk;
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().SendFlood(1000, milliseconds(0));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 1000).size(), 960U);
    EXPECT_TRUE(desk.Mirror().Busy());
    desk.Mirror().SetOpen(false, milliseconds(1000));
    desk.Mirror().SetOpen(true, milliseconds(1000));
    desk.Mirror().SendNoise(96, milliseconds(1000));
    EXPECT_EQ(desk.Sent(desk.Mirror(), 1100).size(), 96U);
}

TEST(WireTest, TheOwnerOfThePortIsToldOfTheCableOnce) {
    Rig desk;
    int told = 0;
    desk.Mirror().OnPlug([&] { ++told; });
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Plug(false, milliseconds(1));
    desk.Mirror().Plug(false, milliseconds(1));
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(desk.Mirror().Plugged());
    EXPECT_FALSE(desk.Mirror().IsOpen());
    desk.Mirror().Plug(true, milliseconds(2));
    EXPECT_EQ(told, 2);
}

TEST(WireTest, ACableThatCannotBePluggedInStaysOut) {
    Rig desk;
    desk.Mirror().Plug(false, milliseconds(0));
    desk.Mirror().OnPlug([] { throw std::runtime_error("no port"); });
    EXPECT_THROW(desk.Mirror().Plug(true, milliseconds(1)), std::runtime_error);
    EXPECT_FALSE(desk.Mirror().Plugged());
}

TEST(WireTest, WhatWasLoggedIsReplayedInItsOwnTimeAndTheInstrumentIsNotHeardMeanwhile) {
    Rig first;
    first.Mirror().LogTo(LogPath());
    first.Mirror().SetOpen(true, milliseconds(0));
    first.Mirror().Receive("cMAG3\r", milliseconds(10));
    first.Sent(first.Mirror(), 20);
    first.Mirror().Receive("rMGR\r", milliseconds(100));
    first.instruments.mirror.PassErgoLine("RZ5", false, milliseconds(100));
    first.Sent(first.Mirror(), 110);
    first.Sent(first.Mirror(), 200);
    first.Mirror().SetOpen(false, milliseconds(300));
    first.Mirror().EndLog();
    const auto records = ReadRecords(LogPath());
    ASSERT_EQ(records.size(), 7U);
    EXPECT_EQ(records[5].kind, WireRecord::Kind::Apart);
    EXPECT_EQ(records[6].bytes, "closed");

    Rig second;
    second.Mirror().SetOpen(true, milliseconds(5000));
    second.Mirror().Replay(LogPath(), milliseconds(5000));
    EXPECT_TRUE(second.Mirror().Replays());
    second.Mirror().Receive("rD2R\r", milliseconds(5000));
    EXPECT_EQ(second.Sent(second.Mirror(), 5001), "");
    EXPECT_EQ(second.Sent(second.Mirror(), 5010), "oMAG3\r\n");
    EXPECT_EQ(second.Sent(second.Mirror(), 5090), "");
    EXPECT_EQ(second.Sent(second.Mirror(), 5100), "aMGR3\r\n");
    EXPECT_EQ(second.Sent(second.Mirror(), 5300), "RZ5\r");
    EXPECT_FALSE(second.Mirror().Replays());
    second.Mirror().Receive("rD2R\r", milliseconds(5400));
    EXPECT_EQ(second.Sent(second.Mirror(), 5500), "aD2R0\r\n");
    std::filesystem::remove(LogPath());
}

TEST(WireTest, ALineThatAClosingCutsIsLoggedAsFarAsItWent) {
    Rig desk;
    desk.Mirror().LogTo(LogPath());
    desk.Mirror().SetOpen(true, milliseconds(0));
    desk.Mirror().Receive("rD2R\r", milliseconds(0));
    desk.Sent(desk.Mirror(), 4);
    desk.Mirror().SetOpen(false, milliseconds(5));
    const auto records = ReadRecords(LogPath());
    ASSERT_EQ(records.size(), 4U);
    EXPECT_EQ(records[2].bytes, "aD2");
    EXPECT_EQ(records[3].bytes, "closed");
    std::filesystem::remove(LogPath());
}

TEST(WireTest, ALogWithNothingFromTheInstrumentIsNotReplayed) {
    Rig desk;
    std::ofstream(LogPath()) << "1.000 in rD2R\\r\n";
    EXPECT_THROW(desk.Mirror().Replay(LogPath(), milliseconds(0)), travo::Failure);
    EXPECT_THROW(desk.Mirror().Replay("/nowhere/at/all", milliseconds(0)), travo::Failure);
    EXPECT_FALSE(desk.Mirror().Replays());
    std::filesystem::remove(LogPath());
}

}  // namespace workbench
