// What can be seen of the camera without starting it.
#pragma once

#include <QString>

#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

struct CameraFacts {
    bool stoodOpen = false;  // at the last closing of TRAVO
    bool hasBus = false;     // a session bus answers
    // The bus can start a camera program, or one lies in the program folder, which the launcher makes known.
    bool isKnown = false;
    bool isRunning = false;
};

// Nothing is asked of a bus unless the camera stood open. Blocks for at most 4 s, where a bus is silent.
CameraFacts ReadCamera(const QString& programFolder, bool stoodOpen);

LinkCard CameraCard(const CameraFacts& facts, bool isTravoRunning);

}  // namespace travo::diagnostics
