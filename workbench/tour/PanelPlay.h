// What the parts of the panel act share, and what several of them do.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "core/ground/Positions.h"
#include "workbench/client/WorkbenchClient.h"
#include "workbench/tour/Hands.h"
#include "workbench/tour/Stage.h"

namespace workbench::tour {

// A cell as the operator has stored it.
struct StoredCell {
    travo::PositionXYZ raw{};        // mirror counts and gauge value
    WorkbenchClient::Place truth{};  // centre and focus of the true view at that moment
};

struct PanelPlay {
    Stage& stage;
    Hands hands;
    std::vector<StoredCell> cells;  // A to H
};

// Where needle 1 bars the way to needle 2, and where that one is to go then; needle 1 clear of it again, it
// can.
constexpr std::int32_t BarringCell = 6;
constexpr std::int32_t BarredCell = 7;

// Greatest distance between a target and the true tip, in common units.
constexpr double PanelLandingGoal = 3.0;

// "Needle 1" and "Cell A" for index 0.
QString NeedleButton(std::int32_t needle);
QString CellButton(std::int32_t cell);

// Presses a needle's button on the experiment panel and waits until the program knows it as selected.
void PressNeedle(PanelPlay& play, std::int32_t needle);
// Presses the view's button, so that the view is what moves.
void PressView(PanelPlay& play);
// Presses Move and requires that the boxes are those expected and that the view is what moves next.
void PressMove(PanelPlay& play);
// Waits until the chosen needle rests and the program knows it at the counts where it truly is.
void WaitUntilRead(PanelPlay& play, std::int32_t needle);
// Needle button, cell button, Move; returns when the needle rests and the program has read where.
void SendNeedleToCell(PanelPlay& play, std::int32_t needle, std::int32_t cell);
// The same with needle 2 and BarredCell while needle 1 stands at BarringCell: requires the refusal in its
// box, and that nothing moved.
void BeRefusedBehindNeedle1(PanelPlay& play);
// Takes a needle to its escape position, by its button.
void RetreatNeedle(PanelPlay& play, std::int32_t needle);
// Tells the program where the needles retreat to, which is where they stand, and the objective.
void StoreRetreats(PanelPlay& play, std::int32_t objective);

// Asks the mirror controller for an objective, index 1 to 3, and waits for its report.
void SetMagnification(PanelPlay& play, std::int16_t index);

// Distance of the true tip from a place, in common units.
double Miss(PanelPlay& play, std::int32_t needle, const WorkbenchClient::Place& place);

}  // namespace workbench::tour
