// Counts what a program allocates. Linking this replaces the operator that allocates, for the whole program:
// such a test is a program of its own.
#pragma once

namespace travo::test {

// Calls of operator new since the program began.
long Allocations();

}  // namespace travo::test
