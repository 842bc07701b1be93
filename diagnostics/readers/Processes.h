// What the system tells of running programs, without asking them anything.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace travo::diagnostics {

// Names of the programs that hold the file open, in the order of their process numbers, each once. Those of
// other users are not seen.
QStringList ProgramsHolding(const QString& path);

// Whether a program of that name runs as this user.
bool IsRunning(const QString& program);

// A TRAVO that works in a program folder.
struct RunningTravo {
    // Empty where the system does not tell.
    QDateTime startedAt;
};

// Known by the lock that it holds beside the settings file. The lock is looked up in the system's own table
// and never tried, so that a TRAVO that starts meanwhile is not refused.
std::optional<RunningTravo> TravoIn(const QString& programFolder);

}  // namespace travo::diagnostics
