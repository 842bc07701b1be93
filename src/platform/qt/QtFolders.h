// Folders and single instance on Qt's.
#pragma once

#include <QLockFile>
#include <memory>

#include "platform/Folders.h"
#include "platform/SingleInstance.h"

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

// A lock file in the user's runtime folder; that of a killed process is recognised and taken over.
class QtSingleInstance : public SingleInstance {
public:
    bool Claim() override;

private:
    std::unique_ptr<QLockFile> lock_;
};

}  // namespace travo::platform::qt
