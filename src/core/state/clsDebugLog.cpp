#include "core/state/clsDebugLog.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include "core/ground/Arithmetic.h"
#include "platform/Windows1252.h"

namespace travo {

namespace {

// Opens, writes and closes in one, so that the log is complete on the disk whatever comes after.
void WriteLine(const QString& path, QIODevice::OpenMode mode, const QString& line) {
    QFile file(path);
    const QByteArray bytes = platform::ToWindows1252(line) + "\r\n";
    // A pipe in its place would be waited for without end, and a device be written to.
    const QFileInfo there(path);
    const bool isFile = !there.exists() || there.isFile();
    if (path.isEmpty() || !isFile || !file.open(QIODevice::WriteOnly | QIODevice::Unbuffered | mode)) {
        throw Failure("the debug log cannot be opened");
    }
    const bool written = file.write(bytes) == bytes.size();
    file.close();
    if (!written || file.error() != QFileDevice::NoError) {
        throw Failure("the debug log cannot be written");
    }
}

}  // namespace

void clsDebugLog::WriteDate() {
    const QDate date = clock_.Now().date();
    WriteLine(path_, QIODevice::Truncate, QLocale::c().toString(date, QStringLiteral("MM-dd-yyyy")));
}

bool clsDebugLog::WriteString(const QString& strData) {
    const QString time = QLocale::c().toString(clock_.Now().time(), QStringLiteral("HH:mm:ss"));
    WriteLine(path_, QIODevice::Append, time + QStringLiteral(" - ") + strData);
    return false;
}

}  // namespace travo
