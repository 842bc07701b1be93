#include "diagnostics/readers/SettingsReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>

#include "diagnostics/words/Ages.h"
#include "platform/Windows1252.h"

namespace travo::diagnostics {

namespace {

constexpr qint64 Megabyte = 1000 * 1000;
constexpr qint64 FewMegabytes = 50;
constexpr qint64 MostOfLog = 64 * 1024;
constexpr qsizetype MostLinesOfLog = 200;
const QString LogName = QStringLiteral("debugTRAVO.txt");

bool Allows(const QString& path, int rights) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), rights, AT_EACCESS) == 0;
}

// The folder itself, or the nearest one above it that is there.
QString PresentFolder(const QString& folder) {
    QString path = QDir::cleanPath(QDir(folder).absolutePath());
    while (!QFileInfo::exists(path) && path != QStringLiteral("/")) {
        path = QFileInfo(path).path();
    }
    return path;
}

bool IsWritableFolder(const QString& folder) { return Allows(PresentFolder(folder), W_OK | X_OK); }

bool IsWritableLog(const QString& dataFolder) {
    const QFileInfo log(QDir(dataFolder).filePath(LogName));
    return log.exists() ? log.isFile() && Allows(log.filePath(), W_OK) : IsWritableFolder(dataFolder);
}

SettingsState StateOf(const SettingsFacts& facts) {
    if (facts.freeMegabytes <= 0) {
        return SettingsState::Full;
    }
    if (!facts.isFolderWritable) {
        return SettingsState::Readonly;
    }
    if (!facts.isLogWritable) {
        return SettingsState::Log;
    }
    if (!facts.outOfRange.empty()) {
        return SettingsState::Range;
    }
    if (facts.freeMegabytes < FewMegabytes) {
        return SettingsState::Room;
    }
    return facts.isThere ? SettingsState::Well : SettingsState::New;
}

QString YesOrNo(bool is) { return is ? QStringLiteral("yes") : QStringLiteral("no"); }

// The log cannot be written where its folder cannot; the sentence names the folder that is at fault.
QString FolderAtFault(const SettingsFacts& facts, SettingsState state) {
    return state == SettingsState::Log ? facts.dataFolder : QFileInfo(facts.file).path();
}

}  // namespace

QString DataFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir(data).filePath(QStringLiteral("Zelvo/Shared/Data"));
}

SettingsFacts ReadSettings(const QString& programFolder, const QString& dataFolder,
                           const clsIniEdit& settings) {
    SettingsFacts facts;
    facts.file = settings.IniFilePath();
    const QFileInfo there(facts.file);
    facts.isThere = there.exists();
    facts.writtenAt = facts.isThere ? there.lastModified() : QDateTime();
    facts.isFolderWritable = IsWritableFolder(programFolder);
    facts.freeMegabytes = QStorageInfo(PresentFolder(programFolder)).bytesAvailable() / Megabyte;
    facts.outOfRange = ValuesOutOfRange(settings);
    facts.copies = QDir(programFolder).entryList({QStringLiteral("KVData.*.bak")}, QDir::Files, QDir::Name);
    facts.dataFolder = dataFolder;
    facts.isLogWritable = IsWritableLog(dataFolder);
    return facts;
}

LinkCard SettingsCard(const SettingsFacts& facts, const QDateTime& now, const Discretion& discretion) {
    const SettingsState state = StateOf(facts);
    const double age = static_cast<double>(facts.writtenAt.msecsTo(now)) / 1000.0;
    LinkCard card{Link::Settings,
                  Filled(TextOf(state), {{"FILE", discretion.Cleaned(facts.file)},
                                         {"AGO", AgoText(age)},
                                         {"FOLDER", discretion.Cleaned(FolderAtFault(facts, state))},
                                         {"K", QString::number(facts.outOfRange.size())},
                                         {"MB", QString::number(facts.freeMegabytes)}}),
                  {}};
    const QString copies =
        facts.copies.isEmpty()
            ? QStringLiteral("0")
            : QStringLiteral("%1, newest %2").arg(facts.copies.size()).arg(facts.copies.last());
    card.details = {{QStringLiteral("File"), discretion.Cleaned(facts.file)},
                    {QStringLiteral("Writable"), YesOrNo(facts.isFolderWritable)},
                    {QStringLiteral("Copies"), copies}};
    for (const OutOfRange& value : facts.outOfRange) {
        const QString line = QStringLiteral("%1: %2, taken: %3").arg(value.key, value.stood, value.taken);
        card.details.push_back({QStringLiteral("Out of range"), discretion.Cleaned(line)});
    }
    card.details.push_back({QStringLiteral("Data folder"), discretion.Cleaned(facts.dataFolder)});
    card.details.push_back(
        {QStringLiteral("Log"), discretion.Cleaned(QDir(facts.dataFolder).filePath(LogName))});
    return card;
}

QStringList LogTail(const QString& dataFolder, const Discretion& discretion) {
    const QString path = QDir(dataFolder).filePath(LogName);
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    file.seek(std::max<qint64>(0, file.size() - MostOfLog));
    QStringList lines;
    for (const QByteArray& line : file.read(MostOfLog).split('\n')) {
        if (!line.trimmed().isEmpty()) {
            lines << discretion.Cleaned(platform::FromWindows1252(line.trimmed()));
        }
    }
    return lines.mid(std::max<qsizetype>(0, lines.size() - MostLinesOfLog));
}

}  // namespace travo::diagnostics
