// Folders and single instance on Qt's.
#pragma once

#include <QString>
#include <utility>

#include "platform/Folders.h"
#include "platform/SingleInstance.h"
#include "platform/qt/FileLock.h"

namespace travo::platform::qt {

class QtFolders : public Folders {
public:
    explicit QtFolders(const QString& programFolder) : program_(programFolder) {}

    QString Program() const override { return program_; }
    QString ApplicationData() const override;
    // Qt takes this one on every platform.
    QChar Separator() const override { return QLatin1Char('/'); }
    bool Exists(const QString& folder) const override;
    void Create(const QString& folder) override;

private:
    QString program_;
};

// Locks of two files that stay where they are: one in the user's runtime folder, and one beside the settings
// file, for two runs of one program folder that have different runtime folders. Only a lock that is held
// refuses.
class QtSingleInstance : public SingleInstance {
public:
    explicit QtSingleInstance(QString programFolder) : programFolder_(std::move(programFolder)) {}

    bool Claim() override;

private:
    QString programFolder_;
    FileLock user_;
    FileLock folder_;
};

}  // namespace travo::platform::qt
