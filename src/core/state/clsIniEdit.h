// The settings file: sections, keys and values, read and written at once with each call.
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/PrivateProfile.h"

namespace travo {

class clsIniEdit {
public:
    // While it lives, all that is written through the settings store is collected, by any instance; the file
    // is replaced once, when it ends. Whoever reads meanwhile reads what has been written.
    class Together {
    public:
        explicit Together(clsIniEdit& ini) : profile_(ini.profile_) { profile_.BeginTogether(); }
        ~Together() { profile_.EndTogether(); }
        Together(const Together&) = delete;
        Together& operator=(const Together&) = delete;

    private:
        platform::PrivateProfile& profile_;
    };

    explicit clsIniEdit(platform::PrivateProfile& profile) : profile_(profile) {}

    // Path of the file. Two instances may work on the same file.
    const QString& IniFilePath() const { return path_; }
    void IniFilePath(const QString& path) { path_ = path; }

    // Non-zero when the key was written. Nothing is written, and the result is 0, when key or value
    // is empty: a value cannot be blanked through this class.
    std::int32_t WriteString(const QString& SectionName, const QString& KeyName, const QString& WriteData);
    // The value, or Default where section, key or file is missing. At most 32766 characters.
    QString GetString(const QString& SectionName, const QString& KeyName, const QString& Default) const;
    // The number that the value begins with; 0 where it begins otherwise; Default where there is none.
    std::int32_t GetInt(const QString& SectionName, const QString& KeyName, std::int32_t Default) const;
    // Fill the caller's array from its lower bound up, until it is full or the list ends; elements
    // behind the last name stay as they are. The result is the platform's count of characters.
    std::int32_t GetSectionNames(std::span<QString> SectionBuffer) const;
    std::int32_t GetKeyNames(const QString& SectionName, std::span<QString> KeyBuffer) const;
    // Non-zero on success. DeleteKey with an empty key does nothing and gives 0.
    std::int32_t DeleteSection(const QString& SectionName);
    std::int32_t DeleteKey(const QString& SectionName, const QString& KeyName);

    // Nothing here raises a failure: a missing file behaves as an empty one, an unwritable one shows
    // as a zero result.

private:
    // Takes the names, each ended by a NUL, into the elements from the first up; stops at an empty name
    // or a full array. The number of elements filled.
    static std::size_t Split(const QString& buffer, std::span<QString> names);

    platform::PrivateProfile& profile_;
    QString path_;
};

}  // namespace travo
