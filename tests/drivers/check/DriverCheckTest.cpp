// travo-driver-check on libraries that keep the contract, and what it says of itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/check/CheckedLibrary.h"

namespace check {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(DriverCheckTest, FindsNothingWrongWithTheExampleOfADriver) {
    const Result result = RunCheck("--move --reach 400 " MINIMAL_DRIVER);
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("BROKEN"), IsEmpty());
    EXPECT_THAT(result.Clauses("not seen"), ElementsAre("refusal"));
}

TEST(DriverCheckTest, SeesEveryClauseOfALibraryThatStandsNearAnEndOfItsRange) {
    const Result result = RunCheck("--move --reach 400 " + Planted("None"));
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("kept").size(), 27) << result.text;
    EXPECT_THAT(result.text, HasSubstr("27 clauses: 27 kept, 0 broken, 0 with advice, 0 not seen\n"));
}

TEST(DriverCheckTest, SaysWhatItHasNotSeenWithoutAMove) {
    const Result result = RunCheck(Planted("None"));
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("not seen"),
                ElementsAre("taken", "returns", "true-place", "straight", "arrival", "refusal", "stop"));
    EXPECT_THAT(result.Row("stop"), HasSubstr("only --move shows it"));
    EXPECT_THAT(result.Row("times"), testing::Not(HasSubstr("DriverMoveTo")));
    EXPECT_THAT(result.Row("times"), testing::Not(HasSubstr("DriverStop")));
}

TEST(DriverCheckTest, SaysWhichClausesAShortReachDoesNotShow) {
    const Result result = RunCheck("--move " + Planted("None"));
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Row("returns"), HasSubstr("--reach of 400 counts or more would show it"));
    EXPECT_THAT(result.Row("refusal"), HasSubstr("no needle stands within --reach of an end of its range"));
}

TEST(DriverCheckTest, TellsTheSettlingTimeSinceTravoReadsThatMuchEarly) {
    EXPECT_THAT(RunCheck(Planted("None")).Row("settling"), HasSubstr("20 ms: TRAVO reads that much early"));
}

TEST(DriverCheckTest, RefusesAReachWithoutAMove) {
    const Result result = RunCheck("--reach 400 " MINIMAL_DRIVER);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.text, "travo-driver-check: --reach goes with --move\nTry --help.\n");
}

TEST(DriverCheckTest, RefusesAReachThatIsNoneOfTheRange) {
    for (const char* reach : {"0", "-1", "25001", "1e3", "400x", "''"}) {
        const Result result = RunCheck(std::string("--move --reach ") + reach + " " MINIMAL_DRIVER);
        EXPECT_EQ(result.exitCode, 2) << reach;
        EXPECT_THAT(result.text, HasSubstr("--reach is 1 to 25000")) << reach;
    }
}

TEST(DriverCheckTest, RefusesALibraryThatIsNotThereAndMoreThanOne) {
    EXPECT_EQ(RunCheck("/no/such/library.so").exitCode, 2);
    EXPECT_THAT(RunCheck("/no/such/library.so").text, HasSubstr("No such file or directory"));
    EXPECT_EQ(RunCheck("").exitCode, 2);
    EXPECT_EQ(RunCheck(MINIMAL_DRIVER " " MINIMAL_DRIVER).exitCode, 2);
    EXPECT_EQ(RunCheck("--shake " MINIMAL_DRIVER).exitCode, 2);
}

TEST(DriverCheckTest, SaysWhatItIsAndHowItIsUsed) {
    const Result help = RunCheck("--help");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_THAT(help.text, HasSubstr("Usage: travo-driver-check [--move [--reach COUNTS]] LIBRARY\n"));
    const Result version = RunCheck("--version");
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.text, "travo-driver-check 1.0\n");
}

TEST(DriverCheckTest, AFileThatIsNoLibraryBreaksTheFirstClauseAndNoOther) {
    const Result result = RunCheck("/proc/self/cmdline");
    EXPECT_EQ(result.exitCode, 1) << result.text;
    EXPECT_THAT(result.Clauses("BROKEN"), ElementsAre("loads"));
}

}  // namespace check
