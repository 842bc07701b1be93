#include "workbench/wires/WireLog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/ground/Arithmetic.h"

namespace workbench {

using Kind = WireRecord::Kind;

namespace {

std::string InFolder(const std::string& name) { return testing::TempDir() + name; }

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

}  // namespace

TEST(WireLogTest, ARecordIsOneLineOfText) {
    EXPECT_EQ(RecordText({Time(12345), Kind::In, "rD2R\r"}), "12.345 in rD2R\\r");
    EXPECT_EQ(RecordText({Time(1000000), Kind::Out, "a\\b\r\n"}), "1000.000 out a\\\\b\\r\\n");
    EXPECT_EQ(RecordText({Time(5), Kind::Apart, std::string("\0\x7f\xff", 3)}),
              "0.005 apart \\x00\\x7f\\xff");
    EXPECT_EQ(RecordText({Time(0), Kind::Note, ""}), "0.000 note ");
}

TEST(WireLogTest, EveryByteIsReadBackAsItWas) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    for (const Kind kind : {Kind::In, Kind::Out, Kind::Apart, Kind::Whole, Kind::Note}) {
        const auto record = ReadRecord(RecordText({Time(987654321), kind, all}));
        ASSERT_TRUE(record);
        EXPECT_EQ(record->time, Time(987654321));
        EXPECT_EQ(record->kind, kind);
        EXPECT_EQ(record->bytes, all);
    }
}

TEST(WireLogTest, WhatIsNoRecordIsNotRead) {
    for (const char* text :
         {"", "12", "12 in", "x in a", "-1 in a", "1e99 in a", "nan in a", "1 out\\r", "1 wrong a", "1 in \\",
          "1 in \\q", "1 in \\x", "1 in \\x1", "1 in \\xzz", "1  a"}) {
        EXPECT_FALSE(ReadRecord(text)) << text;
    }
}

TEST(WireLogTest, AFileHoldsTheRecordsInTheirOrderAndIsBegunAnew) {
    const std::string path = InFolder("wire.log");
    WireLog log;
    log.Write({Time(1), Kind::In, "nobody listens"});
    log.Open(path);
    log.Write({Time(2), Kind::In, "a\r"});
    log.Write({Time(3), Kind::Out, "b\r\n"});
    const auto records = ReadRecords(path);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].bytes, "a\r");
    EXPECT_EQ(records[1].kind, Kind::Out);
    log.Open(path);
    EXPECT_TRUE(ReadRecords(path).empty());
    log.Close();
    EXPECT_FALSE(log.IsOpen());
    std::filesystem::remove(path);
}

TEST(WireLogTest, AFileThatCannotBeWrittenOrReadIsAFailure) {
    WireLog log;
    EXPECT_THROW(log.Open("/nowhere/at/all"), travo::Failure);
    EXPECT_FALSE(log.IsOpen());
    EXPECT_THROW(ReadRecords("/nowhere/at/all"), travo::Failure);
    const std::string path = InFolder("no-wire.log");
    WriteFile(path, "1.000 in a\nthis is something else\n");
    EXPECT_THROW(ReadRecords(path), travo::NumberFailure);
    std::filesystem::remove(path);
}

}  // namespace workbench
