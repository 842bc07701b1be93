// The text of a profile file with the places of its sections and keys: many values are found in a large file
// without going through it for each of them.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstdint>
#include <optional>
#include <vector>

namespace travo::platform {

class ProfileIndex {
public:
    ProfileIndex() = default;
    // Goes through the text once. Eight bytes for each section and key.
    explicit ProfileIndex(const QByteArray& text);

    const QByteArray& Text() const { return text_; }
    // As ProfileValue of the same text: a view into it, nothing where section or key is missing.
    std::optional<QByteArrayView> Value(QByteArrayView section, QByteArrayView key) const;

private:
    struct Mark {
        std::uint32_t hash = 0;  // of the name without its case
        std::uint32_t begin = 0;
    };
    using Marks = std::vector<Mark>;

    QByteArray text_;
    // In the order of the text.
    Marks sections_;
    Marks keys_;
};

}  // namespace travo::platform
