#include "platform/qt/QtFolders.h"

#include <QDir>
#include <QStandardPaths>
#include <stdexcept>

namespace travo::platform::qt {

QString QtFolders::ApplicationData() const {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

bool QtFolders::Exists(const QString& folder) const { return QDir(folder).exists(); }

void QtFolders::Create(const QString& folder) {
    if (!QDir().mkpath(folder)) {
        throw std::runtime_error("a folder cannot be made: " + folder.toStdString());
    }
}

bool QtSingleInstance::Claim() {
    const QString name = QStringLiteral("TRAVO.lock");
    QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty()) {
        runtime = QDir::tempPath();
    }
    // A folder that takes no lock must not keep the operator out.
    if (user_.Take(QDir(runtime).filePath(name)) == LockOutcome::HeldByAnother) {
        return false;
    }
    if (folder_.Take(QDir(programFolder_).filePath(name)) == LockOutcome::HeldByAnother) {
        user_.Release();
        return false;
    }
    return true;
}

}  // namespace travo::platform::qt
