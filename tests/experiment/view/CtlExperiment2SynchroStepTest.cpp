// The steps of the synchronised mode, to the count.
#include <gmock/gmock.h>

#include "core/ground/Arithmetic.h"
#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Target = std::array<std::int32_t, 3>;

TEST(CtlExperiment2SynchroStepTest, OutsideTheModeNothingHappens) {
    CtlExperiment2Rig bench;
    bench.Step({60, 40, 350});
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    bench.EnterView();
    bench.Forget();
    bench.Step({70, 40, 350});
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2SynchroStepTest, TheNeedleFollowsTheViewAndEachMovementIsPassedOnOnce) {
    CtlExperiment2Rig bench;
    bench.SetNeedle(0, {100, 200, 500});
    bench.EnterSynchro();
    // From (10, -5, 300): 50 in X, 45 in Y, 50 in Z.
    bench.Step({60, 40, 350});
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{11850, 11975, 12550}));
    bench.Step({60, 40, 350});
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.State(), "Synchro 1");
}

TEST(CtlExperiment2SynchroStepTest, EachTicksDifferenceIsRoundedByItselfAndNoRemainderIsCarried) {
    // Raw differences of one tick and the displacement that they give.
    struct Row {
        std::int32_t x;
        std::int32_t y;
        std::int32_t z;
        PositionXYZ displacement;
    };
    const std::vector<Row> rows{
        {1, 0, 0, {-4, 0, 0}},      {1, 0, 0, {-4, 0, 0}},        {2, 0, 0, {-10, 0, 0}},
        {-1, 0, 0, {6, 0, 0}},      {-2, 0, 0, {10, 0, 0}},       {0, 1, 0, {0, -5, 0}},
        {0, -1, 0, {0, 6, 0}},      {0, 2, 0, {0, -10, 0}},       {0, 0, 7, {0, 0, 7}},
        {3, 4, -7, {-14, -20, -7}}, {60, 40, 5, {-300, -200, 5}}, {0, 0, -1000, {0, 0, -1000}},
    };
    CtlExperiment2Rig bench;
    PositionXYZ view{10, -5, 5000};
    PositionXYZ needle{0, 0, 5000};
    bench.View(view);
    bench.EnterSynchro();
    for (const Row& row : rows) {
        bench.SetNeedle(0, needle);
        view = {view[0] + row.x, view[1] + row.y, view[2] + row.z};
        bench.rig.driver.moves.clear();
        bench.Step(view);
        for (std::size_t axis = 0; axis < needle.size(); ++axis) {
            needle[axis] += row.displacement[axis];
        }
        EXPECT_THAT(bench.rig.driver.moves,
                    ElementsAre(Target{needle[0] + 12000, needle[1] + 12000, needle[2] + 12000}))
            << row.x << " " << row.y << " " << row.z;
    }
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2SynchroStepTest, WithNoChangeOfTheViewTheStepIsStillMadeOnEachTick) {
    CtlExperiment2Rig bench;
    bench.EnterSynchro();
    bench.Step(CtlExperiment2Rig::TheView);
    bench.Step(CtlExperiment2Rig::TheView);
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
    EXPECT_EQ(bench.State(), "Synchro 1");
    // It is seen at what a step refuses: no gauge. The change of the view is (0, 0, 0) here as well.
    CtlExperiment2Rig blind;
    blind.View({10, -5, NoPositionValue});
    blind.EnterSynchro();
    blind.Step({10, -5, NoPositionValue});
    EXPECT_EQ(blind.rig.boxes.Texts(), QStringList(QStringLiteral("Prease connect magnescale")));
    EXPECT_EQ(blind.State(), "Needle 1");
}

TEST(CtlExperiment2SynchroStepTest, TheViewAtTheEntryIsWhereTheFirstStepCountsFrom) {
    CtlExperiment2Rig bench;
    bench.SetNeedle(0, {0, 0, 500});
    bench.EnterSynchro();
    bench.Step({60, -5, 300});
    bench.Click(bench.Synchro());
    bench.View({160, -5, 300});
    bench.rig.driver.moves.clear();
    bench.SetNeedle(0, {0, 0, 500});
    bench.EnterSynchro();
    bench.Step({162, -5, 300});
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{11990, 12000, 12500}));
}

TEST(CtlExperiment2SynchroStepTest, ARefusedStepLeavesTheMode) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterSynchro();
    bench.Step({10, -5, -701});
    EXPECT_EQ(bench.rig.boxes.Texts(),
              QStringList(QStringLiteral("Amount of the movement once is too large")));
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_TRUE(bench.Move().Enabled());
    EXPECT_EQ(bench.EnabledCells(), "A");
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2SynchroStepTest, ADifferenceBeyond32BitsReachesTheCallerAndTheModeStays) {
    CtlExperiment2Rig bench;
    bench.View({10, -5, std::numeric_limits<std::int32_t>::min()});
    bench.EnterSynchro();
    EXPECT_THROW(bench.Step({10, -5, 1}), OverflowFailure);
    EXPECT_EQ(bench.State(), "Synchro 1");
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2SynchroStepTest, TheNeedleSelectedAtTheHardwareFollows) {
    CtlExperiment2Rig bench;
    bench.SetNeedle(1, {40, 0, 500});
    bench.OnlyCalibrated(1);
    bench.HardwareHas(1);
    bench.Tick();
    bench.EnterSynchro();
    bench.Step({12, -5, 300});
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{12030, 12000, 12500}));
}

TEST(CtlExperiment2SynchroStepTest, AlongAnAxisThatIsNotKnownThereIsNoStepAndTheOtherAxesFollow) {
    struct Row {
        const char* what;
        PositionXYZ before;
        PositionXYZ now;
        Target moved;  // from the needle at (0, 0, 500)
    };
    constexpr std::int32_t None = NoPositionValue;
    const std::vector<Row> rows{
        {"X comes", {None, -5, 300}, {10, -5, 310}, {12000, 12000, 12510}},
        {"Y comes", {10, None, 300}, {12, -5, 300}, {11990, 12000, 12500}},
        {"X and Y come", {None, None, 300}, {2000, 150, 310}, {12000, 12000, 12510}},
        {"Z comes", {10, -5, None}, {12, -5, 300}, {11990, 12000, 12500}},
        {"X goes", {10, -5, 300}, {None, -5, 310}, {12000, 12000, 12510}},
        {"Y goes", {10, -5, 300}, {12, None, 300}, {11990, 12000, 12500}},
        {"X stays away", {None, -5, 300}, {None, -5, 310}, {12000, 12000, 12510}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        CtlExperiment2Rig bench;
        bench.SetNeedle(0, {0, 0, 500});
        bench.View(row.before);
        bench.EnterSynchro();
        bench.Step(row.now);
        EXPECT_THAT(bench.rig.driver.moves, ElementsAre(row.moved));
        EXPECT_EQ(bench.State(), "Synchro 1");
        EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
    }
}

TEST(CtlExperiment2SynchroStepTest, TheFirstLineOfAMirrorThatHadNotSpokenMovesNothingAndTheNextIsFollowed) {
    CtlExperiment2Rig bench;
    bench.SetNeedle(0, {0, 0, 500});
    bench.View({NoPositionValue, NoPositionValue, 300});
    bench.EnterSynchro();
    bench.Step({2000, -150, 300});
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
    bench.Step({2002, -150, 300});
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{11990, 12000, 12500}));
}

TEST(CtlExperiment2SynchroStepTest, AGaugeThatIsLostIsToldAsBeforeAndEndsTheMode) {
    CtlExperiment2Rig bench;
    bench.EnterSynchro();
    bench.Step({12, -5, NoPositionValue});
    EXPECT_EQ(bench.rig.boxes.Texts(), QStringList(QStringLiteral("Prease connect magnescale")));
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

}  // namespace
}  // namespace travo::test
