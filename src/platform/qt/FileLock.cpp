#include "platform/qt/FileLock.h"

#include <QFile>
#include <utility>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace travo::platform {

#ifdef Q_OS_WIN

LockOutcome TryLock(int) { return LockOutcome::Impossible; }
LockOutcome FileLock::Take(const QString&) { return LockOutcome::Impossible; }
LockOutcome FileLock::TakeOfPresent(const QString&) { return LockOutcome::Impossible; }
LockOutcome FileLock::TakeOfOpened() { return LockOutcome::Impossible; }
void FileLock::Release() {}

#else

namespace {

// A pipe or a device in the file's place must neither be waited for nor be disturbed by being opened.
bool MayBeOpened(const char* path) {
    struct stat there {};
    return lstat(path, &there) != 0 || S_ISREG(there.st_mode) || S_ISDIR(there.st_mode);
}

constexpr int Ever = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

int Open(const char* path) {
    const int descriptor = open(path, O_RDWR | O_CREAT | Ever, 0644);
    // A folder, or another user's file: a lock needs no more than to read.
    return descriptor >= 0 ? descriptor : open(path, O_RDONLY | Ever);
}

// Another user of the same folder must be able to find the lock held.
void LetOthersRead(int descriptor) {
    struct stat there {};
    if (fstat(descriptor, &there) == 0 && S_ISREG(there.st_mode)) {
        [[maybe_unused]] const int changed = fchmod(descriptor, (there.st_mode & 07777) | 0444);
    }
}

}  // namespace

LockOutcome TryLock(int descriptor) {
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        return LockOutcome::Taken;
    }
    return errno == EWOULDBLOCK ? LockOutcome::HeldByAnother : LockOutcome::Impossible;
}

LockOutcome FileLock::Take(const QString& path) {
    Release();
    const QByteArray native = QFile::encodeName(path);
    descriptor_ = MayBeOpened(native.constData()) ? Open(native.constData()) : -1;
    LetOthersRead(descriptor_);
    return TakeOfOpened();
}

LockOutcome FileLock::TakeOfPresent(const QString& path) {
    Release();
    const QByteArray native = QFile::encodeName(path);
    descriptor_ = MayBeOpened(native.constData()) ? open(native.constData(), O_RDONLY | Ever) : -1;
    return TakeOfOpened();
}

LockOutcome FileLock::TakeOfOpened() {
    if (descriptor_ < 0) {
        return LockOutcome::Impossible;
    }
    const LockOutcome outcome = TryLock(descriptor_);
    if (outcome != LockOutcome::Taken) {
        Release();
    }
    return outcome;
}

void FileLock::Release() {
    if (descriptor_ >= 0) {
        close(std::exchange(descriptor_, -1));
    }
}

#endif

}  // namespace travo::platform
