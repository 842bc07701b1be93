#include "platform/qt/ProfileLine.h"

namespace travo::platform {

namespace {

void ReadSection(ProfileLine& line, QByteArrayView content) {
    const qsizetype close = content.lastIndexOf(']');
    if (close > 0) {
        line.kind = ProfileLine::Kind::Section;
        line.name = content.sliced(1, close - 1).trimmed();
    }
}

void ReadKey(ProfileLine& line, QByteArrayView content, QByteArrayView text) {
    const qsizetype equals = content.indexOf('=');
    if (equals > 0) {
        line.kind = ProfileLine::Kind::Key;
        line.name = content.first(equals).trimmed();
        line.valueBegin = content.data() - text.data() + equals + 1;
        line.value = content.sliced(equals + 1).trimmed();
    }
}

}  // namespace

ProfileLine ReadProfileLine(QByteArrayView text, qsizetype begin) {
    const qsizetype end = text.indexOf('\n', begin);
    ProfileLine line;
    line.begin = begin;
    line.next = end < 0 ? text.size() : end + 1;
    QByteArrayView content = text.sliced(begin, line.next - begin);
    if (const qsizetype nul = content.indexOf('\0'); nul >= 0) {
        content = content.first(nul);
    } else if (content.trimmed().isEmpty()) {
        line.kind = ProfileLine::Kind::Blank;
    }
    content = content.trimmed();
    if (content.startsWith('[')) {
        ReadSection(line, content);
    } else if (!content.startsWith(';')) {
        ReadKey(line, content, text);
    }
    return line;
}

QByteArrayView ProfileLine::ValueWithoutQuotes() const {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

}  // namespace travo::platform
