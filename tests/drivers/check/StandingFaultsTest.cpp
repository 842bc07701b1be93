// Faults that show while every needle stands still: each is found, and nothing else is said to be wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "drivers/check/CheckedLibrary.h"

namespace check {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

void ExpectBreach(const std::string& fault, const std::string& clause, const std::string& told) {
    const Result result = RunCheck(Planted(fault));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.Clauses("BROKEN"), ElementsAre(clause)) << result.text;
    EXPECT_THAT(result.Row(clause), HasSubstr(told));
}

// Whether a process that runs was started with this text in its command line.
bool IsInACommandLine(const std::string& text) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        std::ifstream file(entry.path() / "cmdline");
        const std::string line{std::istreambuf_iterator<char>(file), {}};
        if (line.find(text) != std::string::npos) {
            return true;
        }
    }
    return false;
}

}  // namespace

TEST(DriverCheckStandingTest, FindsAFunctionThatIsMissing) {
    ExpectBreach("LacksReconnect", "functions", "lacks DriverReconnect");
}

TEST(DriverCheckStandingTest, FindsASymbolThatNobodyHas) {
    ExpectBreach("NeedsAStrangerSymbol", "loads", "SymbolThatNobodyHas");
}

TEST(DriverCheckStandingTest, FindsASettlingTimeOfMoreThan300Milliseconds) {
    ExpectBreach("StatesLongSettling", "settling", "400 ms");
}

TEST(DriverCheckStandingTest, OutlivesAnAbort) {
    ExpectBreach("AbortsInReading", "lives", "DriverGetPosition: signal 6");
}

TEST(DriverCheckStandingTest, OutlivesACrash) {
    ExpectBreach("CrashesInSelect", "lives", "DriverSelect: signal 11");
}

TEST(DriverCheckStandingTest, FindsALibraryThatEndsTheProcessInSilence) {
    ExpectBreach("ExitsInCount", "lives", "DriverGetCount: ended the process with exit code 0");
}

TEST(DriverCheckStandingTest, DoesNotHangWithALibraryThatHangs) {
    ExpectBreach("HangsInReading", "times", "DriverGetPosition: no answer within 3000 ms");
}

TEST(DriverCheckStandingTest, FindsACallThatTakesMoreThanTwoSeconds) {
    ExpectBreach("TakesLongToSelect", "times", "DriverSelect took 22");
}

TEST(DriverCheckStandingTest, AdvisesAgainstReadingsOfMoreThan50MillisecondsAndCallsThemNoBreach) {
    const Result result = RunCheck(Planted("ReadsSlowly"));
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("advice"), ElementsAre("reading-time"));
}

TEST(DriverCheckStandingTest, FindsAValueThatIsWrittenWiderThanItIs) {
    ExpectBreach("WritesSixtyFourBits", "values", "DriverGetPosition writes beyond a value of 32 bits");
}

TEST(DriverCheckStandingTest, FindsACountOfMoreThanFour) { ExpectBreach("CountsSeven", "count", ": 7"); }

TEST(DriverCheckStandingTest, FindsTheAnswer0ToASelectionThatSucceeds) {
    ExpectBreach("AnswersZero", "select", "the answer 0 for number 1");
}

TEST(DriverCheckStandingTest, FindsNumbersThatBeginAt0) {
    ExpectBreach("CountsFromZero", "numbers", "says 0 where 1 is selected");
}

TEST(DriverCheckStandingTest, FindsReadingsInOtherUnits) {
    ExpectBreach("ReadsNanometres", "range", "(300000, 12500, 12500)");
}

TEST(DriverCheckStandingTest, FindsAConnectedNeedleThatCannotBeRead) {
    ExpectBreach("FailsReadingOfSecond", "numbers", "DriverGetPosition fails with -5 for number 2");
}

TEST(DriverCheckStandingTest, FindsAStrangeNumberThatChangesTheSelection) {
    ExpectBreach("SelectsAStranger", "not-connected", "the selection is another behind 3");
}

TEST(DriverCheckStandingTest, FindsANeedleThatIsLostInConnectingAnew) {
    ExpectBreach("LosesOneInReconnect", "reconnect", "1 are connected, it was 2");
}

TEST(DriverCheckStandingTest, FindsANeedleThatMovesInConnectingAnew) {
    ExpectBreach("MovesOnReconnect", "still", "number 1 stood at (300, 12500, 12500)");
}

TEST(DriverCheckStandingTest, FindsASignalHandler) {
    ExpectBreach("TakesInterrupts", "surroundings", "changes handling of SIGINT");
}

TEST(DriverCheckStandingTest, FindsAChangedLocale) {
    ExpectBreach("ChangesLocale", "surroundings", "changes locale");
}

TEST(DriverCheckStandingTest, FindsWhatIsPrintedAndInWhichCall) {
    ExpectBreach("Prints", "output", "DriverGetCount writes to standard output: \"two manipulators");
}

TEST(DriverCheckStandingTest, FindsWhatIsPrintedInUnloading) {
    ExpectBreach("PrintsAtTheEnd", "output", "unloading writes to standard output: \"good bye");
}

TEST(DriverCheckStandingTest, OutlivesACrashInUnloading) {
    ExpectBreach("CrashesOnUnload", "unload", "signal 11");
}

TEST(DriverCheckStandingTest, FindsAHandlerThatIsCalledWhenTheLibraryIsGone) {
    ExpectBreach("LeavesAHandlerForTheEnd", "unload", "signal 11");
}

TEST(DriverCheckStandingTest, FindsAThreadThatStays) {
    const Result result = RunCheck(Planted("LeavesAThread"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.Clauses("BROKEN"), testing::Contains("threads")) << result.text;
}

TEST(DriverCheckStandingTest, FindsADescriptorThatStaysOpen) {
    ExpectBreach("LeavesADescriptor", "descriptors", "(/dev/null)");
}

TEST(DriverCheckStandingTest, FindsAProcessThatStaysAndEndsIt) {
    ExpectBreach("LeavesAProcess", "children", "left");
    EXPECT_FALSE(IsInACommandLine(Planted("LeavesAProcess")));
}

}  // namespace check
