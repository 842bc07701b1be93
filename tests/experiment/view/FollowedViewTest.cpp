// The view that a needle follows, without a panel.
#include "experiment/view/FollowedView.h"

#include <gtest/gtest.h>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

TEST(FollowedViewTest, HasGoneAsFarAsItsCountsSayInTheCommonFrame) {
    FollowedView view;
    view.Begin({10, -5, 300});
    // 50 counts of X and 45 of Y, 50 units of Z.
    EXPECT_EQ(view.GoneTo({60, 40, 350}), MirrorToCommon({50, 45, 50}));
    EXPECT_EQ(MirrorToCommon({50, 45, 50})[2], 50);
}

TEST(FollowedViewTest, IsPassedOnOnce) {
    FollowedView view;
    view.Begin({10, -5, 300});
    view.GoneTo({60, 40, 350});
    EXPECT_EQ(view.GoneTo({60, 40, 350}), (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(view.GoneTo({60, 40, 351}), (PositionXYZ{0, 0, 1}));
}

TEST(FollowedViewTest, RoundsEachChangeByItselfAndCarriesNoRemainder) {
    FollowedView view;
    view.Begin({0, 0, 0});
    // -5 + 0.5 is -4.5, to even -4; a count at a time five counts give -20, not -25.
    std::int32_t gone = 0;
    for (std::int32_t x = 1; x <= 5; ++x) {
        gone += view.GoneTo({x, 0, 0})[0];
    }
    EXPECT_EQ(gone, -20);
    view.Begin({0, 0, 0});
    EXPECT_EQ(view.GoneTo({5, 0, 0})[0], -24);
}

TEST(FollowedViewTest, AnAxisThatIsNotKnownHasNotMovedNeitherThenNorWhenItComesBack) {
    FollowedView view;
    view.Begin({10, NoPositionValue, 300});
    EXPECT_EQ(view.GoneTo({10, 40, NoPositionValue}), (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(view.GoneTo({10, 40, 700}), (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(view.GoneTo({10, 40, 705}), (PositionXYZ{0, 0, 5}));
}

TEST(FollowedViewTest, AChangeBeyond32BitsIsRaisedAndTheLastViewStays) {
    FollowedView view;
    view.Begin({0, 0, INT32_MAX});
    EXPECT_THROW(view.GoneTo({0, 0, -2}), OverflowFailure);
    EXPECT_EQ(view.GoneTo({0, 0, INT32_MAX - 3}), (PositionXYZ{0, 0, -3}));
}

}  // namespace
}  // namespace travo::test
