// The needle that is lit is the needle that acts: clicks that were ahead of the position loop, choices that
// the driver refused or that never reached it, and needles that are not known.
#include <gmock/gmock.h>

#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Target = std::array<std::int32_t, 3>;

const QString MoveFailed = QStringLiteral("Needle move failed");
const QString EscapeFailed = QStringLiteral("Escape : Communication failed");

constexpr Target HomeCounts{11000, 14000, 15000};

void SetHome(CtlExperiment2Rig& bench, std::int32_t needle) {
    bench.rig.escape.ZEscapePosition(305);
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        bench.rig.escape.NeedleEscape(needle, axis,
                                      HomeCounts[static_cast<std::size_t>(axis)] - CtlExperiment2Rig::Centre);
    }
}

std::ptrdiff_t Reads(const Journal& journal) {
    return std::count(journal.begin(), journal.end(), "DriverGetPosition");
}

// What the operator sees and hears of an act that was refused, and that nothing was sent.
void ExpectRefused(const CtlExperiment2Rig& bench, const QString& text) {
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
    EXPECT_EQ(bench.rig.boxes.Texts(), QStringList{text});
    EXPECT_TRUE(bench.rig.Log().contains((" - " + text).toLatin1()));
}

// The ways in which a lamp can stand at a needle that the hardware has not.
struct Divergence {
    std::string name;
    std::function<void(CtlExperiment2Rig&)> come;
};

const std::vector<Divergence>& Divergences() {
    static const std::vector<Divergence> ways{
        {"a choice that the driver refuses",
         [](CtlExperiment2Rig& b) {
             b.rig.driver.failing = {"DriverSelect"};
             b.Click(b.Needle(1));
             b.rig.driver.failing = {};
         }},
        {"a choice of a needle that does not come",
         [](CtlExperiment2Rig& b) {
             b.rig.driver.count = 1;
             b.Click(b.Needle(1));
         }},
        {"a choice that the guard swallows",
         [](CtlExperiment2Rig& b) {
             const auto position = b.rig.driver.position;
             b.rig.driver.position[0][0] = 25001;
             b.Tick();
             b.rig.driver.position = position;
             b.Click(b.Needle(1));
         }},
    };
    return ways;
}

// Moves.

TEST(CtlExperiment2NeedleTest, InEveryOrdinaryStateNothingIsReadBeforeAnAct) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    SetHome(bench, 0);
    bench.Click(bench.Move());
    bench.Click(bench.Needle(0));
    bench.Click(bench.Escape(1));
    bench.EnterSynchro();
    bench.Click(bench.Needle(2));
    bench.Tick();
    bench.OnlyCalibrated(2);
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(Reads(bench.Take()), 0);
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2NeedleTest, ANeedleChosenAheadOfTheLoopIsReadOnceAndMovesByItsOwnMap) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.OnlyCalibrated(1);
    bench.Click(bench.Needle(1));
    bench.Forget();
    bench.Click(bench.Move());
    const Journal journal = bench.Take();
    EXPECT_EQ(Reads(journal), 1);
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.rig.driver.selected, 2);
    EXPECT_EQ(bench.State(), "View");
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2NeedleTest, WhereTheHardwareHasAnotherNeedleTheMoveIsRefusedAndTheLampGoesThere) {
    for (const Divergence& way : Divergences()) {
        SCOPED_TRACE(way.name);
        CtlExperiment2Rig bench;
        bench.Store(0);
        way.come(bench);
        ASSERT_EQ(bench.State(), "Needle 2");
        bench.Forget();
        bench.Click(bench.Move());
        ExpectRefused(bench, MoveFailed);
        EXPECT_EQ(bench.State(), "Needle 1");
        EXPECT_EQ(bench.PressedMoves(), "1");
        const Journal journal = bench.Take();
        EXPECT_EQ(journal.back(), bench.End) << "the camera's action ends";
        EXPECT_EQ(Reads(journal), 1);
        // The lamp holds now: the next press moves what is lit.
        bench.Click(bench.Move());
        EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    }
}

TEST(CtlExperiment2NeedleTest, TheLampHasGoneWhenTheRefusalIsOnShow) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    Divergences().front().come(bench);
    bench.rig.boxes.whileShown = [&] { EXPECT_EQ(bench.State(), "Needle 1"); };
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.boxes.shown.size(), 1U);
}

TEST(CtlExperiment2NeedleTest, ANeedleThatCannotBeReadIsNotMoved) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Needle(1));
    bench.rig.driver.position[1][0] = -1;
    bench.Forget();
    bench.Click(bench.Move());
    ExpectRefused(bench, MoveFailed);
    EXPECT_EQ(bench.State(), "Needle 1") << "the last one read";
}

TEST(CtlExperiment2NeedleTest, AChoiceTakenBackBeforeItWasReadIsLookedAtToo) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Needle(1));
    // Needle 1 is the one known, and so nobody is asked for it: the hardware keeps needle 2.
    bench.Click(bench.Needle(0));
    ASSERT_EQ(bench.rig.driver.selected, 2);
    bench.Forget();
    bench.Click(bench.Move());
    ExpectRefused(bench, MoveFailed);
    EXPECT_EQ(bench.State(), "Needle 2");
}

TEST(CtlExperiment2NeedleTest, MovesOfTheViewDoNotLook) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    Divergences().front().come(bench);
    bench.EnterView();
    bench.Forget();
    bench.Click(bench.Move());
    const Journal journal = bench.Take();
    EXPECT_EQ(Reads(journal), 0);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "port 1 > cD2A500\r"), 1);
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

// The retreat.

TEST(CtlExperiment2NeedleTest, TheObjectiveEscapeDoesNotLook) {
    CtlExperiment2Rig bench;
    SetHome(bench, 0);
    Divergences().front().come(bench);
    bench.Forget();
    bench.Click(bench.Escape(0));
    EXPECT_THAT(bench.Take(), ElementsAre("port 3 > RELMOVEZ500\r", "ControlONOFF 0"));
}

TEST(CtlExperiment2NeedleTest, TheHomeEscapeReadsAfterTheObjectivesWaitAndIsRefusedWhereTheNeedlesDiffer) {
    for (const Divergence& way : Divergences()) {
        SCOPED_TRACE(way.name);
        CtlExperiment2Rig bench;
        SetHome(bench, 0);
        SetHome(bench, 1);
        way.come(bench);
        bench.Forget();
        bench.rig.eventLoop.whileServed = [&] { EXPECT_EQ(Reads(bench.rig.journal), 0); };
        bench.Click(bench.Escape(1));
        ExpectRefused(bench, MoveFailed);
        EXPECT_EQ(bench.State(), "Needle 1");
        const Journal journal = bench.Take();
        EXPECT_EQ(journal.front(), "port 3 > RELMOVEZ500\r") << "the objective has gone";
        EXPECT_EQ(Reads(journal), 1);
    }
}

TEST(CtlExperiment2NeedleTest, ANeedleChosenAheadOfTheLoopGoesHomeByItsOwnMap) {
    CtlExperiment2Rig bench;
    SetHome(bench, 1);
    bench.OnlyCalibrated(1);
    bench.Click(bench.Needle(1));
    bench.Forget();
    bench.Click(bench.Escape(1));
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(HomeCounts));
    EXPECT_EQ(bench.State(), "Needle 2");
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2NeedleTest, ANeedleChosenDuringTheObjectivesWaitIsTheOneThatIsLookedAt) {
    CtlExperiment2Rig bench;
    SetHome(bench, 0);
    bench.rig.escape.ZEscapePosition(10000);
    bool pressed = false;
    bench.rig.eventLoop.whileServed = [&] {
        if (!std::exchange(pressed, true)) {
            bench.rig.driver.failing = {"DriverSelect"};
            bench.Click(bench.Needle(1));
            bench.Forget();
        }
    };
    bench.Click(bench.Escape(1));
    ExpectRefused(bench, MoveFailed);
    EXPECT_EQ(bench.State(), "Needle 1");
}

// The synchronised mode.

TEST(CtlExperiment2NeedleTest, TheSynchronisedModeDoesNotBeginAtAnotherNeedleAndSaysNothing) {
    for (const Divergence& way : Divergences()) {
        SCOPED_TRACE(way.name);
        CtlExperiment2Rig bench;
        way.come(bench);
        bench.Forget();
        bench.Click(bench.Synchro());
        EXPECT_EQ(bench.State(), "Needle 1");
        EXPECT_FALSE(bench.Synchro().Value());
        EXPECT_TRUE(bench.Move().Enabled());
        EXPECT_THAT(bench.Take(), ElementsAre("DriverGetPosition"));
        bench.Click(bench.Synchro());
        EXPECT_EQ(bench.State(), "Synchro 1") << "the lamp holds now";
    }
}

TEST(CtlExperiment2NeedleTest, TheSynchronisedModeBeginsAtANeedleThatWasChosenAheadOfTheLoop) {
    CtlExperiment2Rig bench;
    bench.Click(bench.Needle(2));
    bench.Forget();
    bench.Click(bench.Synchro());
    EXPECT_EQ(bench.State(), "Synchro 3");
    EXPECT_THAT(bench.Take(), ElementsAre("DriverGetPosition"));
}

// Between a reconnection and the next read no needle is known.

TEST(CtlExperiment2NeedleTest, AHomeEscapeWithNoNeedleKnownIsToldByItsOwnTextAndDoesNothingElse) {
    for (const std::int16_t unknown : std::initializer_list<std::int16_t>{-1, 4}) {
        CtlExperiment2Rig bench;
        SetHome(bench, 0);
        bench.rig.state.intManipulatorNumber = unknown;
        bench.Forget();
        bench.Click(bench.Escape(1));
        ExpectRefused(bench, EscapeFailed);
        EXPECT_THAT(bench.Take(), ElementsAre("box Escape : Communication failed"));
        EXPECT_EQ(bench.State(), "Needle 1");
    }
}

TEST(CtlExperiment2NeedleTest, ANeedleThatIsLostDuringTheObjectivesWaitIsToldByTheEscapesOwnText) {
    CtlExperiment2Rig bench;
    SetHome(bench, 0);
    bench.rig.eventLoop.whileServed = [&] { bench.rig.state.intManipulatorNumber = -1; };
    bench.Forget();
    bench.Click(bench.Escape(1));
    ExpectRefused(bench, EscapeFailed);
}

TEST(CtlExperiment2NeedleTest, AMoveWithNoNeedleKnownIsToldByItsOwnTextAndDoesNothingElse) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.rig.state.intManipulatorNumber = -1;
    bench.Forget();
    bench.Click(bench.Move());
    ExpectRefused(bench, MoveFailed);
    EXPECT_EQ(bench.Take(), Joined({bench.Start, {"box Needle move failed", bench.End}}));
    EXPECT_EQ(bench.State(), "Needle 1");
}

TEST(CtlExperiment2NeedleTest, TheSynchronisedModeWithNoNeedleKnownDoesNothing) {
    for (const bool fromView : {false, true}) {
        CtlExperiment2Rig bench;
        if (fromView) {
            bench.EnterView();
            bench.Synchro().Enabled(true);
        }
        const std::string before = bench.State();
        bench.rig.state.intManipulatorNumber = -1;
        bench.Forget();
        bench.Click(bench.Synchro());
        EXPECT_EQ(bench.State(), before);
        EXPECT_FALSE(bench.Synchro().Value());
        EXPECT_TRUE(bench.Move().Enabled());
        EXPECT_THAT(bench.Take(), IsEmpty());
    }
}

// What the operator presses while a needle travels.

TEST(CtlExperiment2NeedleTest, PressesMadeWhileANeedleTravelsAreDropped) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    SetHome(bench, 0);
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.eventLoop.standStills, 1);
    bench.Click(bench.Needle(0));
    bench.Click(bench.Escape(1));
    EXPECT_EQ(bench.rig.eventLoop.standStills, 2);
}

TEST(CtlExperiment2NeedleTest, PressesMadeDuringASynchronisedStepAreKept) {
    CtlExperiment2Rig bench;
    bench.EnterSynchro();
    bench.Step({60, 40, 350});
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.rig.eventLoop.standStills, 0);
}

}  // namespace
}  // namespace travo::test
