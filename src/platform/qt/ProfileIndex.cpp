#include "platform/qt/ProfileIndex.h"

#include <algorithm>
#include <limits>

#include "platform/Windows1252.h"
#include "platform/qt/ProfileLine.h"
#include "platform/qt/ProfileText.h"

namespace travo::platform {

namespace {

// Beyond this the places do not fit their numbers; such a text is gone through for each value.
constexpr qsizetype LargestText = std::numeric_limits<std::uint32_t>::max();

}  // namespace

ProfileIndex::ProfileIndex(const QByteArray& text) : text_(text) {
    if (text_.size() > LargestText) {
        return;
    }
    for (qsizetype at = 0; at < text_.size();) {
        const ProfileLine line = ReadProfileLine(text_, at);
        const bool isKey = line.kind == ProfileLine::Kind::Key;
        if (isKey || line.kind == ProfileLine::Kind::Section) {
            (isKey ? keys_ : sections_)
                .push_back({HashWithoutCase(line.name), static_cast<std::uint32_t>(line.begin)});
        }
        at = line.next;
    }
}

std::optional<QByteArrayView> ProfileIndex::Value(QByteArrayView section, QByteArrayView key) const {
    if (text_.size() > LargestText) {
        return ProfileValue(text_, section, key);
    }
    // Names of different spelling may share a hash: the text itself decides.
    const auto find = [this](Marks::const_iterator from, Marks::const_iterator to, QByteArrayView name) {
        const std::uint32_t hash = HashWithoutCase(name);
        return std::find_if(from, to, [&](const Mark& mark) {
            return mark.hash == hash && EqualWithoutCase(ReadProfileLine(text_, mark.begin).name, name);
        });
    };
    const auto header = find(sections_.begin(), sections_.end(), section);
    if (header == sections_.end()) {
        return std::nullopt;
    }
    const auto behind = [this](std::uint32_t place) {
        return std::upper_bound(keys_.begin(), keys_.end(), place,
                                [](std::uint32_t one, const Mark& mark) { return one < mark.begin; });
    };
    const auto next = header + 1;
    const auto end = next == sections_.end() ? keys_.end() : behind(next->begin);
    const auto found = find(behind(header->begin), end, key);
    if (found == end) {
        return std::nullopt;
    }
    return ReadProfileLine(text_, found->begin).ValueWithoutQuotes();
}

}  // namespace travo::platform
