// What has been received on the mirror controller's wire, cut into lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace travo {

// Two kinds of lines share the wire: the controller's own end with CR LF, those of the Ergo unit for
// the focus motor with a lone CR. Pure text in, lines out. Receiving takes time in proportion to what
// is received, in pieces of any size: no character is searched twice for the same line end. A line that is
// longer than MostLineBytes is dropped, also while its end has not come yet: what is kept is bounded.
class MirrorText {
public:
    struct Line {
        std::string_view text;  // without its end; holds until the next call of NextLine or Append
        bool forMotor = false;  // a line of the Ergo unit for the focus motor
    };

    void Append(std::string_view received) { text_ += received; }

    // The next line, which is then gone; none when all that is left has no line end yet. CR LF comes
    // first, wherever it stands: a motor line ahead of a whole line of the controller is part of it.
    // A lone CR ends a line only behind a text that begins with "RZ", "MZ", "RE", "WZ" or "ZE".
    std::optional<Line> NextLine();

    // Once NextLine has given none: nothing is left, and nothing that comes belongs to a dropped line.
    bool Empty() const { return text_.empty() && dropUpTo_ == End::None; }

    // How many lines were dropped since the last call; one whose end has not come yet counts at once.
    std::size_t TakeDropped() { return std::exchange(dropped_, 0); }

private:
    // Of a dropped line, while it has not come yet.
    enum class End { None, LineEnd, CarriageReturn };

    std::optional<Line> AnyLine();
    bool DropUpToEnd();
    void StartDropping();
    void GoOnAt(std::size_t place);
    std::size_t EndOfSearch() const;
    std::string_view Behind(std::size_t end) const;
    void DropRead();

    std::string text_;
    std::size_t place_ = 0;          // first character that is in no line yet
    std::size_t searchLineEnd_ = 0;  // no CR LF begins between place_ and here
    // No CR stands between place_ and here; nothing where the first one is known to end no motor line.
    std::optional<std::size_t> searchCarriageReturn_ = 0;
    End dropUpTo_ = End::None;
    std::size_t dropped_ = 0;
};

}  // namespace travo
