// The folders that the system works in.
#pragma once

#include <QString>

namespace travo::platform {

class Folders {
public:
    virtual ~Folders() = default;
    // Folder of the running program, without a separator at its end.
    virtual QString Program() const = 0;
    // The per-user application data folder, without a separator at its end; empty when there is none.
    virtual QString ApplicationData() const = 0;
    // The separator that the system puts between folders.
    virtual QChar Separator() const = 0;
    virtual bool Exists(const QString& folder) const = 0;
    // Raises std::runtime_error when the folder cannot be made.
    virtual void Create(const QString& folder) = 0;
};

}  // namespace travo::platform
