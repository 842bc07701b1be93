#include "launcher/Pins.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <stdexcept>

namespace travo::launcher {

namespace {

[[noreturn]] void Fail(const QString& sentence) { throw std::runtime_error(sentence.toStdString()); }

// The first link of the folder, by name, that leads to the device.
QString LinkTo(const QString& canonical, const QDir& folder) {
    for (const QFileInfo& link :
         folder.entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot, QDir::Name)) {
        if (link.isSymLink() && link.canonicalFilePath() == canonical) {
            return link.absoluteFilePath();
        }
    }
    return {};
}

}  // namespace

std::optional<std::int16_t> PortNumberOf(const QString& instrument) {
    constexpr struct {
        QLatin1String word;
        std::int16_t number;
    } Instruments[] = {
        {QLatin1String("mirror"), 1}, {QLatin1String("gauge"), 2}, {QLatin1String("motor"), 3}};
    for (const auto& known : Instruments) {
        if (instrument == known.word) {
            return known.number;
        }
    }
    return std::nullopt;
}

QString LastingName(const QString& device, const QString& names) {
    const QDir folder(names);
    if (QFileInfo(device).absoluteFilePath().startsWith(folder.absolutePath() + QLatin1Char('/'))) {
        return QFileInfo(device).absoluteFilePath();
    }
    const QString canonical = QFileInfo(device).canonicalFilePath();
    for (const char* const kind : {"by-id", "by-path"}) {
        const QString link = LinkTo(canonical, QDir(folder.filePath(QLatin1String(kind))));
        if (!link.isEmpty()) {
            return link;
        }
    }
    return QFileInfo(device).absoluteFilePath();
}

void Pin(const QString& programFolder, std::int16_t number, const QString& target) {
    const QDir ports(QDir(programFolder).filePath(QStringLiteral("ports")));
    const QString name = ports.filePath(QStringLiteral("com%1").arg(number));
    const QFileInfo present(name);
    if (present.exists() && !present.isSymLink()) {
        Fail(QStringLiteral("%1 is no link, so it stays as it is.").arg(name));
    }
    const QString unfinished = name + QStringLiteral(".new");
    QFile::remove(unfinished);
    if (!ports.mkpath(QStringLiteral(".")) || !QFile::link(target, unfinished) ||
        std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(name).constData()) != 0) {
        Fail(QStringLiteral("%1 cannot be written.").arg(name));
    }
}

}  // namespace travo::launcher
