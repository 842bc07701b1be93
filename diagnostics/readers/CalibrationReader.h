// The calibrations as the settings file holds them.
#pragma once

#include <QDateTime>
#include <optional>
#include <vector>

#include "core/state/clsIniEdit.h"
#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

// One card for each of the four needles. `travoSince` is when the running TRAVO was started, nothing where
// none runs: a calibration that it loaded counts at once, one that it made only from its next start on.
std::vector<NeedleCard> CalibrationCards(const clsIniEdit& settings,
                                         const std::optional<QDateTime>& travoSince);

}  // namespace travo::diagnostics
