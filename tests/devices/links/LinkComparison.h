// The same bytes through a real link and through its plain reference.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace travo::test {

// What came out on either side, in its order.
struct LinkComparison {
    std::vector<std::string> link;
    std::vector<std::string> reference;
};

// What arrives at a link, cut into pieces by three bytes that stand for no text here: FE ends a piece
// that comes with the port's event of its wire, FD one that comes inside the next thing that the link
// lets out, as a box or a served loop lets it in, and FC one that comes with another event. The last
// piece needs no mark.
inline constexpr char PieceMark = '\xFE';
inline constexpr char InnerPieceMark = '\xFD';
inline constexpr char OtherEventMark = '\xFC';

LinkComparison CompareMirror(std::string_view script);
LinkComparison CompareMotor(std::string_view script);
LinkComparison CompareGauge(std::string_view script);

}  // namespace travo::test
