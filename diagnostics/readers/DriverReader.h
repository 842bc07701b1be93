// What can be seen of the needles' driver without loading it.
#pragma once

#include <QString>

#include "diagnostics/words/Discretion.h"
#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

struct DriverFacts {
    QString file;  // full path of where it has to lie
    bool isThere = false;
    QString loadFailure;    // why it cannot be loaded; empty
    QString missingSymbol;  // the first function that it lacks; empty
};

// What the library needs and nobody has is found by the system's own loader in a process of its own, which
// runs nothing of the library.
DriverFacts ReadDriver(const QString& programFolder);

LinkCard NeedlesCard(const DriverFacts& facts, bool isTravoRunning, const Discretion& discretion);

}  // namespace travo::diagnostics
