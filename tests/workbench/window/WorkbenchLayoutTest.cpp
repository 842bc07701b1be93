#include "workbench/window/WorkbenchLayout.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace workbench {

namespace {

struct Window {
    const char* name;
    QSize size;
    bool card;
};

const Window Large = {"large", {1280, 860}, true};
const Window LargeBare = {"large, card hidden", {1280, 860}, false};
const Window Little = {"small", {1024, 700}, true};
const Window LittleBare = {"small, card hidden", {1024, 700}, false};

std::vector<std::pair<std::string, QRect>> PlatesOf(const WorkbenchLayout& layout) {
    return {{"header", layout.header}, {"card", layout.card},         {"bar", layout.bar},
            {"plan", layout.plan},     {"heights", layout.heights},   {"line", layout.line},
            {"score", layout.score},   {"joystick", layout.joystick}, {"mirror", layout.mirror},
            {"focus", layout.focus},   {"tabs", layout.tabs},         {"traffic", layout.traffic},
            {"faults", layout.faults}};
}

void ExpectPlates(const Window& window, const std::vector<QRect>& expected) {
    const auto plates = PlatesOf(LayOut(window.size, window.card));
    ASSERT_EQ(plates.size(), expected.size());
    for (std::size_t plate = 0; plate < plates.size(); ++plate) {
        const QRect& found = plates[plate].second;
        EXPECT_EQ(found, expected[plate])
            << window.name << ", " << plates[plate].first << ": " << found.x() << ", " << found.y() << ", "
            << found.width() << ", " << found.height();
    }
}

}  // namespace

TEST(WorkbenchLayoutTest, TheFirstSizeHasEveryPlateWhereTheDesignHasIt) {
    ExpectPlates(Large, {{0, 0, 1280, 44},
                         {12, 52, 252, 544},
                         {272, 52, 636, 40},
                         {272, 92, 544, 424},
                         {816, 92, 92, 424},
                         {272, 516, 636, 28},
                         {272, 550, 636, 46},
                         {916, 52, 352, 252},
                         {916, 312, 352, 178},
                         {916, 498, 352, 98},
                         QRect(),
                         {12, 604, 617, 244},
                         {637, 604, 631, 244}});
}

TEST(WorkbenchLayoutTest, WithTheCardHiddenThePlanTakesItsPlace) {
    ExpectPlates(LargeBare, {{0, 0, 1280, 44},
                             QRect(),
                             {12, 52, 896, 40},
                             {12, 92, 804, 424},
                             {816, 92, 92, 424},
                             {12, 516, 896, 28},
                             {12, 550, 896, 46},
                             {916, 52, 352, 252},
                             {916, 312, 352, 178},
                             {916, 498, 352, 98},
                             QRect(),
                             {12, 604, 617, 244},
                             {637, 604, 631, 244}});
}

TEST(WorkbenchLayoutTest, TheLeastSizeHasTwoTabsInItsRightColumn) {
    ExpectPlates(Little, {{0, 0, 1024, 40},
                          {8, 46, 204, 430},
                          {218, 46, 440, 40},
                          {218, 86, 356, 310},
                          {574, 86, 84, 310},
                          {218, 396, 440, 28},
                          {218, 430, 440, 46},
                          {664, 80, 352, 292},
                          {664, 80, 352, 396},
                          {664, 378, 352, 98},
                          {664, 46, 352, 34},
                          {8, 482, 449, 210},
                          {463, 482, 553, 210}});
}

TEST(WorkbenchLayoutTest, TheLeastSizeWithTheCardHidden) {
    ExpectPlates(LittleBare, {{0, 0, 1024, 40},
                              QRect(),
                              {8, 46, 650, 40},
                              {8, 86, 566, 310},
                              {574, 86, 84, 310},
                              {8, 396, 650, 28},
                              {8, 430, 650, 46},
                              {664, 80, 352, 292},
                              {664, 80, 352, 396},
                              {664, 378, 352, 98},
                              {664, 46, 352, 34},
                              {8, 482, 449, 210},
                              {463, 482, 553, 210}});
}

TEST(WorkbenchLayoutTest, SmallIsUnder1200WideOr800High) {
    EXPECT_FALSE(LayOut({1200, 800}, true).small);
    EXPECT_TRUE(LayOut({1199, 800}, true).small);
    EXPECT_TRUE(LayOut({1200, 799}, true).small);
    EXPECT_EQ(LayOut({1200, 800}, true).chipWidth, 97);
    EXPECT_EQ(LayOut({1199, 800}, true).chipWidth, 84);
}

TEST(WorkbenchLayoutTest, TheRightColumnHasTabsWhereItsMiddleIsLowerThan530) {
    // Header 44, foot 244, two gaps of 8 and a margin of 12 are not the middle's.
    EXPECT_FALSE(LayOut({1280, 846}, true).HasTabs());
    EXPECT_TRUE(LayOut({1280, 845}, true).HasTabs());
}

TEST(WorkbenchLayoutTest, AllThatIsLeftGoesToThePlanAndTheTraffic) {
    const WorkbenchLayout first = LayOut({1280, 860}, true);
    const WorkbenchLayout larger = LayOut({1380, 910}, true);
    EXPECT_EQ(larger.plan.size(), first.plan.size() + QSize(100, 50));
    EXPECT_EQ(larger.traffic.width(), first.traffic.width() + 100);
    EXPECT_EQ(larger.faults.size(), first.faults.size());
    EXPECT_EQ(larger.heights.width(), first.heights.width());
    EXPECT_EQ(larger.mirror.height(), first.mirror.height() + 50);
}

TEST(WorkbenchLayoutTest, NoTwoPlatesOverlapAndNoneLeavesTheWindow) {
    for (const QSize& size : {QSize(1024, 700), QSize(1199, 845), QSize(1200, 800), QSize(1280, 860),
                              QSize(1600, 1000), QSize(2560, 1440)}) {
        for (const bool card : {true, false}) {
            const WorkbenchLayout layout = LayOut(size, card);
            const auto plates = PlatesOf(layout);
            for (std::size_t a = 0; a < plates.size(); ++a) {
                EXPECT_TRUE(plates[a].second.isNull() || QRect({0, 0}, size).contains(plates[a].second))
                    << plates[a].first;
                for (std::size_t b = a + 1; b < plates.size(); ++b) {
                    const bool shareATab =
                        layout.HasTabs() && (plates[a].first == "mirror" || plates[b].first == "mirror");
                    EXPECT_TRUE(shareATab || !plates[a].second.intersects(plates[b].second))
                        << plates[a].first << " and " << plates[b].first;
                }
            }
        }
    }
}

TEST(WorkbenchLayoutTest, ASizeBelowTheLeastCountsAsTheLeast) {
    EXPECT_EQ(LayOut({300, 200}, true).plan, LayOut(LeastWindowSize, true).plan);
    EXPECT_EQ(LayOut({1600, 200}, true).header.width(), 1600);
}

}  // namespace workbench
