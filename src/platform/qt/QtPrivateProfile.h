// Private profile files as plain files that are read and replaced whole.
#pragma once

#include "platform/PrivateProfile.h"

namespace travo::platform {

// Keeps nothing between calls. A text ends at its first NUL; blanks round section and key do not
// count. Names and values with a line break, and keys that would read as something else (with an
// equals sign, or beginning like a section or a comment), are not written.
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
};

}  // namespace travo::platform
