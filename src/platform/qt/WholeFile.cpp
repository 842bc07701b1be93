#include "platform/qt/WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace travo::platform {

namespace {

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

// The process number in the name tells a temporary file from everything that others keep here.
QString TemporaryName(const QString& target, const QString& process) {
    return target + QLatin1Char('.') + process + QStringLiteral(".tmp");
}

bool IsTemporaryOf(const QString& target, const QString& name) {
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    const auto begin = name.begin() + std::min(name.size(), target.size() + 1);
    const QString process(begin, std::find_if_not(begin, name.end(), isDigit) - begin);
    return !process.isEmpty() && name == TemporaryName(target, process);
}

void RemoveLeftBehind(const QString& target) {
    const QFileInfo info(target);
    const QString own = info.fileName();
    QDir folder = info.dir();
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    for (const QString& name : names) {
        if (IsTemporaryOf(own, name)) {
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

bool WriteTemporary(const QString& temporary, const QString& target, const QByteArray& bytes) {
    QFile file(temporary);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        return false;
    }
    TakeOverOwnerAndPermissions(file, target);
    const bool written = file.write(bytes) == bytes.size() && BringToDisk(file);
    file.close();
    return written && file.error() == QFileDevice::NoError;
}

}  // namespace

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
    const QString process = QString::number(QCoreApplication::applicationPid());
    const QString temporary = TemporaryName(target, process);
    std::error_code failure;
    if (WriteTemporary(temporary, target, bytes)) {
        std::filesystem::rename(Native(temporary), Native(target), failure);
        if (!failure) {
            return true;
        }
    }
    QFile::remove(temporary);
    return false;
}

}  // namespace travo::platform
