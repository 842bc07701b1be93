#include "platform/qt/QtSerialPortList.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "platform/qt/PortClaims.h"
#include "platform/qt/PortNames.h"

namespace travo::platform::qt {

namespace {

constexpr int FoldersUpToProduct = 6;     // from a terminal's device up to the adapter that it is part of
constexpr QLatin1String NoHardware("0");  // the type of a terminal that the driver only keeps a place for
constexpr QLatin1String BuiltIn("ttyS");

QString FirstLine(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine().trimmed()) : QString();
}

bool HasHardware(const QString& terminal) {
    return QFileInfo::exists(terminal + QStringLiteral("/device")) &&
           FirstLine(terminal + QStringLiteral("/type")) != NoHardware;
}

// What an adapter calls itself stands in a folder above that of its terminal.
QString Description(const QString& terminal) {
    QDir folder(QFileInfo(terminal + QStringLiteral("/device")).canonicalFilePath());
    for (int up = 0; up < FoldersUpToProduct; ++up) {
        if (const QString product = FirstLine(folder.filePath(QStringLiteral("product")));
            !product.isEmpty()) {
            return product;
        }
        if (!folder.cdUp()) {
            break;
        }
    }
    return {};
}

// Does not open: with the rights that this process has now.
bool MayOpen(const QString& device) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(device).constData(), R_OK | W_OK, AT_EACCESS) == 0;
}

// The number of a built-in terminal, ttyS0 being 1; else 0.
std::int16_t BuiltInNumber(const QString& name) {
    if (!name.startsWith(BuiltIn)) {
        return 0;
    }
    bool isNumber = false;
    const int index = name.sliced(BuiltIn.size()).toInt(&isNumber);
    const bool fits = isNumber && index >= 0 && index < std::numeric_limits<std::int16_t>::max();
    return fits ? static_cast<std::int16_t>(index + 1) : std::int16_t{0};
}

}  // namespace

QtSerialPortList::QtSerialPortList(Places places) : places_(std::move(places)) {}

std::vector<SerialPortList::Entry> QtSerialPortList::List() {
    claimed_ = ClaimedTerminals();
    const std::map<std::int16_t, QString> pinned = PinnedPorts(places_.programFolder);
    std::map<QString, QString> hardware = Hardware();
    const std::map<QString, QString> descriptions = hardware;
    std::vector<Entry> entries;
    for (const auto& [number, link] : pinned) {
        const QString device = PortDevice(places_.programFolder, number);
        hardware.erase(device);
        const auto known = descriptions.find(device);
        entries.push_back(EntryOf(number, device.isEmpty() ? link : device,
                                  known != descriptions.end() ? known->second : QString()));
    }
    for (const auto& [device, description] : hardware) {
        const std::int16_t number = BuiltInNumber(QFileInfo(device).fileName());
        entries.push_back(EntryOf(pinned.contains(number) ? std::int16_t{0} : number, device, description));
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        return std::tuple(a.number == 0, a.number, a.device) < std::tuple(b.number == 0, b.number, b.device);
    });
    return entries;
}

SerialPortList::Entry QtSerialPortList::EntryOf(std::int16_t number, const QString& device,
                                                const QString& description) const {
    QString whyNot;
    if (!QFileInfo::exists(device)) {
        whyNot = QStringLiteral("missing");
    } else if (!MayOpen(device)) {
        whyNot = QStringLiteral("no permission");
    } else if (claimed_.contains(device) || IsLockedByAnother(device, places_.lockFolders)) {
        whyNot = QStringLiteral("in use");
    }
    return {number, device, description, whyNot};
}

std::map<QString, QString> QtSerialPortList::Hardware() const {
    const QDir terminals(places_.terminals);
    if (!terminals.exists()) {
        throw std::runtime_error("the system gives no list of serial ports");
    }
    std::map<QString, QString> hardware;
    for (const QString& name : terminals.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString terminal = terminals.filePath(name);
        if (HasHardware(terminal)) {
            hardware.emplace(QDir(places_.devices).filePath(name), Description(terminal));
        }
    }
    return hardware;
}

}  // namespace travo::platform::qt
