// Values of the settings file that TRAVO does not take as they stand.
#pragma once

#include <QString>
#include <vector>

#include "core/state/clsIniEdit.h"

namespace travo::diagnostics {

struct OutOfRange {
    QString key;    // "Section, Key"
    QString stood;  // what stands in the file
    QString taken;  // what TRAVO takes instead

    bool operator==(const OutOfRange&) const = default;
};

// Ports, offsets, switches, open windows, window places and all values of the calibrations, in this order. A
// missing key is no fault.
std::vector<OutOfRange> ValuesOutOfRange(const clsIniEdit& settings);

}  // namespace travo::diagnostics
