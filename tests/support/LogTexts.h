// What a test finds in the debug log.
#pragma once

#include <QFile>
#include <QStringList>

#include "core/state/clsDebugLog.h"

namespace travo::test {

// The texts of the log's lines, without their times; none while there is no log.
inline QStringList LogTexts(const clsDebugLog& log) {
    QFile file(log.LogFilePath());
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList texts;
    const QStringList lines = QString::fromLatin1(file.readAll()).split(QStringLiteral("\r\n"));
    for (const QString& line : lines) {
        if (const auto dash = line.indexOf(QStringLiteral(" - ")); dash >= 0) {
            texts << line.mid(dash + 3);
        }
    }
    return texts;
}

}  // namespace travo::test
