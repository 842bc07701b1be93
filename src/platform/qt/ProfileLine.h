// One line of a profile file.
#pragma once

#include <QByteArrayView>

namespace travo::platform {

struct ProfileLine {
    enum class Kind { Section, Key, Blank, Other };

    Kind kind = Kind::Other;
    qsizetype begin = 0;
    qsizetype valueBegin = 0;  // of a key: behind its equals sign
    qsizetype next = 0;        // behind the line end
    QByteArrayView name;
    QByteArrayView value;  // trimmed, quotes and all

    // The value without one pair of equal quotes, ' or ".
    QByteArrayView ValueWithoutQuotes() const;
};

// The line that begins there. Names and values are views into the text.
ProfileLine ReadProfileLine(QByteArrayView text, qsizetype begin);

}  // namespace travo::platform
