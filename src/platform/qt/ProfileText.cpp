#include "platform/qt/ProfileText.h"

#include "platform/Windows1252.h"
#include "platform/qt/ProfileLine.h"

namespace travo::platform {

namespace {

constexpr const char* LineEnd = "\r\n";

using Line = ProfileLine;
using LineKind = ProfileLine::Kind;

Line ReadLine(QByteArrayView text, qsizetype begin) { return ReadProfileLine(text, begin); }

// The header of the first section of that name.
std::optional<Line> FindSection(QByteArrayView text, QByteArrayView section) {
    for (qsizetype at = 0; at < text.size();) {
        const Line line = ReadLine(text, at);
        if (line.kind == LineKind::Section && EqualWithoutCase(line.name, section)) {
            return line;
        }
        at = line.next;
    }
    return std::nullopt;
}

// Goes through the lines of a section until the visitor answers false; gives the section's end.
template <typename Visitor>
qsizetype VisitSection(QByteArrayView text, const Line& header, Visitor visit) {
    qsizetype at = header.next;
    while (at < text.size()) {
        const Line line = ReadLine(text, at);
        if (line.kind == LineKind::Section || !visit(line)) {
            break;
        }
        at = line.next;
    }
    return at;
}

std::optional<Line> FindKey(QByteArrayView text, const Line& header, QByteArrayView key) {
    std::optional<Line> found;
    VisitSection(text, header, [&](const Line& line) {
        if (line.kind == LineKind::Key && EqualWithoutCase(line.name, key)) {
            found = line;
        }
        return !found;
    });
    return found;
}

std::optional<Line> FindKey(QByteArrayView text, QByteArrayView section, QByteArrayView key) {
    const std::optional<Line> header = FindSection(text, section);
    return header ? FindKey(text, *header, key) : std::nullopt;
}

qsizetype EndOfContent(QByteArrayView text, const Line& header) {
    qsizetype end = header.next;
    VisitSection(text, header, [&](const Line& line) {
        end = line.kind == LineKind::Blank ? end : line.next;
        return true;
    });
    return end;
}

// The text with the piece from begin to end replaced.
QByteArray Replaced(QByteArrayView text, qsizetype begin, qsizetype end, const QByteArray& piece) {
    QByteArray result;
    result.reserve(text.size() + piece.size());
    result.append(text.first(begin));
    result.append(piece);
    result.append(text.sliced(end));
    return result;
}

// A line left open before the new ones is closed first.
QByteArray WithLines(QByteArrayView text, qsizetype at, const QByteArray& lines) {
    const bool open = at > 0 && text[at - 1] != '\n';
    return Replaced(text, at, at, open ? LineEnd + lines : lines);
}

QByteArray KeyLine(QByteArrayView key, QByteArrayView value) {
    return key.toByteArray() + '=' + value.toByteArray() + LineEnd;
}

QByteArray SectionLine(QByteArrayView section) { return '[' + section.toByteArray() + ']'; }

bool HasLineBreak(QByteArrayView text) { return text.contains('\n') || text.contains('\r'); }

bool IsBlank(char character) { return character == ' ' || character == '\t'; }

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

}  // namespace

std::optional<QByteArrayView> ProfileValue(QByteArrayView text, QByteArrayView section, QByteArrayView key) {
    const std::optional<Line> line = FindKey(text, section, key);
    if (!line) {
        return std::nullopt;
    }
    return line->ValueWithoutQuotes();
}

QByteArrayList ProfileSections(QByteArrayView text) {
    QByteArrayList names;
    for (qsizetype at = 0; at < text.size();) {
        const Line line = ReadLine(text, at);
        if (line.kind == LineKind::Section) {
            names.append(line.name.toByteArray());
        }
        at = line.next;
    }
    return names;
}

QByteArrayList ProfileKeys(QByteArrayView text, QByteArrayView section) {
    QByteArrayList names;
    if (const std::optional<Line> header = FindSection(text, section)) {
        VisitSection(text, *header, [&](const Line& line) {
            if (line.kind == LineKind::Key) {
                names.append(line.name.toByteArray());
            }
            return true;
        });
    }
    return names;
}

std::int32_t ProfileInteger(QByteArrayView value) {
    qsizetype at = 0;
    while (at < value.size() && IsBlank(value[at])) {
        ++at;
    }
    const bool negative = at < value.size() && value[at] == '-';
    if (negative || (at < value.size() && value[at] == '+')) {
        ++at;
    }
    std::uint32_t number = 0;
    for (; at < value.size() && IsDigit(value[at]); ++at) {
        number = number * 10U + static_cast<std::uint32_t>(value[at] - '0');
    }
    return static_cast<std::int32_t>(negative ? 0U - number : number);
}

bool ProfileCanHold(QByteArrayView section, QByteArrayView key, QByteArrayView value) {
    if (HasLineBreak(section) || HasLineBreak(key) || HasLineBreak(value)) {
        return false;
    }
    const QByteArray keyLine = KeyLine(key, value);
    const Line line = ReadLine(keyLine, 0);
    return line.kind == LineKind::Key && line.name == key;
}

QByteArray WithProfileValue(QByteArrayView text, QByteArrayView section, QByteArrayView key,
                            QByteArrayView value) {
    const std::optional<Line> header = FindSection(text, section);
    if (!header) {
        return WithLines(text, text.size(), SectionLine(section) + LineEnd + KeyLine(key, value));
    }
    if (const std::optional<Line> line = FindKey(text, *header, key)) {
        return Replaced(text, line->valueBegin, line->next, value.toByteArray() + LineEnd);
    }
    return WithLines(text, EndOfContent(text, *header), KeyLine(key, value));
}

QByteArray WithoutProfileKey(QByteArrayView text, QByteArrayView section, QByteArrayView key) {
    const std::optional<Line> line = FindKey(text, section, key);
    return line ? Replaced(text, line->begin, line->next, {}) : text.toByteArray();
}

QByteArray WithoutProfileSection(QByteArrayView text, QByteArrayView section) {
    const std::optional<Line> header = FindSection(text, section);
    if (!header) {
        return text.toByteArray();
    }
    const qsizetype end = VisitSection(text, *header, [](const Line&) { return true; });
    return Replaced(text, header->begin, end, {});
}

}  // namespace travo::platform
