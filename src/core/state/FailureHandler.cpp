#include "core/state/FailureHandler.h"

namespace travo {

using platform::BoxButtons;
using platform::BoxIcon;

void FailureHandler::Report(const QString& text) {
    try {
        log_.WriteString(text);
    } catch (...) {
        // The operator must see the box all the more when the log is lost.
    }
    Show(text);
}

void FailureHandler::Show(const QString& text) { boxes_.Show(text, BoxButtons::OK, BoxIcon::None); }

}  // namespace travo
