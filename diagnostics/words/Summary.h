// The sentence above all: whether anything needs the operator.
#pragma once

#include <QString>

#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

struct Summary {
    Mark mark = Mark::Works;  // NeedsYou, Waiting or Works
    QString sentence;
    QString second;
};

// Link cards and needles are counted.
Summary SummaryOf(const Page& page);

}  // namespace travo::diagnostics
