// What has been received from the focus motor, cut into lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace travo {

// Lines end with one CR. Pure text in, lines out, in time in proportion to what is received. A line that is
// longer than MostLineBytes is dropped, also while its end has not come yet: what is kept is bounded.
class MotorText {
public:
    void Append(std::string_view received) { text_ += received; }

    // The next line without its end, which is then gone; none when all that is left has no end yet. It
    // holds until the next call of NextLine or Append.
    std::optional<std::string_view> NextLine();

    // Once NextLine has given none: nothing is left, and nothing that comes belongs to a dropped line.
    bool Empty() const { return text_.empty() && !dropping_; }

    // How many lines were dropped since the last call; one whose end has not come yet counts at once.
    std::size_t TakeDropped() { return std::exchange(dropped_, 0); }

private:
    void KeepRest();

    std::string text_;
    std::size_t place_ = 0;   // first character that is in no line yet
    std::size_t search_ = 0;  // no CR stands between place_ and here
    bool dropping_ = false;   // the line that has begun is too long
    std::size_t dropped_ = 0;
};

}  // namespace travo
