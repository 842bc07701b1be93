#include "platform/qt/PortNames.h"

#include <QDir>
#include <QFileInfo>

namespace travo::platform::qt {

namespace {

constexpr QLatin1String Prefix("com");

QDir PortsFolder(const QString& programFolder) {
    return QDir(QDir(programFolder).filePath(QStringLiteral("ports")));
}

QString NameOf(std::int16_t number) { return Prefix + QString::number(number); }

// A name that is not written as the system itself would write it, as com01, pins nothing.
std::int16_t NumberIn(const QString& name) {
    const std::int16_t number = name.sliced(Prefix.size()).toShort();
    return number >= 1 && NameOf(number) == name ? number : std::int16_t{0};
}

}  // namespace

QString PortDevice(const QString& programFolder, std::int16_t number) {
    if (number < 1) {
        return {};
    }
    const QFileInfo pinned(PortsFolder(programFolder).filePath(NameOf(number)));
    // A link that leads nowhere does not exist for Qt, and is a link all the same.
    if (pinned.isSymbolicLink() || pinned.exists()) {
        return pinned.canonicalFilePath();
    }
    const QString device = QStringLiteral("/dev/ttyS%1").arg(number - 1);
    const QString canonical = QFileInfo(device).canonicalFilePath();
    return canonical.isEmpty() ? device : canonical;
}

std::map<std::int16_t, QString> PinnedPorts(const QString& programFolder) {
    std::map<std::int16_t, QString> pinned;
    const QDir folder = PortsFolder(programFolder);
    const auto entries = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    for (const QString& name : folder.entryList({Prefix + QLatin1Char('*')}, entries | QDir::CaseSensitive)) {
        if (const std::int16_t number = NumberIn(name); number > 0) {
            pinned.emplace(number, folder.filePath(name));
        }
    }
    return pinned;
}

}  // namespace travo::platform::qt
