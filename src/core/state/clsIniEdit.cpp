#include "core/state/clsIniEdit.h"

namespace travo {

namespace {

// The platform's longest buffer of a profile call, its ending NUL included.
constexpr int BufferSize = 32767;

}  // namespace

std::size_t clsIniEdit::Split(const QString& buffer, std::span<QString> names) {
    std::size_t filled = 0;
    qsizetype at = 0;
    while (filled < names.size()) {
        const qsizetype end = buffer.indexOf(QChar(u'\0'), at);
        if (end <= at) {
            break;
        }
        names[filled] = buffer.mid(at, end - at);
        ++filled;
        at = end + 1;
    }
    return filled;
}

std::int32_t clsIniEdit::WriteString(const QString& SectionName, const QString& KeyName,
                                     const QString& WriteData) {
    if (KeyName.isEmpty() || WriteData.isEmpty()) {
        return 0;
    }
    return profile_.Write(SectionName, KeyName, WriteData, path_) ? 1 : 0;
}

QString clsIniEdit::GetString(const QString& SectionName, const QString& KeyName,
                              const QString& Default) const {
    return profile_.GetString(SectionName, KeyName, Default, BufferSize, path_);
}

std::int32_t clsIniEdit::GetInt(const QString& SectionName, const QString& KeyName,
                                std::int32_t Default) const {
    return profile_.GetInt(SectionName, KeyName, Default, path_);
}

std::int32_t clsIniEdit::GetSectionNames(std::span<QString> SectionBuffer) const {
    const platform::PrivateProfile::Names names = profile_.GetSectionNames(BufferSize, path_);
    Split(names.buffer, SectionBuffer);
    return names.count;
}

std::int32_t clsIniEdit::GetKeyNames(const QString& SectionName, std::span<QString> KeyBuffer) const {
    const platform::PrivateProfile::Names names = profile_.GetKeyNames(SectionName, BufferSize, path_);
    Split(names.buffer, KeyBuffer);
    return names.count;
}

std::int32_t clsIniEdit::DeleteSection(const QString& SectionName) {
    return profile_.Write(SectionName, std::nullopt, std::nullopt, path_) ? 1 : 0;
}

std::int32_t clsIniEdit::DeleteKey(const QString& SectionName, const QString& KeyName) {
    if (KeyName.isEmpty()) {
        return 0;
    }
    return profile_.Write(SectionName, KeyName, std::nullopt, path_) ? 1 : 0;
}

}  // namespace travo
