// What has been received on the mirror controller's wire, cut into lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace travo {

// Two kinds of lines share the wire: the controller's own end with CR LF, those of the Ergo unit for
// the focus motor with a lone CR. Pure text in, lines out. Receiving takes time in proportion to what
// is received, in pieces of any size: no character is searched twice for the same line end.
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

    // Once NextLine has given none: nothing is left.
    bool Empty() const { return text_.empty(); }

private:
    std::string_view Behind(std::size_t end) const;
    void DropRead();

    std::string text_;
    std::size_t place_ = 0;          // first character that is in no line yet
    std::size_t searchLineEnd_ = 0;  // no CR LF begins between place_ and here
    // No CR stands between place_ and here; nothing where the first one is known to end no motor line.
    std::optional<std::size_t> searchCarriageReturn_ = 0;
};

}  // namespace travo
