// Private profile files as plain files that are read and replaced whole.
#pragma once

#include <QHash>
#include <optional>

#include "platform/PrivateProfile.h"
#include "platform/qt/ProfileIndex.h"
#include "platform/qt/WholeFile.h"

namespace travo::platform {

// A file is read again as soon as it is not the one, or not as old, as when it was read last. A text ends at
// its first NUL; blanks round section and key do not count. Names and values with a line break, and keys that
// would read as something else (with an equals sign, or beginning like a section or a comment), are not
// written.
class QtPrivateProfile : public PrivateProfile {
public:
    QString GetString(const QString& section, const QString& key, const QString& defaultValue, int size,
                      const QString& file) override;
    std::int32_t GetInt(const QString& section, const QString& key, std::int32_t defaultValue,
                        const QString& file) override;
    Names GetSectionNames(int size, const QString& file) override;
    Names GetKeyNames(const QString& section, int size, const QString& file) override;
    // Removing what is not there is a success and leaves the file alone.
    bool Write(const QString& section, const std::optional<QString>& key, const std::optional<QString>& value,
               const QString& file) override;
    void BeginTogether() override { ++together_; }
    bool EndTogether() override;

private:
    struct Read {
        QString file;
        FileStamp stamp;
        ProfileIndex index;
    };

    // The file as it stands, with what has been collected for it. Holds until the next call.
    const ProfileIndex& Present(const QString& file);
    // What a write starts from; nothing where the file may not be replaced.
    std::optional<QByteArray> Old(const QString& file) const;
    bool Replace(const QString& file, const QByteArray& text);

    Read read_;
    int together_ = 0;
    QHash<QString, QByteArray> collected_;
};

}  // namespace travo::platform
