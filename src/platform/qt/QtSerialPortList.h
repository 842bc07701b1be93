// The system's serial ports, from its device tree and the links of the program folder.
#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <set>

#include "platform/SerialPortList.h"
#include "platform/qt/PortClaims.h"

namespace travo::platform::qt {

// Qt's own list opens some of the ports that it lists, so this one reads the device tree itself. A
// port is in use where opening it would be refused: where another living process is named in its lock file,
// or a process, this one or another, has claimed it for itself.
class QtSerialPortList : public SerialPortList {
public:
    // Where things lie on the system; a test puts its own there.
    struct Places {
        QString programFolder;
        QString terminals = QStringLiteral("/sys/class/tty");
        QString devices = QStringLiteral("/dev");
        QStringList lockFolders = UsualLockFolders();
    };

    explicit QtSerialPortList(Places places);
    std::vector<Entry> List() override;

private:
    Entry EntryOf(std::int16_t number, const QString& device, const QString& description) const;
    // Device paths of all terminals with hardware behind them, each with its description.
    std::map<QString, QString> Hardware() const;

    Places places_;
    std::set<QString> claimed_;  // terminals, as the present list found them
};

}  // namespace travo::platform::qt
