// The system's list of serial ports, for the operator who looks for an instrument.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace travo::platform {

class SerialPortList {
public:
    struct Entry {
        std::int16_t number = 0;  // as the system counts ports, from 1; 0 for a device without a number
        QString device;           // full path; of a port whose link leads nowhere, the path of the link
        QString description;      // what the hardware calls itself; may be empty
        QString whyNot;           // "missing", "no permission" or "in use"; empty when it can be opened

        bool operator==(const Entry&) const = default;
    };

    virtual ~SerialPortList() = default;
    // Ports with numbers first, by number, then devices that have none, by path. Opens no port: a look
    // at the list disturbs no instrument. Raises std::runtime_error where the system gives no list.
    virtual std::vector<Entry> List() = 0;
};

}  // namespace travo::platform
