// What the system's own calls tell of a serial line, beyond what Qt tells.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace travo::platform::qt {

// The Clear To Send line of an open port.
struct ClearToSend {
    bool on = false;
    // Changes since the driver was loaded, where the driver counts them: it sees the pulse that is over
    // before anyone asks for the level.
    std::optional<int> changes;

    bool operator==(const ClearToSend&) const = default;
};

// Asks the line behind an open descriptor. Nothing where it has no modem signals, as a
// pseudo-terminal and many adapters, or where its device is gone.
using ReadClearToSend = std::function<std::optional<ClearToSend>(int descriptor)>;
std::optional<ClearToSend> ClearToSendOf(int descriptor);

// The line takes at least one byte at once.
bool TakesBytes(int descriptor);

// Looks whether someone has claimed a device for himself. The system refuses to open such a device,
// but not to a privileged user; this tells him as well. The device stays open, with nothing changed,
// until this object ends: closing it in between would drop the signals of the line for a moment.
class ExclusiveClaim {
public:
    explicit ExclusiveClaim(const QString& device);
    ~ExclusiveClaim();
    ExclusiveClaim(const ExclusiveClaim&) = delete;
    ExclusiveClaim& operator=(const ExclusiveClaim&) = delete;

    bool Claimed() const { return claimed_; }

private:
    int descriptor_ = -1;
    bool claimed_ = false;
};

}  // namespace travo::platform::qt
