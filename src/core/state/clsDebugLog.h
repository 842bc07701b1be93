// The debug log: a small text of what went wrong in the present run.
#pragma once

#include <QString>

#include "platform/Clock.h"

namespace travo {

class clsDebugLog {
public:
    explicit clsDebugLog(const platform::Clock& clock) : clock_(clock) {}

    // Full path of the log. Empty until start-up has found the data folder; writing then fails.
    const QString& LogFilePath() const { return path_; }
    void LogFilePath(const QString& path) { path_ = path; }

    // Creates or empties the file and writes the date line, month-day-year. Raises Failure when the
    // file cannot be opened or written; only a plain file is a log.
    void WriteDate();

    // Appends one line: time of day, " - ", the text as it stands. Windows-1252, CR LF; characters
    // that the code page lacks become "?". Always false. Raises Failure when the file cannot be
    // opened or written.
    bool WriteString(const QString& strData);

private:
    const platform::Clock& clock_;
    QString path_;
};

}  // namespace travo
