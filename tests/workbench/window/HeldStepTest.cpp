#include "workbench/window/HeldStep.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>
#include <vector>

namespace workbench::test {

TEST(HeldStepTest, StepsAtOnceThenAfterALongPauseThenEvenly) {
    std::vector<qint64> times;
    QElapsedTimer clock;
    clock.start();
    HeldStep held;
    held.Begin([&] { times.push_back(clock.elapsed()); }, [] { return true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return times.size() == 4; }, 10000));
    EXPECT_GE(times.at(1) - times.at(0), HeldStep::FirstPause - 1);
    EXPECT_GE(times.at(2) - times.at(1), HeldStep::Pause - 1);
    EXPECT_GE(times.at(3) - times.at(2), HeldStep::Pause - 1);
    held.End();
    EXPECT_FALSE(held.IsHeld());
}

TEST(HeldStepTest, WaitsForTheArrivalAndEndsWhenItIsLetGo) {
    int steps = 0;
    bool arrived = false;
    HeldStep held;
    held.Begin([&] { ++steps; }, [&] { return arrived; });
    QTest::qWait(HeldStep::FirstPause + 3 * HeldStep::Pause);
    EXPECT_EQ(steps, 1);
    arrived = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return steps == 2; }));
    held.End();
    QTest::qWait(3 * HeldStep::Pause);
    EXPECT_EQ(steps, 2);
}

}  // namespace workbench::test
