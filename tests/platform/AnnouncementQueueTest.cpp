#include "platform/qt/AnnouncementQueue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace travo::test {

namespace {

using platform::qt::Announcement;
using platform::qt::AnnouncementQueue;

const QLatin1String PanelLeave("LivePanelLeave");
const QLatin1String Points("LiveCalibPoints");
const QLatin1String Magnification("LiveChangeMagnification");

Announcement Change(std::int16_t magnification) { return {Magnification, magnification}; }
Announcement Plain(QLatin1String operation) { return {operation, std::nullopt}; }

std::string Text(const std::optional<Announcement>& announcement) {
    if (!announcement) {
        return "none";
    }
    const std::string argument = announcement->argument ? " " + std::to_string(*announcement->argument) : "";
    return announcement->operation.data() + argument;
}

// What goes out from here on where each is answered.
std::vector<std::string> All(AnnouncementQueue& queue) {
    std::vector<std::string> all;
    queue.Answered();
    for (auto next = queue.Next(); next; next = queue.Next()) {
        all.push_back(Text(next));
        queue.Answered();
    }
    return all;
}

void Fill(AnnouncementQueue& queue, std::size_t count) {
    for (std::size_t index = 0; index < count; ++index) {
        ASSERT_TRUE(queue.Add(Plain(PanelLeave))) << index;
    }
}

TEST(AnnouncementQueueTest, OneIsInFlightAtATimeInTheirOrder) {
    AnnouncementQueue queue;
    EXPECT_EQ(Text(queue.Next()), "none");
    queue.Add(Plain(PanelLeave));
    queue.Add(Plain(Points));
    EXPECT_EQ(Text(queue.Next()), "LivePanelLeave");
    EXPECT_EQ(Text(queue.Next()), "none") << "the first has not been answered";
    queue.Answered();
    EXPECT_EQ(Text(queue.Next()), "LiveCalibPoints");
    queue.Answered();
    EXPECT_EQ(Text(queue.Next()), "none");
}

TEST(AnnouncementQueueTest, AWaitingMagnificationTakesTheNewValueAndKeepsItsPlace) {
    AnnouncementQueue queue;
    queue.Add(Plain(PanelLeave));
    queue.Next();
    queue.Add(Change(1));
    queue.Add(Plain(Points));
    queue.Add(Change(2));
    queue.Add(Change(3));
    EXPECT_EQ(All(queue), (std::vector<std::string>{"LiveChangeMagnification 3", "LiveCalibPoints"}));
}

TEST(AnnouncementQueueTest, AMagnificationThatHasGoneOutIsNotTakenBack) {
    AnnouncementQueue queue;
    queue.Add(Change(1));
    EXPECT_EQ(Text(queue.Next()), "LiveChangeMagnification 1");
    queue.Add(Change(2));
    EXPECT_EQ(All(queue), std::vector<std::string>{"LiveChangeMagnification 2"});
}

TEST(AnnouncementQueueTest, WhatBearsNoValueIsToldAsOftenAsItIsSaid) {
    AnnouncementQueue queue;
    Fill(queue, 3);
    EXPECT_EQ(All(queue).size(), 3U);
}

TEST(AnnouncementQueueTest, SixtyFourMayWaitBehindTheOneInFlightAndNoMore) {
    AnnouncementQueue queue;
    queue.Add(Plain(Points));
    queue.Next();
    Fill(queue, 64);
    EXPECT_FALSE(queue.Add(Plain(Points)));
    EXPECT_FALSE(queue.Add(Change(1)));
    EXPECT_EQ(All(queue), std::vector<std::string>(64, "LivePanelLeave"));
}

TEST(AnnouncementQueueTest, WithSixtyFourWaitingAMagnificationAmongThemStillTakesTheNewValue) {
    AnnouncementQueue queue;
    queue.Add(Change(1));
    Fill(queue, 63);
    EXPECT_TRUE(queue.Add(Change(2)));
    EXPECT_EQ(Text(queue.Next()), "LiveChangeMagnification 2");
}

TEST(AnnouncementQueueTest, ClearedItHasNothingInFlightAndNothingWaiting) {
    AnnouncementQueue queue;
    Fill(queue, 2);
    queue.Next();
    queue.Clear();
    EXPECT_EQ(Text(queue.Next()), "none");
    queue.Add(Plain(Points));
    EXPECT_EQ(Text(queue.Next()), "LiveCalibPoints");
}

}  // namespace

}  // namespace travo::test
