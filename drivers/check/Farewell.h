// How a library leaves the process that it was loaded into.
#pragma once

#include "drivers/check/Session.h"

namespace check {

// Looks at what it has changed, unloads it, looks at what has stayed behind, and lets the process end.
void CheckFarewell(Trial& trial, Session& session, Report& report);

}  // namespace check
