#include "platform/qt/SessionBus.h"

#include <QDBusConnection>
#include <QFileInfo>
#include <QList>

#include "platform/qt/BusGreeting.h"

namespace travo::platform::qt {

namespace {

const char* const AddressVariable = "DBUS_SESSION_BUS_ADDRESS";
// An address that no bus library can reach, and for which none searches any further.
const char* const Nowhere = "disabled:";

// The value of a key in one entry of an address, as bytes of a path.
std::optional<QByteArray> Value(const QByteArray& entry, const QByteArray& key) {
    for (const QByteArray& pair : entry.mid(entry.indexOf(':') + 1).split(',')) {
        if (pair.startsWith(key + '=')) {
            return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
        }
    }
    return std::nullopt;
}

// The name of the socket in one entry; none where the bus is not behind one.
std::optional<QByteArray> SocketName(const QByteArray& entry) {
    if (!entry.startsWith("unix:")) {
        return std::nullopt;
    }
    if (const auto path = Value(entry, "path")) {
        return path;
    }
    if (const auto name = Value(entry, "abstract")) {
        return '\0' + *name;
    }
    return std::nullopt;
}

}  // namespace

QString SessionBusAddress() {
    const QString address = qEnvironmentVariable(AddressVariable);
    if (!address.isEmpty()) {
        return address;
    }
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    return QFileInfo::exists(socket) ? QStringLiteral("unix:path=") + socket : QString();
}

bool IsSilent(const QString& busAddress, std::chrono::milliseconds limit) {
    // The library takes the first entry that lets it connect.
    for (const QByteArray& entry : busAddress.toLocal8Bit().split(';')) {
        const std::optional<QByteArray> name = SocketName(entry);
        if (!name) {
            return false;
        }
        const Greeting greeting = Greet(*name, limit);
        if (greeting != Greeting::NotThere) {
            return greeting == Greeting::NotAnswered;
        }
    }
    return false;
}

SilentBusGuard::SilentBusGuard(std::chrono::milliseconds limit) {
    if (!IsSilent(SessionBusAddress(), limit)) {
        return;
    }
    isKeptAway_ = true;
    if (qEnvironmentVariableIsSet(AddressVariable)) {
        address_ = qgetenv(AddressVariable);
    }
    qputenv(AddressVariable, Nowhere);
}

void SilentBusGuard::LetGo() {
    if (!isKeptAway_) {
        return;
    }
    isKeptAway_ = false;
    // The first time settles what everybody in the toolkit gets, also those who ask later.
    QDBusConnection::sessionBus();
    if (address_) {
        qputenv(AddressVariable, *address_);
    } else {
        qunsetenv(AddressVariable);
    }
}

}  // namespace travo::platform::qt
