// What only a move shows. Nothing else of the check sets anything in motion.
#pragma once

#include "drivers/check/StandingChecks.h"

namespace check {

// Moves each needle by at most so many counts on each axis, into the range, and back to where it stood. Reach
// is 1 to 25000.
void CheckMoves(const Standing& standing, std::int32_t reach, Session& session, Report& report);

}  // namespace check
