#include "platform/qt/QtPrivateProfile.h"

#include <algorithm>

#include "platform/Windows1252.h"
#include "platform/qt/ProfileText.h"
#include "platform/qt/WholeFile.h"

namespace travo::platform {

namespace {

QByteArray Value(const QString& text) {
    const QByteArray bytes = ToWindows1252(text);
    const qsizetype nul = bytes.indexOf('\0');
    return nul < 0 ? bytes : bytes.first(nul);
}

QByteArray Name(const QString& text) { return Value(text).trimmed(); }

// A missing file behaves as an empty one.
QByteArray Contents(const QString& file) { return ReadWholeFile(file).value_or(QByteArray()); }

// The names in the form of the platform's buffer of that size. An empty name would end the list.
PrivateProfile::Names Buffer(const QByteArrayList& names, int size) {
    if (size < 2) {
        return {QString(std::max(size, 0), QChar(u'\0')), 0};
    }
    QByteArray list;
    for (const QByteArray& name : names) {
        if (!name.isEmpty()) {
            list.append(name).append('\0');
        }
    }
    if (list.size() >= size) {
        list = list.first(size - 2);
        return {FromWindows1252(list + '\0' + '\0'), size - 2};
    }
    return {FromWindows1252(list + '\0'), static_cast<std::int32_t>(list.size())};
}

}  // namespace

QString QtPrivateProfile::GetString(const QString& section, const QString& key, const QString& defaultValue,
                                    int size, const QString& file) {
    const QByteArray text = Contents(file);
    const QByteArray otherwise = Value(defaultValue);
    const QByteArrayView value = ProfileValue(text, Name(section), Name(key)).value_or(otherwise);
    return FromWindows1252(value.first(std::clamp<qsizetype>(qsizetype{size} - 1, 0, value.size())));
}

std::int32_t QtPrivateProfile::GetInt(const QString& section, const QString& key, std::int32_t defaultValue,
                                      const QString& file) {
    const QByteArray text = Contents(file);
    const std::optional<QByteArrayView> value = ProfileValue(text, Name(section), Name(key));
    return value ? ProfileInteger(*value) : defaultValue;
}

PrivateProfile::Names QtPrivateProfile::GetSectionNames(int size, const QString& file) {
    return Buffer(ProfileSections(Contents(file)), size);
}

PrivateProfile::Names QtPrivateProfile::GetKeyNames(const QString& section, int size, const QString& file) {
    return Buffer(ProfileKeys(Contents(file), Name(section)), size);
}

bool QtPrivateProfile::Write(const QString& section, const std::optional<QString>& key,
                             const std::optional<QString>& value, const QString& file) {
    const std::optional<QByteArray> old = ReadFileToReplace(file);
    if (!old) {
        return false;
    }
    if (!key) {
        const QByteArray rest = WithoutProfileSection(*old, Name(section));
        return rest == *old || ReplaceWholeFile(file, rest);
    }
    if (!value) {
        const QByteArray rest = WithoutProfileKey(*old, Name(section), Name(*key));
        return rest == *old || ReplaceWholeFile(file, rest);
    }
    return ProfileCanHold(Name(section), Name(*key), Value(*value)) &&
           ReplaceWholeFile(file, WithProfileValue(*old, Name(section), Name(*key), Value(*value)));
}

}  // namespace travo::platform
