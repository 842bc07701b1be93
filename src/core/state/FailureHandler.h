// The one form of a failure handler: log the text, show it, leave with what there is.
#pragma once

#include <QString>
#include <utility>

#include "core/state/clsDebugLog.h"
#include "platform/MessageBoxes.h"

namespace travo {

class FailureHandler {
public:
    FailureHandler(clsDebugLog& log, platform::MessageBoxes& boxes) : log_(log), boxes_(boxes) {}
    FailureHandler(const FailureHandler&) = delete;
    FailureHandler& operator=(const FailureHandler&) = delete;

    // Runs the body. What it raises ends here: the text is reported and the answer is false. Nothing
    // is rolled back. True when the body came to its end.
    template <typename Body>
    bool Handle(const QString& text, Body&& body) {
        try {
            std::forward<Body>(body)();
            return true;
        } catch (...) {
            Report(text);
            return false;
        }
    }

    // Writes the text to the debug log and shows the same text with an OK button and no icon. A log
    // that cannot be written does not keep the box from the operator; nothing is raised.
    void Report(const QString& text);

    // Shows a text with an OK button, without a log line.
    void Show(const QString& text);

private:
    clsDebugLog& log_;
    platform::MessageBoxes& boxes_;
};

}  // namespace travo
