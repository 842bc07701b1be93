#include "workbench/doors/WirePorts.h"

#include <algorithm>

namespace workbench {

namespace {

// While bytes are under way: four of them at 9600 baud.
constexpr int BusyBeat = 4;  // ms
// Else: soon enough for a status line, and for a port that is opened.
constexpr int QuietBeat = 20;  // ms

}  // namespace

WirePorts::WirePorts(Instruments& instruments, const std::string& programFolder,
                     const std::function<Time()>& clock)
    : instruments_(instruments) {
    for (Wire& wire : instruments_.wires) {
        ports_.emplace_back(wire, programFolder, clock, [this] { Beat(); });
    }
    beat_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&beat_, &QTimer::timeout, &beat_, [this] { Beat(); });
    beat_.start(QuietBeat);
}

void WirePorts::Beat() {
    for (WirePort& port : ports_) {
        port.Tick();
    }
    const bool busy = std::any_of(instruments_.wires.begin(), instruments_.wires.end(),
                                  [](const Wire& wire) { return wire.Busy(); });
    if (const int wanted = busy ? BusyBeat : QuietBeat; beat_.interval() != wanted) {
        beat_.setInterval(wanted);
    }
}

}  // namespace workbench
