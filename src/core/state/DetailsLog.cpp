#include "core/state/DetailsLog.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include "platform/Windows1252.h"

namespace travo {

namespace {
constexpr qsizetype MostCharacters = 4000;  // of a line
}

QString DetailsLog::OlderPath(const QString& path) {
    const QFileInfo file(path);
    return QStringLiteral("%1/%2.last.%3").arg(file.path(), file.completeBaseName(), file.suffix());
}

void DetailsLog::Note(const QString& text) noexcept {
    try {
        Append(text);
    } catch (...) {
        // Nobody waits for it, and nothing may fail for it.
    }
}

void DetailsLog::Append(const QString& text) const {
    const QFileInfo present(path_);
    // To open a pipe or a device would wait for its other end.
    if (path_.isEmpty() || (present.exists() && !present.isFile())) {
        return;
    }
    const QString time = QLocale::c().toString(clock_.Now(), QStringLiteral("MM-dd-yyyy HH:mm:ss"));
    const QString entry = time + QStringLiteral(" - ") + text.left(MostCharacters);
    const QByteArray line = platform::ToWindows1252(entry) + "\r\n";
    if (present.exists() && present.size() + line.size() > MostBytes) {
        QFile::remove(OlderPath(path_));
        if (!QFile::rename(path_, OlderPath(path_))) {
            QFile::remove(path_);
        }
    }
    QFile file(path_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        file.write(line);
    }
}

}  // namespace travo
