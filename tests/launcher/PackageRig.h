// A package and a user's folder in a folder of their own.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace travo::launcher::test {

inline void PutFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

inline QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

struct PackageRig {
    PackageRig() {
        PutFile(package + QStringLiteral("/TRAVO"), "program 1");
        PutFile(package + QStringLiteral("/TRAVOLive"), "camera 1");
        PutFile(package + QStringLiteral("/libManipulatorDriver.so"), "simulated needles");
        PutFile(package + QStringLiteral("/skin/pad-00.svg"), "picture");
        QFile::setPermissions(package + QStringLiteral("/TRAVO"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString In(const char* name) const { return folder + QLatin1Char('/') + QLatin1String(name); }

    QTemporaryDir place;
    QString package = place.filePath(QStringLiteral("usr/lib/travo"));
    QString folder = place.filePath(QStringLiteral("data/travo"));
};

}  // namespace travo::launcher::test
