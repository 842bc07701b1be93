#include "needle/clsNeedleSynchro.h"

#include "NeedleRig.h"

namespace travo::test {
namespace {

class clsNeedleSynchroTest : public NeedleRig {
protected:
    clsNeedleSynchroTest() { Calibrate(0, StraightNeedle, {10000, 12000, 5000}, {0, 0, 0}); }

    // Needle 0 from its place in the common frame, on a change of the view.
    bool Move(const PositionXYZ& change) {
        return synchro.NeedleSynchroMove(0, needle, view, change, static_cast<std::int16_t>(0));
    }

    const QString failed = QStringLiteral("Error: Synchronization faild");
    PositionXYZ needle{100, 200, 2000};
    PositionXYZ view{10, 20, 3000};
    clsNeedleSynchro synchro{needles, objective, failures};
};

TEST_F(clsNeedleSynchroTest, TheNeedleFollowsByTheSameAmount) {
    EXPECT_TRUE(Move({50, -60, 70}));
    EXPECT_EQ(driver.moves, (Moves{{10150, 12140, 7070}}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleSynchroTest, AChangeOfNothingMakesNoCallAndGivesTrue) {
    driver.failing.insert("DriverMoveTo");
    needle = {Largest, Largest, Largest};  // a call would overflow
    EXPECT_TRUE(Move({0, 0, 0}));
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleSynchroTest, AChangeOfOneAxisAloneIsFollowed) {
    EXPECT_TRUE(Move({1, 0, 0}));
    EXPECT_TRUE(Move({0, 1, 0}));
    EXPECT_TRUE(Move({0, 0, 1}));
    EXPECT_EQ(driver.moves, (Moves{{10101, 12200, 7000}, {10100, 12201, 7000}, {10100, 12200, 7001}}));
}

TEST_F(clsNeedleSynchroTest, WithoutAGaugeReadingTheMoveIsRefused) {
    view[2] = -100000;
    EXPECT_FALSE(Move({50, 0, -5000}));
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Prease connect magnescale")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Prease connect magnescale")});
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleSynchroTest, AMissingReadingIsRefusedAlsoWhenNothingChanged) {
    view[2] = -100000;
    EXPECT_FALSE(Move({0, 0, 0}));
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(clsNeedleSynchroTest, ADownwardStepOf1001IsRefused) {
    EXPECT_FALSE(Move({0, 0, -1001}));
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Amount of the movement once is too large")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Amount of the movement once is too large")});
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleSynchroTest, ADownwardStepOf1000Passes) {
    EXPECT_TRUE(Move({0, 0, -1000}));
    EXPECT_EQ(driver.moves, (Moves{{10100, 12200, 6000}}));
}

TEST_F(clsNeedleSynchroTest, AnUpwardStepAndStepsOfXAndYAreNotLimited) {
    EXPECT_TRUE(Move({-8000, 9000, 12000}));
    EXPECT_EQ(driver.moves, (Moves{{2100, 21200, 19000}}));
}

TEST_F(clsNeedleSynchroTest, AStepWithXOnlyIsNotAffectedByTheZLimit) {
    needle[2] = -500;
    view[2] = 0;
    EXPECT_TRUE(Move({5, 0, 0}));
    EXPECT_EQ(driver.moves, (Moves{{10105, 12200, 4500}}));
}

TEST_F(clsNeedleSynchroTest, AnUpwardStepBelowTheStandOffIsNotAffected) {
    needle[2] = -500;
    view[2] = 0;
    EXPECT_TRUE(Move({0, 0, 10}));
    EXPECT_EQ(driver.moves, (Moves{{10100, 12200, 4510}}));
}

TEST_F(clsNeedleSynchroTest, ADownwardStepThatWouldEndBelowTheStandOffEndsAtIt) {
    needle[2] = 150;
    EXPECT_TRUE(Move({0, 0, -51}));
    EXPECT_TRUE(Move({0, 0, -50}));
    EXPECT_TRUE(Move({0, 0, -49}));
    EXPECT_EQ(driver.moves, (Moves{{10100, 12200, 5100}, {10100, 12200, 5100}, {10100, 12200, 5101}}));
}

TEST_F(clsNeedleSynchroTest, ADownwardStepWithTheViewBelowTheStandOffPutsTheNeedleAtIt) {
    view[2] = 99;
    EXPECT_TRUE(Move({0, 0, -1}));
    EXPECT_EQ(driver.moves, (Moves{{10100, 12200, 5100}}));
    view[2] = 100;
    EXPECT_TRUE(Move({0, 0, -1}));
    EXPECT_EQ(driver.moves.back(), (std::array<std::int32_t, 3>{10100, 12200, 6999}));
}

TEST_F(clsNeedleSynchroTest, TheLimitIsThePresentStandOff) {
    objective.lngOffset = 1990;
    EXPECT_TRUE(Move({0, 0, -100}));
    EXPECT_EQ(driver.moves, (Moves{{10100, 12200, 6990}}));
}

TEST_F(clsNeedleSynchroTest, TheXYStandOffIsNotApplied) {
    needles.lngXYOffset = 400;
    EXPECT_TRUE(Move({50, 0, 0}));
    EXPECT_EQ(driver.moves, (Moves{{10150, 12200, 7000}}));
}

TEST_F(clsNeedleSynchroTest, APredictedContactGivesTheGentlerTextAndFalse) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 2000});
    EXPECT_FALSE(synchro.NeedleSynchroMove(0, {1000, 0, 2000}, view, {1000, 0, 0}, 1));
    EXPECT_TRUE(OnlyPlainBox(
        QStringLiteral("There is a possibility the needles will come in contact while moving.")));
    EXPECT_TRUE(LogTexts().isEmpty());
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleSynchroTest, AnOverflowOfTheTargetIsReportedAsSynchronizationFaild) {
    needle[0] = Largest;
    EXPECT_FALSE(Move({1, 0, 0}));
    EXPECT_TRUE(OnlyPlainBox(failed));
    EXPECT_EQ(LogTexts(), QStringList{failed});
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleSynchroTest, AMoveThatFailsIsReportedByTheGateAlone) {
    EXPECT_FALSE(synchro.NeedleSynchroMove(4, needle, view, {1, 0, 0}, 0));
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Needle move failed")});
}

}  // namespace
}  // namespace travo::test
