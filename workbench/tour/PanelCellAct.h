// The operator at the cell position panel.
#pragma once

#include <cstdint>

#include "core/ground/Positions.h"
#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Takes the view to mirror counts and Z units, by hand, and waits until the program knows it there.
void AimView(PanelPlay& play, const travo::PositionXYZ& place);
// Aims the view at a place and stores it as a cell, whose page is on show, on the cell position panel.
StoredCell StoreInRow(PanelPlay& play, std::int32_t cell, const travo::PositionXYZ& place);
constexpr std::int32_t CellRowsOfAPage = 4;

// Aims the view at eight places and stores them as A to H; puts them into the play. Raises ActFailure at
// the first finding that is not as it should be.
void PlayPanelCellAct(PanelPlay& play);

}  // namespace workbench::tour
