// The form of a command line: which words follow one another.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/protocol/Argument.h"
#include "workbench/protocol/Words.h"

namespace workbench {

// Written as "fault mirror error <error> [<commands>|always]": words as they stand, arguments in angles, "|"
// between what may stand in one place, square brackets, which end with the form, around what may be left out.
// "<x:count>" is an argument x of the kind "count"; "<needle>" one of the kind of its own name. Where "on"
// and "off" stand in one place, "1" and "0" are taken as well.
class CommandForm {
public:
    // travo::Failure for a text that is no form.
    explicit CommandForm(std::string_view text);

    // As it is told: without the kinds.
    const std::string& Shown() const { return shown_; }
    // The arguments with their ranges: "needle 1 to 4; x, y, z 0 to 25000 counts". Empty where there are
    // none.
    std::string Ranges() const;

    // How a line compares with the form.
    struct Fit {
        bool whole = false;      // it is one of the form's lines
        std::size_t places = 0;  // so many words fit
        std::string wanted;      // what is expected behind them; empty where nothing is
        Words arguments;  // of a whole fit: the words where the form leaves a choice, a path as one word
    };
    Fit FitTo(const Words& words) const;

    // The first word, which is never an argument.
    std::string_view FirstWord() const { return places_.front().alternatives.front().text; }

private:
    struct Alternative {
        std::string text;                    // the word, or the argument's name
        const ArgumentKind* kind = nullptr;  // none for a word
    };
    struct Place {
        std::vector<Alternative> alternatives;
        bool mayBeLeftOut = false;  // with all that follows
        bool isSwitch = false;
    };

    static Alternative ReadAlternative(std::string_view text);
    static bool Accepts(const Place& place, std::string_view word);
    static bool IsFixed(const Place& place);
    static bool TakesRest(const Place& place);
    static std::string Wanted(const Place& place);

    std::string shown_;
    std::vector<Place> places_;
};

}  // namespace workbench
