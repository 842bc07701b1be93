#include "workbench/live/Callers.h"

#include <gtest/gtest.h>

#include "support/PrivateBus.h"

namespace workbench::live {

namespace {

using travo::test::ServeUntil;

constexpr std::chrono::milliseconds Short{1};
constexpr std::chrono::milliseconds Long{600000};

class CallersTest : public ::testing::Test {
protected:
    int nobody = 0;
};

TEST_F(CallersTest, WaitTenSecondsForTheFirst) {
    EXPECT_EQ(Callers::Limits().first, std::chrono::seconds(10));
}

TEST_F(CallersTest, NobodyHasCalledWithinTheFirstLimit) {
    const Callers callers([this] { ++nobody; }, {Short, Long});
    EXPECT_TRUE(ServeUntil([this] { return nobody == 1; }));
}

TEST_F(CallersTest, TheLastOneHasGone) {
    Callers callers([this] { ++nobody; }, {Long, Short});
    EXPECT_TRUE(callers.Note(QStringLiteral(":1.1")));
    EXPECT_FALSE(callers.Note(QStringLiteral(":1.1")));
    EXPECT_TRUE(callers.Note(QStringLiteral(":1.2")));
    EXPECT_EQ(callers.Count(), 2);
    callers.Gone(QStringLiteral(":1.1"));
    callers.Gone(QStringLiteral(":1.7"));
    QTimer passing;
    bool passed = false;
    passing.singleShot(30, [&] { passed = true; });
    EXPECT_TRUE(ServeUntil([&] { return passed; }));
    EXPECT_EQ(nobody, 0);
    callers.Gone(QStringLiteral(":1.2"));
    EXPECT_TRUE(ServeUntil([this] { return nobody == 1; }));
}

TEST_F(CallersTest, ACallWithinTheGraceKeepsTheProgram) {
    Callers callers([this] { ++nobody; }, {Long, std::chrono::milliseconds(50)});
    callers.Note(QStringLiteral(":1.1"));
    callers.Gone(QStringLiteral(":1.1"));
    callers.Note(QStringLiteral(":1.2"));
    bool passed = false;
    QTimer::singleShot(150, [&] { passed = true; });
    EXPECT_TRUE(ServeUntil([&] { return passed; }));
    EXPECT_EQ(nobody, 0);
}

}  // namespace

}  // namespace workbench::live
