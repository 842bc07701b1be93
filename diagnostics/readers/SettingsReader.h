// What can be seen of settings file, data folder and log without writing anything.
#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

#include "core/state/clsIniEdit.h"
#include "diagnostics/readers/SettingsRanges.h"
#include "diagnostics/words/Discretion.h"
#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

struct SettingsFacts {
    QString file;  // full path
    bool isThere = false;
    QDateTime writtenAt;  // where it is there
    bool isFolderWritable = true;
    qint64 freeMegabytes = 0;
    std::vector<OutOfRange> outOfRange;
    QStringList copies;  // names of the copies that are kept of it, the newest last
    QString dataFolder;
    bool isLogWritable = true;
};

// `settings` reads the file of the program folder. A folder that is not there counts as writable where it can
// be made.
SettingsFacts ReadSettings(const QString& programFolder, const QString& dataFolder,
                           const clsIniEdit& settings);

LinkCard SettingsCard(const SettingsFacts& facts, const QDateTime& now, const Discretion& discretion);

// Zelvo/Shared/Data in the user's data.
QString DataFolder();

// The last lines of the log, at most 200 and of at most 64 kB, without empty ones. Nothing where there is no
// log.
QStringList LogTail(const QString& dataFolder, const Discretion& discretion);

}  // namespace travo::diagnostics
