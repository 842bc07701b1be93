// Words of a command line, read strictly. What is not as asked raises travo::NumberFailure or
// travo::BoundsFailure with a sentence for the one who typed it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/ground/Positions.h"
#include "workbench/world/Geometry.h"

namespace workbench {

using Words = std::vector<std::string_view>;

// Split at blanks and tabs; a CR at the end counts as a blank.
Words SplitWords(std::string_view line);

// The word at an index; NumberFailure where there are fewer.
std::string_view WordAt(const Words& words, std::size_t index);
// NumberFailure unless there are so many words.
void ExpectWords(const Words& words, std::size_t least, std::size_t most);

// Whether there is the one word "forget"; false without a word, NumberFailure for anything else.
bool ForgetAsked(const Words& words);

// A switch: "on" or "1", "off" or "0".
bool SwitchAt(const Words& words, std::size_t index);
std::int32_t IntegerAt(const Words& words, std::size_t index);
// A finite decimal number within -limit to limit.
double RealAt(const Words& words, std::size_t index, double limit);
// A needle, 1 to 4 on the line, as an index 0 to 3.
std::int32_t NeedleAt(const Words& words, std::size_t index);
// Three integers in a row.
travo::PositionXYZ TripleAt(const Words& words, std::size_t index);

// Numbers as they stand in answers: those of a position with a blank before each; what is no count,
// with three digits after the point.
std::string Text(const travo::PositionXYZ& counts);
std::string Text(const Vector& place);
std::string Text(const PlanPoint& place);
std::string Text(double value);
// Words with a blank before each.
std::string Blanked(std::initializer_list<std::string> words);

}  // namespace workbench
