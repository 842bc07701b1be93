#include "diagnostics/readers/WireReader.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <vector>

#include "diagnostics/readers/Processes.h"
#include "platform/qt/PortNames.h"

namespace travo::diagnostics {

namespace {

constexpr int FoldersUpToProduct = 6;  // from a terminal's device up to the adapter that it is part of
const QString Travo = QStringLiteral("TRAVO");

QString FirstLine(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine().trimmed()) : QString();
}

// Maker, product and serial number stand in a folder above that of the terminal.
QString AdapterOf(const QString& terminal) {
    QDir folder(QFileInfo(terminal + QStringLiteral("/device")).canonicalFilePath());
    for (int up = 0; up < FoldersUpToProduct; ++up) {
        if (const QString product = FirstLine(folder.filePath(QStringLiteral("product")));
            !product.isEmpty()) {
            const QString maker = FirstLine(folder.filePath(QStringLiteral("manufacturer")));
            const QString serial = FirstLine(folder.filePath(QStringLiteral("serial")));
            return (maker.isEmpty() ? product : maker + QLatin1Char(' ') + product) +
                   (serial.isEmpty() ? QString() : QStringLiteral(", serial ") + serial);
        }
        if (!folder.cdUp()) {
            break;
        }
    }
    return {};
}

bool IsInGroup(gid_t group) {
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(0, count)));
    return group == ::getegid() || std::find(groups.begin(), groups.end(), group) != groups.end();
}

void LookAtRights(WireFacts& facts) {
    const QByteArray path = QFile::encodeName(facts.device);
    if (::faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) == 0) {
        return;
    }
    facts.access = WireAccess::Denied;
    struct stat there {};
    constexpr mode_t GroupMay = S_IRGRP | S_IWGRP;
    if (::stat(path.constData(), &there) != 0 || (there.st_mode & GroupMay) != GroupMay ||
        IsInGroup(there.st_gid)) {
        return;
    }
    if (const group* named = ::getgrgid(there.st_gid)) {
        facts.access = WireAccess::NotInGroup;
        facts.group = QString::fromLocal8Bit(named->gr_name);
    }
}

// A built-in terminal that the driver only keeps a place for.
bool IsEmptyPlace(const QString& terminal) {
    return FirstLine(terminal + QStringLiteral("/type")) == QLatin1String("0");
}

QString WordFor(Link link) { return NameOf(link).toLower(); }

WireState StateOf(const WireFacts& facts, bool isTravoRunning) {
    if (facts.number < 1) {
        return WireState::Unset;
    }
    if (!facts.sharedWith.isEmpty()) {
        return WireState::Own;
    }
    if (facts.device.isEmpty()) {
        return facts.isPinned ? WireState::Pinned : WireState::Missing;
    }
    if (facts.access != WireAccess::Allowed) {
        return facts.access == WireAccess::NotInGroup ? WireState::Group : WireState::Denied;
    }
    if (!facts.isInUse) {
        return isTravoRunning ? WireState::FreeBesideTravo : WireState::Free;
    }
    if (isTravoRunning && facts.programs.contains(Travo)) {
        return WireState::Held;
    }
    return facts.programs.isEmpty() ? WireState::TakenTwo : WireState::Taken;
}

QString DeviceText(const WireFacts& facts) {
    QString text = facts.device.isEmpty() ? QStringLiteral("not there") : facts.device;
    text += facts.adapter.isEmpty() ? QString() : QStringLiteral(", ") + facts.adapter;
    return facts.isPinned ? text + QStringLiteral(", pinned") : text;
}

// As the links set their ports up.
QString LineText(Link link) {
    return link == Link::Gauge ? QStringLiteral("2400, 8 bits, no parity, 1 stop bit")
                               : QStringLiteral("9600, 8 bits, no parity, 1 stop bit");
}

}  // namespace

WireFacts ReadWire(std::int32_t number, const WirePlaces& places) {
    WireFacts facts;
    facts.number = number;
    if (number < 1 || number > std::numeric_limits<std::int16_t>::max()) {
        facts.number = 0;
        return facts;
    }
    const auto port = static_cast<std::int16_t>(number);
    facts.isPinned = platform::qt::PinnedPorts(places.programFolder).contains(port);
    const QString device = platform::qt::PortDevice(places.programFolder, port);
    const QString terminal = QDir(places.terminals).filePath(QFileInfo(device).fileName());
    if (device.isEmpty() || !QFileInfo::exists(device) || IsEmptyPlace(terminal)) {
        return facts;
    }
    facts.device = device;
    facts.adapter = AdapterOf(terminal);
    LookAtRights(facts);
    facts.isInUse = platform::qt::ClaimedTerminals().contains(device) ||
                    platform::qt::IsLockedByAnother(device, places.lockFolders);
    facts.programs = facts.isInUse ? ProgramsHolding(device) : QStringList();
    return facts;
}

void FindShared(WireFacts& mirror, WireFacts& gauge, WireFacts& motor) {
    const auto isSame = [](const WireFacts& first, const WireFacts& later) {
        return first.number >= 1 && later.number >= 1 &&
               (first.number == later.number || (!first.device.isEmpty() && first.device == later.device));
    };
    gauge.sharedWith = isSame(mirror, gauge) ? WordFor(Link::Mirror) : QString();
    motor.sharedWith = isSame(mirror, motor)  ? WordFor(Link::Mirror)
                       : isSame(gauge, motor) ? WordFor(Link::Gauge)
                                              : QString();
}

LinkCard WireCard(Link link, const WireFacts& facts, bool isTravoRunning, const Discretion& discretion) {
    const WireState state = StateOf(facts, isTravoRunning);
    const StateText text = Filled(TextOf(state), {{"N", QString::number(facts.number)},
                                                  {"IT", QStringLiteral("the ") + WordFor(link)},
                                                  {"WORD", WordFor(link)},
                                                  {"GROUP", facts.group},
                                                  {"REASON", QStringLiteral("permission denied")},
                                                  {"PROGRAM", discretion.Cleaned(facts.programs.value(0))},
                                                  {"OTHER", facts.sharedWith}});
    LinkCard card{link, text, {}};
    if (state != WireState::Unset) {
        card.details = {{QStringLiteral("Device"), discretion.Cleaned(DeviceText(facts))},
                        {QStringLiteral("Line"), LineText(link)}};
    }
    return card;
}

}  // namespace travo::diagnostics
