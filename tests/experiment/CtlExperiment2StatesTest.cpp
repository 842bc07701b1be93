// The panel's states: every state with everything that can happen in it, the forbidden ones too.
#include <functional>

#include "experiment/CtlExperiment2Bench.h"

namespace travo::test {
namespace {

using Happening = std::function<void(ExperimentBench&)>;

struct From {
    std::string name;
    Happening enter;
};

struct Row {
    std::string what;
    Happening happens;
    // The state afterwards, by the state before: Needle 1, View, ViewOnly, Synchro 1.
    std::array<std::string, 4> to;
};

void Total(ExperimentBench& bench, std::int16_t highest) {
    bench.Connected(highest < 0 ? std::int16_t{-1} : highest);
    bench.panel.TotalManipulatorNumber(highest);
}

// A cell that is set, pressed in and enabled; nothing else changes.
void WithACell(ExperimentBench& bench) {
    bench.SetCell(0);
    bench.Click(bench.Move());
}

const std::vector<From>& States() {
    static const std::vector<From> states{
        {"Needle 1", [](ExperimentBench&) {}},
        {"View", [](ExperimentBench& bench) { bench.EnterView(); }},
        {"ViewOnly", [](ExperimentBench& bench) { bench.EnterViewOnly(); }},
        {"Synchro 1", [](ExperimentBench& bench) { bench.EnterSynchro(); }},
    };
    return states;
}

const std::array<std::string, 4> Unchanged{"Needle 1", "View", "ViewOnly", "Synchro 1"};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows{
        {"the last needle goes",
         [](ExperimentBench& b) { Total(b, -1); },
         {"ViewOnly", "ViewOnly", "ViewOnly", "ViewOnly"}},
        {"a number of needles below none",
         [](ExperimentBench& b) { Total(b, -2); },
         {"ViewOnly", "ViewOnly", "ViewOnly", "ViewOnly"}},
        {"one needle comes",
         [](ExperimentBench& b) { Total(b, 0); },
         {"Needle 1", "Needle 1", "Needle 1", "Needle 1"}},
        {"four needles come",
         [](ExperimentBench& b) { Total(b, 3); },
         {"Needle 1", "Needle 1", "Needle 1", "Needle 1"}},
        {"the same needle button",
         [](ExperimentBench& b) { b.Click(b.Needle(0)); },
         {"Needle 1", "Needle 1", "ViewOnly", "Needle 1"}},
        {"another needle button",
         [](ExperimentBench& b) { b.Click(b.Needle(2)); },
         {"Needle 3", "Needle 3", "ViewOnly", "Needle 3"}},
        {"another needle at the hardware",
         [](ExperimentBench& b) { b.panel.ManipulatorChange(1); },
         {"Needle 2", "Needle 2", "Needle 2", "Synchro 2"}},
        {"the view button",
         [](ExperimentBench& b) { b.Click(b.ViewMoves()); },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"move to a cell", WithACell, {"View", "View", "ViewOnly", "Synchro 1"}},
        {"move to a cell that is not set", [](ExperimentBench& b) { b.Click(b.Move()); }, Unchanged},
        {"move of a needle that is not calibrated",
         [](ExperimentBench& b) {
             b.OnlyCalibrated(-1);
             WithACell(b);
         },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"the synchronised button",
         [](ExperimentBench& b) { b.Click(b.Synchro()); },
         {"Synchro 1", "View", "ViewOnly", "Needle 1"}},
        {"the synchronised button, enabled all the same",
         [](ExperimentBench& b) {
             b.Synchro().Enabled(true);
             b.Click(b.Synchro());
         },
         {"Synchro 1", "Synchro 1", "Synchro 1", "Needle 1"}},
        {"a refused step",
         [](ExperimentBench& b) {
             b.Step({10, -5, NoPositionValue});
         },
         {"Needle 1", "View", "ViewOnly", "Needle 1"}},
        {"a step",
         [](ExperimentBench& b) {
             b.Step({11, -5, 300});
         },
         Unchanged},
        {"the panel is hidden",
         [](ExperimentBench& b) { b.panel.Hidden(); },
         {"Needle 1", "View", "ViewOnly", "Needle 1"}},
        {"another panel for a while",
         [](ExperimentBench& b) {
             b.panel.Hidden();
             b.panel.Shown();
         },
         {"Needle 1", "View", "ViewOnly", "Needle 1"}},
        {"0.35x", [](ExperimentBench& b) { b.Magnification(1); }, Unchanged},
        {"4x", [](ExperimentBench& b) { b.Magnification(3); }, Unchanged},
        {"the mirror motors go off", [](ExperimentBench& b) { b.panel.checkMotor(false); }, Unchanged},
        {"the mirror motors go on", [](ExperimentBench& b) { b.panel.checkMotor(true); }, Unchanged},
        {"a cell",
         [](ExperimentBench& b) {
             b.SetCell(1);
             b.Click(b.Cell(1));
         },
         Unchanged},
        {"the direct button", [](ExperimentBench& b) { b.Click(b.Direct()); }, Unchanged},
        {"the objective escape", [](ExperimentBench& b) { b.Click(b.Escape(0)); }, Unchanged},
        {"the needle escape", [](ExperimentBench& b) { b.Click(b.Escape(1)); }, Unchanged},
        {"the arrow runs", [](ExperimentBench& b) { b.Timer1.Fire(); }, Unchanged},
        {"the mode is left by code",
         [](ExperimentBench& b) { b.panel.SynchroFalse(); },
         {"Needle 1", "View", "ViewOnly", "Needle 1"}},
    };
    return rows;
}

// What holds in every state.
void ExpectConsistent(const ExperimentBench& bench) {
    EXPECT_EQ(bench.MoveLamp().size(), 1U);
    EXPECT_EQ(bench.TargetLamp().size(), 1U);
    const bool synchro = bench.State().starts_with("Synchro");
    EXPECT_EQ(bench.Timer1.enabled, !bench.Synchro().Value());
    if (synchro) {
        EXPECT_FALSE(bench.Move().Enabled());
        EXPECT_EQ(bench.TargetLamp(), "8");
    } else if (bench.State().starts_with("Needle")) {
        EXPECT_EQ(bench.TargetLamp(), std::to_string(bench.panel.intCellNo()));
        EXPECT_FALSE(bench.ViewMoves().Value());
    }
}

TEST(CtlExperiment2States, EveryStateWithEverythingThatCanHappenInIt) {
    for (const Row& row : Rows()) {
        for (std::size_t state = 0; state < States().size(); ++state) {
            SCOPED_TRACE(States()[state].name + ": " + row.what);
            ExperimentBench bench;
            States()[state].enter(bench);
            ASSERT_EQ(bench.State(), States()[state].name);
            row.happens(bench);
            EXPECT_EQ(bench.State(), row.to[state]);
            ExpectConsistent(bench);
        }
    }
}

// What a press of move does in a state: needle moves, mirror moves, the state afterwards.
TEST(CtlExperiment2States, WhatTheMoveButtonDoesInEachState) {
    struct Move {
        std::size_t needleMoves;
        long mirrorMoves;
        std::string to;
    };
    const std::array<Move, 4> moves{
        {{1, 0, "View"}, {0, 1, "View"}, {0, 1, "ViewOnly"}, {0, 0, "Synchro 1"}}};
    for (std::size_t state = 0; state < States().size(); ++state) {
        SCOPED_TRACE(States()[state].name);
        ExperimentBench bench;
        States()[state].enter(bench);
        bench.Forget();
        WithACell(bench);
        const Journal journal = bench.Take();
        EXPECT_EQ(bench.rig.driver.moves.size(), moves[state].needleMoves);
        EXPECT_EQ(std::count(journal.begin(), journal.end(), "port 1 > cD2A500\r"), moves[state].mirrorMoves);
        EXPECT_EQ(bench.State(), moves[state].to);
    }
}

TEST(CtlExperiment2States, ANeedleAt035xKeepsItsStateWithTheButtonsOfThatMagnification) {
    ExperimentBench bench;
    bench.Magnification(1);
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    bench.Click(bench.Synchro());
    EXPECT_EQ(bench.State(), "Needle 1");
}

// The target runs beside the states: it is the same cell in all of them.
TEST(CtlExperiment2States, TheTargetIsKeptThroughTheStates) {
    for (const From& state : States()) {
        SCOPED_TRACE(state.name);
        ExperimentBench bench;
        bench.Store(6);
        bench.Click(bench.Cell(6));
        state.enter(bench);
        EXPECT_EQ(bench.panel.intCellNo(), 6);
        EXPECT_EQ(bench.PressedTargets(), "G");
    }
}

}  // namespace
}  // namespace travo::test
