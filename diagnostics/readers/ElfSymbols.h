// The functions that a shared library offers, read from its file: nothing of it is run.
#pragma once

#include <QByteArray>
#include <optional>
#include <set>

namespace travo::diagnostics {

// The names that the library defines for others. Nothing where the bytes are no shared library for this kind
// of machine, or are damaged.
std::optional<std::set<QByteArray>> OfferedSymbols(const QByteArray& file);

}  // namespace travo::diagnostics
