// What the tour prints: one line for each act and finding.
#pragma once

#include <stdexcept>
#include <string>

namespace workbench::tour {

// An act has failed; the tour ends.
class ActFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A heading before the acts of one kind.
void PrintHeading(const std::string& text);
void PrintLine(const std::string& text);

// Raises ActFailure with the sentence unless the condition holds. Here, and not in the source, so that an
// analyser sees that what comes after it may rely on the condition.
inline void Require(bool holds, const std::string& sentence) {
    if (!holds) {
        throw ActFailure(sentence);
    }
}

// "(12.0, -3.4, 0.0)"
std::string PlaceText(double x, double y, double z);

}  // namespace workbench::tour
