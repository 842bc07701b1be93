// A program folder and a data folder of their own.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include "core/state/clsIniEdit.h"
#include "diagnostics/words/Discretion.h"
#include "diagnostics/words/Page.h"
#include "platform/qt/QtPrivateProfile.h"

namespace travo::diagnostics::test {

struct Rig {
    Rig() {
        QDir().mkpath(folder);
        QFile::setPermissions(place.path(), static_cast<QFile::Permissions>(0x7755));
        settings.IniFilePath(folder + QStringLiteral("/KVData.ini"));
    }

    void Put(const QString& path, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    void Settings(const QByteArray& text) const { Put(settings.IniFilePath(), text); }
    void Pin(int number, const QString& device) const {
        QDir().mkpath(folder + QStringLiteral("/ports"));
        QFile::link(device, folder + QStringLiteral("/ports/com%1").arg(number));
    }

    QTemporaryDir place;
    QString folder = place.filePath(QStringLiteral("program"));
    QString data = place.filePath(QStringLiteral("data"));
    platform::QtPrivateProfile profile;
    clsIniEdit settings{profile};
    Discretion discretion{place.path(), QStringLiteral("ada"), QStringLiteral("lab-pc")};
};

// The section of a needle, 0 to 3, that was calibrated rightly and has no centre yet.
inline QByteArray RightCalibration(int needle) {
    const int points[4][3] = {
        {12458, 12542, 12500}, {12486, 12401, 12500}, {12599, 12514, 12500}, {12458, 12542, 12400}};
    QByteArray text = "[Manipulator Calibration:" + QByteArray::number(needle) + "]\r\n";
    for (int axis = 0; axis < 3; ++axis) {
        for (int point = 0; point < 4; ++point) {
            text += "Index:" + QByteArray::number(point) + ",XYZ:" + QByteArray::number(axis) + "=" +
                    QByteArray::number(points[point][axis]) + "\r\n";
        }
        text += "ZERO,XYZ:" + QByteArray::number(axis) + "=0\r\n";
    }
    return text + "Time=26/03/14    09:41\r\n";
}

inline QByteArray Centre(int value) {
    QByteArray text;
    for (int axis = 0; axis < 3; ++axis) {
        text += "Center,XYZ:" + QByteArray::number(axis) + "=" + QByteArray::number(value) + "\r\n";
    }
    return text;
}

}  // namespace travo::diagnostics::test
