// Arguments of a command line, read strictly, and numbers as they stand in answers. What the table of
// commands lets through is read without a failure; anything else raises travo::NumberFailure or
// travo::BoundsFailure.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "core/ground/Positions.h"
#include "workbench/protocol/Words.h"
#include "workbench/world/Geometry.h"

namespace workbench {

// The word at an index; NumberFailure where there are fewer.
std::string_view WordAt(const Words& words, std::size_t index);
// A switch: "on" or "1", "off" or "0".
bool SwitchAt(const Words& words, std::size_t index);
std::int32_t IntegerAt(const Words& words, std::size_t index);
std::int64_t SerialAt(const Words& words, std::size_t index);
// A finite decimal number.
double RealAt(const Words& words, std::size_t index);
// A needle, 1 to 4 on the line, as an index 0 to 3.
std::int32_t NeedleAt(const Words& words, std::size_t index);
// Three integers, or real numbers, in a row.
travo::PositionXYZ TripleAt(const Words& words, std::size_t index);
Vector VectorAt(const Words& words, std::size_t index);
// How many lines or commands are concerned: 1 where there is no such word, -1 for "always".
std::int32_t TimesAt(const Words& words, std::size_t index);

// Numbers as they stand in answers: those of a position with a blank before each; what is no count,
// with three digits after the point.
std::string Text(const travo::PositionXYZ& counts);
std::string Text(const Vector& place);
std::string Text(const PlanPoint& place);
std::string Text(double value);
// 1 or 0, with a blank before it.
std::string Flag(bool on);
// Words with a blank before each.
std::string Blanked(std::initializer_list<std::string> words);

}  // namespace workbench
