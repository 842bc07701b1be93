#include "launcher/ProgramFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdio>
#include <stdexcept>

#include "platform/qt/FileLock.h"

namespace travo::launcher {

namespace {

// The lock that a running TRAVO holds in its program folder.
const QString LockName = QStringLiteral("TRAVO.lock");
const QString NoteName = QStringLiteral("package-version");
const QString SkinName = QStringLiteral("skin");
const QString DriverName = QStringLiteral("libManipulatorDriver.so");
// What takes its name once it is whole is not seen before.
const QString Unfinished = QStringLiteral(".new");

[[noreturn]] void Fail(const QString& sentence) { throw std::runtime_error(sentence.toStdString()); }

QString Noted(const QDir& folder) {
    QFile note(folder.filePath(NoteName));
    return note.open(QIODevice::ReadOnly) ? QString::fromUtf8(note.readAll()) : QString();
}

void Note(const QDir& folder, const QString& version) {
    QSaveFile note(folder.filePath(NoteName));
    if (!note.open(QIODevice::WriteOnly) || note.write(version.toUtf8()) < 0 || !note.commit()) {
        Fail(QStringLiteral("The folder %1 cannot be written.").arg(folder.path()));
    }
}

void TakeName(const QString& unfinished, const QString& name) {
    if (std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(name).constData()) != 0) {
        QFile::remove(unfinished);
        Fail(QStringLiteral("%1 cannot be replaced.").arg(name));
    }
}

void CopyFile(const QFileInfo& source, const QDir& folder) {
    const QString name = folder.filePath(source.fileName());
    const QString unfinished = name + Unfinished;
    QFile::remove(unfinished);
    if (!QFile::copy(source.filePath(), unfinished)) {
        QFile::remove(unfinished);
        Fail(QStringLiteral("%1 cannot be copied to %2.").arg(source.filePath(), folder.path()));
    }
    TakeName(unfinished, name);
}

void LinkSkin(const QDir& package, const QDir& folder) {
    const QString name = folder.filePath(SkinName);
    const QFileInfo present(name);
    if (present.exists() && !present.isSymLink()) {
        return;  // a skin of the user's own
    }
    const QString unfinished = name + Unfinished;
    QFile::remove(unfinished);
    if (!QFile::link(package.absoluteFilePath(SkinName), unfinished)) {
        Fail(QStringLiteral("The skin cannot be linked in %1.").arg(folder.path()));
    }
    TakeName(unfinished, name);
}

void MakeForItsUserAlone(const QDir& folder) {
    if (!QDir().mkpath(folder.path()) ||
        !QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)) {
        Fail(QStringLiteral("The folder %1 cannot be made.").arg(folder.path()));
    }
}

}  // namespace

Renewal RenewProgramFolder(const QString& package, const QString& folder, const QString& version) {
    const QDir from(package);
    const QDir to(folder);
    if (!from.exists(QStringLiteral("TRAVO"))) {
        Fail(QStringLiteral("There is no TRAVO in %1.").arg(package));
    }
    const bool isNew = !to.exists();
    if (isNew) {
        MakeForItsUserAlone(to);
    } else if (Noted(to) == version) {
        return Renewal::Unchanged;
    }
    platform::FileLock lock;
    if (lock.Take(to.filePath(LockName)) == platform::LockOutcome::HeldByAnother) {
        return Renewal::InUse;
    }
    for (const QFileInfo& file : from.entryInfoList(QDir::Files | QDir::NoSymLinks)) {
        if (file.fileName() != DriverName) {
            CopyFile(file, to);
        }
    }
    LinkSkin(from, to);
    Note(to, version);
    return isNew ? Renewal::Made : Renewal::Renewed;
}

QString VersionOf(const QString& package, const QString& number) {
    const QFileInfo program(QDir(package).filePath(QStringLiteral("TRAVO")));
    return QStringLiteral("%1 %2 %3\n")
        .arg(number)
        .arg(program.size())
        .arg(program.lastModified().toSecsSinceEpoch());
}

}  // namespace travo::launcher
