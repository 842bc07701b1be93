// How what Qt draws itself looks: message boxes and tooltips.
#pragma once

#include <QString>

namespace travo {

// The style sheet for the application: boxes in ground and ink with buttons like SET of at least 88 x 44,
// tooltips of 13 pixels on slate.
QString ApplicationStyleSheet();

}  // namespace travo
