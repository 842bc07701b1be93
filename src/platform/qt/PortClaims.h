// Who has a serial port, without opening it.
#pragma once

#include <QString>
#include <QStringList>
#include <set>

namespace travo::platform::qt {

// The folders in which programs, Qt's serial ports among them, keep their lock files.
QStringList UsualLockFolders();

// A lock file of the device in one of the folders names another process, which lives. A file that also says
// the name of its program, as Qt's do, counts only for a process of that name: numbers are given out anew.
bool IsLockedByAnother(const QString& device, const QStringList& lockFolders);

// The terminals that some process has claimed for itself, as its open files tell: a claim makes the system
// refuse every further opening. Where a process may not be asked, what it holds open counts as claimed;
// what a process of another user holds open is not seen.
std::set<QString> ClaimedTerminals();

}  // namespace travo::platform::qt
