#include "core/state/FirstAndLast.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/StandIns.h"

namespace travo::test {

namespace {

class FirstAndLastTest : public ::testing::Test {
protected:
    FakeTimer& Period() { return *timers.created.at(0); }

    FakeTimers timers;
    int worked = 0;
    std::function<void()> alsoWork;
    FirstAndLast news{timers, 50, [this] {
                          ++worked;
                          if (alsoWork) {
                              alsoWork();
                          }
                      }};
};

TEST_F(FirstAndLastTest, TheFirstIsWorkedOffAtOnce) {
    EXPECT_FALSE(Period().Enabled());
    news.Tell();
    EXPECT_EQ(worked, 1);
    EXPECT_TRUE(Period().Enabled());
    EXPECT_EQ(Period().interval, 50);
}

TEST_F(FirstAndLastTest, WhatComesWithinThePeriodCountsAsOneAtItsEnd) {
    for (int told = 0; told < 20000; ++told) {
        news.Tell();
    }
    EXPECT_EQ(worked, 1);
    Period().Fire();
    EXPECT_EQ(worked, 2);
    Period().Fire();
    EXPECT_EQ(worked, 2) << "nothing has come since";
}

TEST_F(FirstAndLastTest, TheNextPeriodBeginsWithWhatWasWorkedOffAtTheEndOfTheLast) {
    news.Tell();
    news.Tell();
    Period().Fire();
    news.Tell();
    EXPECT_EQ(worked, 2);
    Period().Fire();
    EXPECT_EQ(worked, 3);
}

TEST_F(FirstAndLastTest, AfterAQuietPeriodTheNextIsAFirstAgain) {
    news.Tell();
    Period().Fire();
    EXPECT_FALSE(Period().Enabled());
    news.Tell();
    EXPECT_EQ(worked, 2);
}

TEST_F(FirstAndLastTest, ThePeriodBeginsAnewBehindTheWork) {
    // A timer that has run out during a long work would leave no time for anything else.
    alsoWork = [this] { Period().Enabled(false); };
    news.Tell();
    EXPECT_TRUE(Period().Enabled());
}

TEST_F(FirstAndLastTest, NewsDuringTheWorkIsWorkedOffAtTheEndOfThePeriod) {
    alsoWork = [this] {
        if (worked == 1) {
            news.Tell();
        }
    };
    news.Tell();
    EXPECT_EQ(worked, 1);
    Period().Fire();
    EXPECT_EQ(worked, 2);
}

TEST_F(FirstAndLastTest, WorkThatFailsIsRaisedAndTheNextNewsIsWorkedOffAllTheSame) {
    alsoWork = [] { throw std::runtime_error("the work cannot be done"); };
    EXPECT_THROW(news.Tell(), std::runtime_error);
    EXPECT_NO_THROW(news.Tell());
    EXPECT_THROW(Period().Fire(), std::runtime_error);
    EXPECT_NO_THROW(Period().Fire());
    alsoWork = {};
    news.Tell();
    EXPECT_EQ(worked, 3);
}

}  // namespace

}  // namespace travo::test
