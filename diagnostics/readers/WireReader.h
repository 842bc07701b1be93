// What can be seen of an instrument's wire without opening its port.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

#include "diagnostics/words/Discretion.h"
#include "diagnostics/words/Page.h"
#include "platform/qt/PortClaims.h"

namespace travo::diagnostics {

// Where things lie; a test puts its own there.
struct WirePlaces {
    QString programFolder;
    QString terminals = QStringLiteral("/sys/class/tty");
    QStringList lockFolders = platform::qt::UsualLockFolders();
};

enum class WireAccess { Allowed, NotInGroup, Denied };

struct WireFacts {
    std::int32_t number = 0;  // of its port; below 1 where none is stored
    bool isPinned = false;    // by a link in the program folder
    QString device;           // full path, links followed; empty where nothing is there
    QString adapter;          // what the hardware calls itself, its serial number with it; may be empty
    WireAccess access = WireAccess::Allowed;
    QString group;       // that may open the device, where this user is not in it
    QString sharedWith;  // the instrument that has the same port and is connected first; empty
    bool isInUse = false;
    QStringList programs;  // that hold it open
};

WireFacts ReadWire(std::int32_t number, const WirePlaces& places);

// The mirror comes first, then gauge and motor: the later one of two on the same device finds it in use.
void FindShared(WireFacts& mirror, WireFacts& gauge, WireFacts& motor);

LinkCard WireCard(Link link, const WireFacts& facts, bool isTravoRunning, const Discretion& discretion);

}  // namespace travo::diagnostics
