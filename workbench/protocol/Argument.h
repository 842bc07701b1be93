// What may stand for an argument of a command line, and within which range.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

// A kind of argument. The forms of the table name it, as in "<x:count>", where the argument's own name is not
// the kind's.
struct ArgumentKind {
    enum class Values {
        Whole,   // a decimal integer, an optional minus and digits
        Serial,  // the same, of 63 bits, from 0
        Real,    // a finite decimal number
        Choice,  // one of the words of "choices"
        Word,    // any word
        Path,    // any text up to the end of the line, blanks included
    };

    std::string_view name;
    Values values = Values::Word;
    double lowest = 0.0;  // of Whole and Real, both included
    double highest = 0.0;
    std::string_view unit;     // follows the range where it is told; may be empty
    std::string_view choices;  // of Choice, parted by "|"
};

// Whether the kind may be left without a name for its range: a word or a path, which is told by its name
// alone.
inline bool HasRange(const ArgumentKind& kind) {
    return kind.values != ArgumentKind::Values::Word && kind.values != ArgumentKind::Values::Path;
}

// travo::BoundsFailure for a name that no kind has.
const ArgumentKind& ArgumentKindNamed(std::string_view name);

// Whether the word is one of the kind's values.
bool Accepts(const ArgumentKind& kind, std::string_view word);

// The range as it is told: "1 to 4", "0 to 25000 counts", "mirror, gauge or motor"; empty for a kind without
// one.
std::string RangeText(const ArgumentKind& kind);

// Words parted by "|", as they are told: "x, y or z".
std::string ChoiceText(std::string_view choices);

}  // namespace workbench
