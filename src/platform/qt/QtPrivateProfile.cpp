#include "platform/qt/QtPrivateProfile.h"

#include <algorithm>
#include <utility>

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
    const QByteArray otherwise = Value(defaultValue);
    const QByteArrayView value = Present(file).Value(Name(section), Name(key)).value_or(otherwise);
    return FromWindows1252(value.first(std::clamp<qsizetype>(qsizetype{size} - 1, 0, value.size())));
}

std::int32_t QtPrivateProfile::GetInt(const QString& section, const QString& key, std::int32_t defaultValue,
                                      const QString& file) {
    const std::optional<QByteArrayView> value = Present(file).Value(Name(section), Name(key));
    return value ? ProfileInteger(*value) : defaultValue;
}

PrivateProfile::Names QtPrivateProfile::GetSectionNames(int size, const QString& file) {
    return Buffer(ProfileSections(Present(file).Text()), size);
}

PrivateProfile::Names QtPrivateProfile::GetKeyNames(const QString& section, int size, const QString& file) {
    return Buffer(ProfileKeys(Present(file).Text(), Name(section)), size);
}

bool QtPrivateProfile::Write(const QString& section, const std::optional<QString>& key,
                             const std::optional<QString>& value, const QString& file) {
    const std::optional<QByteArray> old = Old(file);
    if (!old) {
        return false;
    }
    if (!key) {
        const QByteArray rest = WithoutProfileSection(*old, Name(section));
        return rest == *old || Replace(file, rest);
    }
    if (!value) {
        const QByteArray rest = WithoutProfileKey(*old, Name(section), Name(*key));
        return rest == *old || Replace(file, rest);
    }
    return ProfileCanHold(Name(section), Name(*key), Value(*value)) &&
           Replace(file, WithProfileValue(*old, Name(section), Name(*key), Value(*value)));
}

bool QtPrivateProfile::EndTogether() {
    if (--together_ > 0) {
        return true;
    }
    bool all = true;
    const QHash<QString, QByteArray> collected = std::exchange(collected_, {});
    for (auto text = collected.begin(); text != collected.end(); ++text) {
        all = ReplaceWholeFile(text.key(), text.value()) && all;
    }
    return all;
}

const ProfileIndex& QtPrivateProfile::Present(const QString& file) {
    if (const auto text = collected_.constFind(file); text != collected_.constEnd()) {
        read_ = {file, {}, ProfileIndex(*text)};
        return read_.index;
    }
    const FileStamp stamp = StampOf(file);
    if (!stamp.settled || read_.file != file || read_.stamp != stamp) {
        // A missing file behaves as an empty one.
        read_ = {};
        read_.index = ProfileIndex(ReadWholeFile(file).value_or(QByteArray()));
        read_.file = file;
        read_.stamp = stamp;
    }
    return read_.index;
}

std::optional<QByteArray> QtPrivateProfile::Old(const QString& file) const {
    const auto text = collected_.constFind(file);
    return text != collected_.constEnd() ? *text : ReadFileToReplace(file);
}

bool QtPrivateProfile::Replace(const QString& file, const QByteArray& text) {
    if (together_ == 0) {
        return ReplaceWholeFile(file, text);
    }
    collected_.insert(file, text);
    return true;
}

}  // namespace travo::platform
