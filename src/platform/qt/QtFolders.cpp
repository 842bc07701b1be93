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
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) {
        folder = QDir::tempPath();
    }
    lock_ = std::make_unique<QLockFile>(QDir(folder).filePath(QStringLiteral("TRAVO.lock")));
    // Age says nothing: the program may run for weeks.
    lock_->setStaleLockTime(0);
    // Only another living program refuses; a folder that takes no lock must not keep the operator out.
    return lock_->tryLock(0) || lock_->error() != QLockFile::LockFailedError;
}

}  // namespace travo::platform::qt
