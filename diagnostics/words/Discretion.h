// Takes names of users and hosts out of what comes from outside.
#pragma once

#include <QString>

namespace travo::diagnostics {

// What a report must not tell. Empty where it is not known.
struct Discretion {
    QString home;  // full path of the home folder, without a slash at its end
    QString user;
    QString host;

    // Of the user who runs this program and the machine that it runs on.
    static Discretion OfThisRun();

    // The home folder, alone or at the beginning of a path, becomes "~"; user and host, where they stand as
    // words of their own, become "USER" and "HOST".
    QString Cleaned(const QString& text) const;
};

}  // namespace travo::diagnostics
