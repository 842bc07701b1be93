// What whoever looks into a fault may want to know, and no operator has to be told.
#pragma once

#include <QString>

#include "platform/Clock.h"

namespace travo {

// A text of lines, each with its date and time, that goes on from run to run. It never grows beyond a bound:
// what is older goes to one file beside it, in place of what was there.
class DetailsLog {
public:
    static constexpr qint64 MostBytes = 1024 * 1024;

    explicit DetailsLog(const platform::Clock& clock) : clock_(clock) {}

    // Full path of the text. Empty until start-up has found the data folder; nothing is noted then.
    void Path(const QString& path) { path_ = path; }
    // Of the older part: "travo-details.txt" becomes "travo-details.last.txt".
    static QString OlderPath(const QString& path);

    // Appends one line: month-day-year, time of day, " - ", the text. Windows-1252, CR LF. Raises nothing:
    // what cannot be written is lost. Anything but a plain file in its place is left alone.
    void Note(const QString& text) noexcept;

private:
    void Append(const QString& text) const;

    const platform::Clock& clock_;
    QString path_;
};

}  // namespace travo
