// The whole page, as it can be read beside TRAVO.
#pragma once

#include <QString>

#include "diagnostics/readers/WireReader.h"
#include "diagnostics/words/Discretion.h"
#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

struct PagePlaces {
    WirePlaces wires;
    QString dataFolder;  // of the log
    QString version;     // of TRAVO
};

// Opens no port, loads no driver and writes nothing.
Page ReadPage(const PagePlaces& places, const Discretion& discretion);

}  // namespace travo::diagnostics
