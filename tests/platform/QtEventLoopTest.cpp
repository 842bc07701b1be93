#include "platform/qt/QtEventLoop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <vector>

namespace travo::platform::qt {

namespace {

TEST(QtEventLoopTest, ServeServesWhatIsPendingAndReturns) {
    QtEventLoop loop;
    int served = 0;
    loop.Queue([&] { ++served; });
    EXPECT_EQ(served, 0);
    loop.Serve();
    EXPECT_EQ(served, 1);
}

TEST(QtEventLoopTest, AnEventEndsTheSleepBeforeItsTimeIsOver) {
    QtEventLoop loop;
    int served = 0;
    QTimer::singleShot(1, [&] { ++served; });
    QElapsedTimer time;
    time.start();
    while (served == 0) {
        loop.ServeUntilEventOr(600000);
    }
    EXPECT_LT(time.elapsed(), 600000);
}

TEST(QtEventLoopTest, TheSleepEndsWhenItsTimeIsOver) {
    QtEventLoop loop;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 20) {
        loop.ServeUntilEventOr(20 - time.elapsed());
    }
    EXPECT_GE(time.elapsed(), 20);
}

TEST(QtEventLoopTest, WhatWaitsForTheEndOfWaitsRunsFromTheEventLoopAfterTheOutermost) {
    QtEventLoop loop;
    std::vector<int> order;
    {
        const QtEventLoop::Wait outer(loop);
        {
            const QtEventLoop::Wait inner(loop);
            EXPECT_TRUE(loop.Waiting());
            loop.QueueAfterWaits([&] { order.push_back(1); });
        }
        QCoreApplication::processEvents();
        EXPECT_TRUE(order.empty());
    }
    EXPECT_FALSE(loop.Waiting());
    EXPECT_TRUE(order.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(order, std::vector<int>{1});
}

TEST(QtEventLoopTest, WhatFindsANewWaitInItsTurnWaitsOnceMore) {
    QtEventLoop loop;
    int run = 0;
    {
        const QtEventLoop::Wait wait(loop);
        loop.QueueAfterWaits([&] { ++run; });
    }
    loop.Serve();  // itself a wait
    EXPECT_EQ(run, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(run, 1);
}

}  // namespace

}  // namespace travo::platform::qt
