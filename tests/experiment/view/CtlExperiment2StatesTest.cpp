// The panel's states: every state with everything that can happen in it, the forbidden ones too.
#include <functional>

#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using Happening = std::function<void(CtlExperiment2Rig&)>;

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

void Total(CtlExperiment2Rig& bench, std::int16_t highest) {
    bench.Connected(highest < 0 ? std::int16_t{-1} : highest);
    bench.panel.TotalManipulatorNumber(highest);
}

// A cell that is set, pressed in and enabled; nothing else changes.
void WithACell(CtlExperiment2Rig& bench) {
    bench.SetCell(0);
    bench.Click(bench.Move());
}

const std::vector<From>& States() {
    static const std::vector<From> states{
        {"Needle 1", [](CtlExperiment2Rig&) {}},
        {"View", [](CtlExperiment2Rig& bench) { bench.EnterView(); }},
        {"ViewOnly", [](CtlExperiment2Rig& bench) { bench.EnterViewOnly(); }},
        {"Synchro 1", [](CtlExperiment2Rig& bench) { bench.EnterSynchro(); }},
    };
    return states;
}

const std::array<std::string, 4> Unchanged{"Needle 1", "View", "ViewOnly", "Synchro 1"};

const std::array<std::string, 4> AllViewOnly{"ViewOnly", "ViewOnly", "ViewOnly", "ViewOnly"};
const std::array<std::string, 4> AllNeedle1{"Needle 1", "Needle 1", "Needle 1", "Needle 1"};
// Only the synchronised mode is left.
const std::array<std::string, 4> ModeLeft{"Needle 1", "View", "ViewOnly", "Needle 1"};

// Needles come and go: at the position loop.
const std::vector<Row>& NeedleRows() {
    static const std::vector<Row> rows{
        {"the last needle goes", [](CtlExperiment2Rig& b) { Total(b, -1); }, AllViewOnly},
        {"a number of needles below none", [](CtlExperiment2Rig& b) { Total(b, -2); }, AllViewOnly},
        {"more needles than there can be",
         [](CtlExperiment2Rig& b) {
             b.Connected(-1);
             b.panel.TotalManipulatorNumber(5);
         },
         AllViewOnly},
        {"one needle comes", [](CtlExperiment2Rig& b) { Total(b, 0); }, AllNeedle1},
        {"two needles come", [](CtlExperiment2Rig& b) { Total(b, 1); }, AllNeedle1},
        {"three needles come", [](CtlExperiment2Rig& b) { Total(b, 2); }, AllNeedle1},
        {"four needles come", [](CtlExperiment2Rig& b) { Total(b, 3); }, AllNeedle1},
        {"five needles come", [](CtlExperiment2Rig& b) { Total(b, 4); }, AllNeedle1},
        {"the same needle at the hardware",
         [](CtlExperiment2Rig& b) { b.panel.ManipulatorChange(0); },
         {"Needle 1", "Needle 1", "Needle 1", "Synchro 1"}},
        {"another needle at the hardware",
         [](CtlExperiment2Rig& b) { b.panel.ManipulatorChange(1); },
         {"Needle 2", "Needle 2", "Needle 2", "Synchro 2"}},
        {"the last needle at the hardware",
         [](CtlExperiment2Rig& b) { b.panel.ManipulatorChange(3); },
         {"Needle 4", "Needle 4", "Needle 4", "Synchro 4"}},
    };
    return rows;
}

// What moves, and where to: the operator's buttons.
const std::vector<Row>& ChoiceRows() {
    static const std::vector<Row> rows{
        {"the same needle button",
         [](CtlExperiment2Rig& b) { b.Click(b.Needle(0)); },
         {"Needle 1", "Needle 1", "ViewOnly", "Needle 1"}},
        {"another needle button",
         [](CtlExperiment2Rig& b) { b.Click(b.Needle(2)); },
         {"Needle 3", "Needle 3", "ViewOnly", "Needle 3"}},
        {"the button of a needle that the driver refuses",
         [](CtlExperiment2Rig& b) {
             b.rig.driver.failing = {"DriverSelect"};
             b.Click(b.Needle(2));
         },
         {"Needle 3", "Needle 3", "ViewOnly", "Needle 3"}},
        {"the view button",
         [](CtlExperiment2Rig& b) { b.Click(b.ViewMoves()); },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"the present view, where it is on show",
         [](CtlExperiment2Rig& b) {
             if (!b.PresentView().isHidden()) {
                 b.Click(b.PresentView());
             }
         },
         Unchanged},
        {"a cell",
         [](CtlExperiment2Rig& b) {
             b.SetCell(1);
             b.Click(b.Cell(1));
         },
         Unchanged},
        {"a cell in direct mode",
         [](CtlExperiment2Rig& b) {
             b.SetCell(1);
             if (b.Move().Enabled()) {
                 // Showing the panel in the mode would open it.
                 b.panel.Shown();
             }
             b.Click(b.Direct());
             b.Click(b.Cell(1));
         },
         Unchanged},
        {"the direct button", [](CtlExperiment2Rig& b) { b.Click(b.Direct()); }, Unchanged},
    };
    return rows;
}

const std::vector<Row>& MoveRows() {
    static const std::vector<Row> rows{
        {"move to a cell", WithACell, {"View", "View", "ViewOnly", "Synchro 1"}},
        {"move to a cell that is not set", [](CtlExperiment2Rig& b) { b.Click(b.Move()); }, Unchanged},
        {"move of a needle that is not calibrated",
         [](CtlExperiment2Rig& b) {
             b.OnlyCalibrated(-1);
             WithACell(b);
         },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"move that the driver fails",
         [](CtlExperiment2Rig& b) {
             b.rig.driver.failing = {"DriverMoveTo"};
             WithACell(b);
         },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"move while the hardware has another needle than the one last read",
         [](CtlExperiment2Rig& b) {
             b.HardwareHas(1);
             b.rig.state.intManipulatorNumber = 1;
             WithACell(b);
         },
         // The lamp goes to the needle that the hardware has.
         {"Needle 2", "View", "ViewOnly", "Synchro 1"}},
        {"move with no needle known",
         [](CtlExperiment2Rig& b) {
             b.rig.state.intManipulatorNumber = -1;
             WithACell(b);
         },
         {"Needle 1", "View", "ViewOnly", "Synchro 1"}},
        {"move at 0.35x",
         [](CtlExperiment2Rig& b) {
             b.Magnification(1);
             WithACell(b);
         },
         {"View", "View", "ViewOnly", "Synchro 1"}},
        {"the objective escape", [](CtlExperiment2Rig& b) { b.Click(b.Escape(0)); }, Unchanged},
        {"the needle escape", [](CtlExperiment2Rig& b) { b.Click(b.Escape(1)); }, Unchanged},
        {"the needle escape with no needle known",
         [](CtlExperiment2Rig& b) {
             b.rig.state.intManipulatorNumber = -1;
             b.Click(b.Escape(1));
         },
         Unchanged},
    };
    return rows;
}

const std::vector<Row>& SynchroRows() {
    static const std::vector<Row> rows{
        {"the synchronised button",
         [](CtlExperiment2Rig& b) { b.Click(b.Synchro()); },
         {"Synchro 1", "View", "ViewOnly", "Needle 1"}},
        {"the synchronised button, enabled all the same",
         [](CtlExperiment2Rig& b) {
             b.Synchro().Enabled(true);
             b.Click(b.Synchro());
         },
         {"Synchro 1", "Synchro 1", "Synchro 1", "Needle 1"}},
        {"the synchronised button with no needle known",
         [](CtlExperiment2Rig& b) {
             b.Synchro().Enabled(true);
             b.rig.state.intManipulatorNumber = -1;
             b.Click(b.Synchro());
         },
         ModeLeft},
        {"the synchronised button while the hardware has another needle than the one last read",
         [](CtlExperiment2Rig& b) {
             b.HardwareHas(1);
             b.rig.state.intManipulatorNumber = 1;
             b.Click(b.Synchro());
         },
         {"Needle 2", "View", "ViewOnly", "Needle 1"}},
        {"a step",
         [](CtlExperiment2Rig& b) {
             b.Step({11, -5, 300});
         },
         Unchanged},
        {"a step along an axis that is not known",
         [](CtlExperiment2Rig& b) {
             b.Step({NoPositionValue, -5, 300});
         },
         Unchanged},
        {"a step without the gauge",
         [](CtlExperiment2Rig& b) {
             b.Step({10, -5, NoPositionValue});
         },
         ModeLeft},
        {"a step too far down",
         [](CtlExperiment2Rig& b) {
             b.Step({10, -5, -701});
         },
         ModeLeft},
        {"the mode is left by code", [](CtlExperiment2Rig& b) { b.panel.SynchroFalse(); }, ModeLeft},
        {"the panel is hidden", [](CtlExperiment2Rig& b) { b.panel.Hidden(); }, ModeLeft},
        {"another panel for a while",
         [](CtlExperiment2Rig& b) {
             b.panel.Hidden();
             b.panel.Shown();
         },
         ModeLeft},
    };
    return rows;
}

// What the instruments tell.
const std::vector<Row>& InstrumentRows() {
    static const std::vector<Row> rows{
        {"no magnification is known", [](CtlExperiment2Rig& b) { b.Magnification(0); }, Unchanged},
        {"0.35x", [](CtlExperiment2Rig& b) { b.Magnification(1); }, Unchanged},
        {"2x", [](CtlExperiment2Rig& b) { b.Magnification(2); }, Unchanged},
        {"4x", [](CtlExperiment2Rig& b) { b.Magnification(3); }, Unchanged},
        {"0.35x and back",
         [](CtlExperiment2Rig& b) {
             b.Magnification(1);
             b.Magnification(2);
         },
         Unchanged},
        {"the mirror motors go off", [](CtlExperiment2Rig& b) { b.panel.checkMotor(false); }, Unchanged},
        {"the mirror motors go on", [](CtlExperiment2Rig& b) { b.panel.checkMotor(true); }, Unchanged},
        {"the motor's port is closed",
         [](CtlExperiment2Rig& b) {
             b.rig.communication.MotorPortClose();
             b.Magnification(2);
         },
         Unchanged},
        {"the arrow runs", [](CtlExperiment2Rig& b) { b.Timer1.Fire(); }, Unchanged},
    };
    return rows;
}

std::vector<Row> Rows() {
    std::vector<Row> all;
    for (const auto* const part :
         {&NeedleRows(), &ChoiceRows(), &MoveRows(), &SynchroRows(), &InstrumentRows()}) {
        all.insert(all.end(), part->begin(), part->end());
    }
    return all;
}

// What holds in every state, however it was come to.
void ExpectConsistent(const CtlExperiment2Rig& bench) {
    EXPECT_EQ(bench.MoveLamp().size(), 1U);
    EXPECT_EQ(bench.TargetLamp().size(), 1U);
    const bool synchro = bench.State().starts_with("Synchro");
    EXPECT_EQ(bench.Synchro().Value(), synchro);
    EXPECT_EQ(bench.Timer1.enabled, !synchro);
    EXPECT_EQ(bench.Move().Enabled(), !synchro);
    if (synchro) {
        EXPECT_EQ(bench.TargetLamp(), "8");
        EXPECT_EQ(bench.EnabledCells(), "");
        EXPECT_FALSE(bench.EnabledNeedles().empty() && bench.rig.state.intTotalManipulatorNumber >= 0);
        EXPECT_EQ(bench.Arrow(), "4");
    } else {
        EXPECT_EQ(bench.TargetLamp(), std::to_string(bench.panel.intCellNo()));
        EXPECT_EQ(bench.ViewMoves().Value(), !bench.State().starts_with("Needle"));
    }
}

TEST(CtlExperiment2StatesTest, EveryStateWithEverythingThatCanHappenInIt) {
    for (const Row& row : Rows()) {
        for (std::size_t state = 0; state < States().size(); ++state) {
            SCOPED_TRACE(States()[state].name + ": " + row.what);
            CtlExperiment2Rig bench;
            States()[state].enter(bench);
            ASSERT_EQ(bench.State(), States()[state].name);
            row.happens(bench);
            EXPECT_EQ(bench.State(), row.to[state]);
            ExpectConsistent(bench);
        }
    }
}

// What a press of move does in a state: needle moves, mirror moves, the state afterwards.
TEST(CtlExperiment2StatesTest, WhatTheMoveButtonDoesInEachState) {
    struct Move {
        std::size_t needleMoves;
        long mirrorMoves;
        std::string to;
    };
    const std::array<Move, 4> moves{
        {{1, 0, "View"}, {0, 1, "View"}, {0, 1, "ViewOnly"}, {0, 0, "Synchro 1"}}};
    for (std::size_t state = 0; state < States().size(); ++state) {
        SCOPED_TRACE(States()[state].name);
        CtlExperiment2Rig bench;
        States()[state].enter(bench);
        bench.Forget();
        WithACell(bench);
        const Journal journal = bench.Take();
        EXPECT_EQ(bench.rig.driver.moves.size(), moves[state].needleMoves);
        EXPECT_EQ(std::count(journal.begin(), journal.end(), "port 1 > cD2A500\r"), moves[state].mirrorMoves);
        EXPECT_EQ(bench.State(), moves[state].to);
    }
}

TEST(CtlExperiment2StatesTest, ANeedleAt035xKeepsItsStateWithTheButtonsOfThatMagnification) {
    CtlExperiment2Rig bench;
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
TEST(CtlExperiment2StatesTest, TheTargetIsKeptThroughTheStates) {
    for (const From& state : States()) {
        SCOPED_TRACE(state.name);
        CtlExperiment2Rig bench;
        bench.Store(6);
        bench.Click(bench.Cell(6));
        state.enter(bench);
        EXPECT_EQ(bench.panel.intCellNo(), 6);
        EXPECT_EQ(bench.PressedTargets(), "G");
    }
}

// Who is enabled in a state right after it was entered, and after it was entered from the synchronised mode.
TEST(CtlExperiment2StatesTest, WhatIsEnabledInEachStateFromWhereverItIsEntered) {
    struct Enabled {
        std::string needles;
        bool synchro;
        bool needleEscape;
        bool presentView;  // on show
        bool view;         // the view's button, the direct mode, the objective's escape
    };
    const std::array<Enabled, 4> enabled{{{"1234", true, true, true, true},
                                          {"1234", false, false, false, true},
                                          {"", false, false, false, true},
                                          {"1234", true, false, true, false}}};
    for (std::size_t state = 0; state < States().size(); ++state) {
        for (const bool fromSynchro : {false, true}) {
            SCOPED_TRACE(States()[state].name + (fromSynchro ? " from the synchronised mode" : ""));
            CtlExperiment2Rig bench;
            if (fromSynchro) {
                bench.EnterSynchro();
                // All but the loss of the needles and the mode itself are behind one of its ways out.
                if (state < 2) {
                    bench.Click(bench.Needle(0));
                } else if (state == 3) {
                    bench.Click(bench.Synchro());
                }
            }
            States()[state].enter(bench);
            ASSERT_EQ(bench.State(), States()[state].name);
            const Enabled& wanted = enabled[state];
            EXPECT_EQ(bench.EnabledNeedles(), wanted.needles);
            EXPECT_EQ(bench.Synchro().Enabled(), wanted.synchro);
            EXPECT_EQ(bench.Escape(1).Enabled(), wanted.needleEscape);
            EXPECT_EQ(!bench.PresentView().isHidden(), wanted.presentView);
            EXPECT_EQ(bench.ViewMoves().Enabled(), wanted.view);
            EXPECT_EQ(bench.Direct().Enabled(), wanted.view);
            EXPECT_EQ(bench.Escape(0).Enabled(), wanted.view);
            EXPECT_EQ(bench.Move().Enabled(), wanted.view);
        }
    }
}

}  // namespace
}  // namespace travo::test
