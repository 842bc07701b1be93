// What the driver keeps in files: its log, and whose position counts.
#include "drivers/gcode/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "drivers/gcode/Log.h"
#include "drivers/gcode/Trust.h"

namespace gcode {
namespace {

using ::testing::HasSubstr;

class GcodeFilesTest : public ::testing::Test {
protected:
    GcodeFilesTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "gcode-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~GcodeFilesTest() override { std::filesystem::remove_all(folder); }
    std::string File(const std::string& name) const { return folder + "/" + name; }

    std::string folder;
};

TEST_F(GcodeFilesTest, AFileIsWrittenWholeAndReadBack) {
    EXPECT_TRUE(WriteWholeFile(File("a"), "one\ntwo"));
    EXPECT_EQ(ReadWholeFile(File("a")), "one\ntwo");
    EXPECT_TRUE(WriteWholeFile(File("a"), ""));
    EXPECT_EQ(ReadWholeFile(File("a")), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(GcodeFilesTest, WhatIsNoRegularFileIsNotReadAndHoldsNobodyUp) {
    EXPECT_FALSE(ReadWholeFile(File("none")));
    EXPECT_FALSE(ReadWholeFile(folder));
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(ReadWholeFile(File("pipe")));
    EXPECT_FALSE(WriteWholeFile(folder + "/no/such", "x"));
}

TEST_F(GcodeFilesTest, ALineOfTheLogHasDateAndTime) {
    Log(File("log")).Write("needle 1: gone");
    EXPECT_THAT(*ReadWholeFile(File("log")), ::testing::MatchesRegex("20..-..-.. ..:..:.. needle 1: gone\n"));
}

TEST_F(GcodeFilesTest, TheLogIsBoundedToTwoFilesOfAMegabyte) {
    const Log log(File("log"));
    const std::string text(10000, 'x');
    for (int line = 0; line < 320; ++line) {
        log.Write(std::to_string(line) + text);
    }
    EXPECT_LE(std::filesystem::file_size(File("log")), 1024U * 1024);
    EXPECT_LE(std::filesystem::file_size(File("log.1")), 1024U * 1024);
    EXPECT_GT(std::filesystem::file_size(File("log.1")), 1000U * 1000);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
    EXPECT_THAT(*ReadWholeFile(File("log")), HasSubstr("319xxx"));
}

TEST_F(GcodeFilesTest, ALogThatCannotBeWrittenIsNoFailure) {
    Log("").Write("nowhere");
    Log(folder).Write("a folder");
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    Log(File("pipe")).Write("nobody reads");
}

TEST_F(GcodeFilesTest, TrustOutlivesTheDriver) {
    Trust trust(File("state"));
    trust.Load();
    EXPECT_FALSE(trust.IsHomed(1));
    EXPECT_EQ(trust.LostBecause(1), "");
    EXPECT_TRUE(trust.TakeAsHomed(1));
    EXPECT_TRUE(trust.Lose(3, "the controller has started anew"));
    Trust next(File("state"));
    next.Load();
    EXPECT_TRUE(next.IsHomed(1));
    EXPECT_FALSE(next.IsHomed(3));
    EXPECT_EQ(next.LostBecause(3), "the controller has started anew");
    EXPECT_TRUE(next.Lose(1, "a jump"));
    EXPECT_TRUE(next.TakeAsHomed(3));
    EXPECT_EQ(ReadWholeFile(File("state")), "needle 1 lost: a jump\nneedle 3 homed\n");
}

TEST_F(GcodeFilesTest, ALossThatCouldNotBeWrittenHoldsAllTheSame) {
    Trust trust(folder + "/no/state");
    EXPECT_FALSE(trust.Lose(2, "a jump"));
    trust.Load();
    EXPECT_EQ(trust.LostBecause(2), "a jump");
}

TEST_F(GcodeFilesTest, AStateFileOfAnotherFormSaysNothing) {
    WriteWholeFile(
        File("state"),
        "needle 0 homed\nneedle 5 homed\nneedle x homed\nneedle 12 homed\nneedle 2 homed?\nhomed\nneedle");
    Trust trust(File("state"));
    trust.Load();
    for (int needle = 1; needle <= 4; ++needle) {
        EXPECT_FALSE(trust.IsHomed(needle));
        EXPECT_EQ(trust.LostBecause(needle), "");
    }
}

}  // namespace
}  // namespace gcode
