// What has been received from the focus motor, cut into lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace travo {

// Lines end with one CR. Pure text in, lines out, in time in proportion to what is received.
class MotorText {
public:
    void Append(std::string_view received) { text_ += received; }

    // The next line without its end, which is then gone; none when all that is left has no end yet. It
    // holds until the next call of NextLine or Append.
    std::optional<std::string_view> NextLine();

    // Once NextLine has given none: nothing is left.
    bool Empty() const { return text_.empty(); }

private:
    std::string text_;
    std::size_t place_ = 0;   // first character that is in no line yet
    std::size_t search_ = 0;  // no CR stands between place_ and here
};

}  // namespace travo
