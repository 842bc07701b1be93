// travo-driver-check on the workbench's own library, in front of a workbench without a window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/check/CheckedLibrary.h"
#include "drivers/check/RunningWorkbench.h"

namespace check {

using testing::HasSubstr;
using testing::IsEmpty;

TEST(DriverCheckWorkbenchTest, FindsNothingWrongAndMovesNothing) {
    const RunningWorkbench workbench;
    ASSERT_TRUE(workbench.IsReady());
    const Result result = RunCheck(WORKBENCH_DRIVER);
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("BROKEN"), IsEmpty()) << result.text;
    EXPECT_THAT(result.Row("still"), HasSubstr("kept"));
}

TEST(DriverCheckWorkbenchTest, FindsNothingWrongWithItsMoves) {
    const RunningWorkbench workbench;
    ASSERT_TRUE(workbench.IsReady());
    const Result result = RunCheck("--move --reach 400 " WORKBENCH_DRIVER);
    EXPECT_EQ(result.exitCode, 0) << result.text;
    EXPECT_THAT(result.Clauses("BROKEN"), IsEmpty()) << result.text;
    EXPECT_THAT(result.Row("arrival"), HasSubstr("kept"));
}

TEST(DriverCheckWorkbenchTest, TellsThatNobodyAnswersWhereNoWorkbenchRuns) {
    const PrivateRuntimeFolder folder;
    const Result result = RunCheck(WORKBENCH_DRIVER);
    EXPECT_EQ(result.exitCode, 1) << result.text;
    EXPECT_THAT(result.Row("count"), HasSubstr("DriverGetCount fails with -10"));
}

}  // namespace check
