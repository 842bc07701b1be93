// What a plate does through the window.
#pragma once

#include "workbench/window/Ask.h"

namespace workbench {

struct Hand {
    // Says a line that the operator asked for: a refusal is shown, and everything is read anew.
    Ask say;
    // Asks the bench, and nothing is shown.
    Ask ask;
};

}  // namespace workbench
