// An advisory lock on a file: held by one process at a time, and gone with it however it ends.
#pragma once

#include <QString>

namespace travo::platform {

enum class LockOutcome { Taken, HeldByAnother, Impossible };

// Takes the lock of an open file, at once or not at all. It ends when the last descriptor of that opening
// closes.
LockOutcome TryLock(int descriptor);

class FileLock {
public:
    FileLock() = default;
    ~FileLock() { Release(); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Makes the file where there is none; it stays for good, and nothing is ever read from it or written to
    // it. A folder in its place takes the lock as well; where neither stands there, or the file system takes
    // no locks, none can be had. Started programs do not inherit it.
    LockOutcome Take(const QString& path);
    // Only of a file that is there, which is left as it is.
    LockOutcome TakeOfPresent(const QString& path);
    void Release();

private:
    LockOutcome TakeOfOpened();

    int descriptor_ = -1;
};

}  // namespace travo::platform
