// The three wires on their pseudo-terminals, and the beat that they go by.
#pragma once

#include <QTimer>
#include <functional>
#include <list>
#include <string>

#include "workbench/doors/WirePort.h"
#include "workbench/wires/Instruments.h"

namespace workbench {

// Raises std::runtime_error where a port cannot be made.
class WirePorts {
public:
    // The instruments must outlive the ports. Without a program folder no links are made.
    WirePorts(Instruments& instruments, const std::string& programFolder, const std::function<Time()>& clock);

private:
    void Beat();

    Instruments& instruments_;
    std::list<WirePort> ports_;
    QTimer beat_;
};

}  // namespace workbench
