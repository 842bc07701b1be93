// The system's serial ports, from its device tree and the links of the program folder.
#pragma once

#include <QString>
#include <QStringList>
#include <map>

#include "platform/SerialPortList.h"

namespace travo::platform::qt {

// Qt's own list opens some of the ports that it lists, so this one reads the device tree itself. A
// port is in use where a living process is named in its lock file; who opens a port without one, as
// many small tools do, is found out only by opening it.
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

    // The folders in which programs, Qt's serial ports among them, keep their lock files.
    static QStringList UsualLockFolders();

private:
    Entry EntryOf(std::int16_t number, const QString& device, const QString& description) const;
    // Device paths of all terminals with hardware behind them, each with its description.
    std::map<QString, QString> Hardware() const;
    bool InUse(const QString& device) const;

    Places places_;
};

}  // namespace travo::platform::qt
