#include "platform/qt/WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#endif

#include "platform/qt/FileLock.h"

namespace travo::platform {

namespace {

#ifndef Q_OS_WIN
// Two writes nearer to each other than this, in nanoseconds, may bear the same time.
constexpr std::int64_t StampGrain = 100'000'000;
#endif

constexpr int MostLinks = 40;  // as many as the system itself follows

// Where the bytes lie in the end; empty for links that go round in a ring. The target need not exist.
QString ThroughLinks(QString path) {
    for (int links = 0; links < MostLinks; ++links) {
        const QFileInfo info(path);
        if (!info.isSymbolicLink()) {
            return path;
        }
        path = info.symLinkTarget();
    }
    return {};
}

std::filesystem::path Native(const QString& path) { return QFileInfo(path).filesystemFilePath(); }

std::optional<QByteArray> ReadOpened(QFile& file) {
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

// Process and chance make the name its own, also where two systems share the folder; the form tells it from
// everything that others keep here.
QString TemporaryName(const QString& target) {
    return QStringLiteral("%1.%2-%3.tmp")
        .arg(target)
        .arg(QCoreApplication::applicationPid())
        .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

// The process that made this temporary file of the target, as digits; empty for any other file.
QString MakerOf(const QString& target, const QString& name) {
    static const QRegularExpression form(QStringLiteral("\\A\\.([0-9]+)(-[0-9a-f]{8})?\\.tmp\\z"));
    return name.startsWith(target) ? form.match(name.mid(target.size())).captured(1) : QString();
}

// Whoever writes a temporary file holds its lock. Where the file system takes none, a living maker counts.
bool IsLeftBehind(const QString& path, const QString& maker) {
    FileLock lock;
    switch (lock.TakeOfPresent(path)) {
        case LockOutcome::Taken:
            return true;
        case LockOutcome::HeldByAnother:
            return false;
        case LockOutcome::Impossible:
            break;
    }
#ifndef Q_OS_WIN
    const bool lives = ::kill(static_cast<pid_t>(maker.toInt()), 0) == 0 || errno == EPERM;
    return !lives || maker.toLongLong() == QCoreApplication::applicationPid();
#else
    return maker.toLongLong() == QCoreApplication::applicationPid();
#endif
}

void RemoveLeftBehind(const QString& target) {
    const QFileInfo info(target);
    const QString own = info.fileName();
    QDir folder = info.dir();
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    for (const QString& name : names) {
        const QString maker = MakerOf(own, name);
        if (!maker.isEmpty() && IsLeftBehind(folder.filePath(name), maker)) {
            folder.remove(name);
        }
    }
}

// As far as the system lets this user: it is no reason to lose the contents.
void TakeOverOwnerAndPermissions(QFile& file, const QString& target) {
#ifndef Q_OS_WIN
    struct stat old {};
    if (::stat(QFile::encodeName(target).constData(), &old) == 0) {
        [[maybe_unused]] const int owner = ::fchown(file.handle(), old.st_uid, old.st_gid);
        [[maybe_unused]] const int mode = ::fchmod(file.handle(), old.st_mode & 07777);
    }
#else
    if (QFile::exists(target)) {
        file.setPermissions(QFile::permissions(target));
    }
#endif
}

bool BringToDisk(QFile& file) {
#ifdef Q_OS_WIN
    return ::_commit(file.handle()) == 0;
#else
    return ::fsync(file.handle()) == 0;
#endif
}

// Opens a new file and takes its lock. Another program may just have taken the file for one left behind.
bool OpenTemporary(QFile& file, const QString& target) {
    constexpr int MostTries = 8;
    for (int tries = 0; tries < MostTries; ++tries) {
        file.setFileName(TemporaryName(target));
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            return false;
        }
        if (TryLock(file.handle()) != LockOutcome::HeldByAnother && file.exists()) {
            return true;
        }
        file.close();
    }
    return false;
}

bool WriteTemporary(QFile& file, const QString& target, const QByteArray& bytes) {
    TakeOverOwnerAndPermissions(file, target);
    const bool written = file.write(bytes) == bytes.size() && BringToDisk(file);
#ifdef Q_OS_WIN
    file.close();
#endif
    return written && file.error() == QFileDevice::NoError;
}

// A name that is only in the system's memory is lost with its power. What fails here fails in silence: the
// file has been replaced for everybody who runs.
void BringFolderToDisk(const QString& file) {
#ifndef Q_OS_WIN
    const QByteArray folder = QFile::encodeName(QFileInfo(file).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
#endif
}

}  // namespace

FileStamp StampOf(const QString& path) {
#ifndef Q_OS_WIN
    struct stat there {};
    timespec now{};
    if (::stat(QFile::encodeName(path).constData(), &there) != 0 ||
        ::clock_gettime(CLOCK_REALTIME, &now) != 0) {
        return {};
    }
    const auto nanoseconds = [](const timespec& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    FileStamp stamp;
    stamp.device = there.st_dev;
    stamp.number = there.st_ino;
    stamp.size = there.st_size;
    stamp.written = nanoseconds(there.st_mtim);
    stamp.changed = nanoseconds(there.st_ctim);
    stamp.settled = nanoseconds(now) - std::max(stamp.written, stamp.changed) > StampGrain;
    return stamp;
#else
    return {};
#endif
}

std::optional<QByteArray> ReadWholeFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return ReadOpened(file);
}

std::optional<QByteArray> ReadFileToReplace(const QString& path) {
    const QString target = ThroughLinks(path);
    if (target.isEmpty()) {
        return std::nullopt;
    }
    const QFileInfo info(target);
    if (!info.exists()) {
        return QByteArray();
    }
    QFile file(target);
    if (!info.isFile() || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        return std::nullopt;
    }
    return ReadOpened(file);
}

bool ReplaceWholeFile(const QString& path, const QByteArray& bytes) {
    const QString target = ThroughLinks(path);
    const QFileInfo info(target);
    if (target.isEmpty() || (info.exists() && !info.isFile())) {
        return false;
    }
    RemoveLeftBehind(target);
    QFile temporary;
    if (!OpenTemporary(temporary, target)) {
        return false;
    }
    // Open, and so locked, until it bears the file's name.
    std::error_code failure;
    if (WriteTemporary(temporary, target, bytes)) {
        std::filesystem::rename(Native(temporary.fileName()), Native(target), failure);
        if (!failure) {
            BringFolderToDisk(target);
            return true;
        }
    }
    temporary.remove();
    return false;
}

}  // namespace travo::platform
