// What every message box of the system offers: its buttons, its icon, what has the focus, where it opens.
#pragma once

#include <QString>

#include "platform/MessageBoxes.h"

namespace travo::test {

// The boxes are known by their texts. What differs from its row fails the test that has shown the box, and so
// does a text without a row.
void ExpectAsInTheTable(const QString& text, platform::BoxButtons buttons, platform::BoxIcon icon,
                        const platform::BoxOpening& opening);

}  // namespace travo::test
