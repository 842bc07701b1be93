// The whole machine made of stand-ins; rigs derive from it and add what they put on it.
#pragma once

#include "platform/Machine.h"
#include "support/FakeLiveCamera.h"
#include "support/FakeSerialPortList.h"
#include "support/FakeSerialPorts.h"
#include "support/StandIns.h"

namespace travo::test {

// What a test puts in the place of a stand-in; nullptr keeps the stand-in.
struct InsteadOfStandIns {
    platform::LiveCamera* camera = nullptr;
    platform::ManipulatorDriverLibrary* driverLibrary = nullptr;
};

class FakeMachine {
public:
    // The machine as the system gets it. The settings store is the test's own: there is no stand-in for it,
    // since what counts of it is the file that the next start reads.
    platform::Machine Seams(platform::PrivateProfile& profile, const InsteadOfStandIns& instead = {}) {
        platform::LiveCamera& liveCamera = instead.camera != nullptr ? *instead.camera : camera;
        platform::ManipulatorDriverLibrary& library =
            instead.driverLibrary != nullptr ? *instead.driverLibrary : driverLibrary;
        return {clock,   display, eventLoop,      folders,     liveCamera,     library, boxes,
                pointer, profile, serialPortList, serialPorts, singleInstance, timers};
    }

    // Ports of the instruments, in the order in which their links create them.
    FakeSerialPort& GaugePort() const { return *serialPorts.created.at(0); }
    FakeSerialPort& MirrorPort() const { return *serialPorts.created.at(1); }
    FakeSerialPort& MotorPort() const { return *serialPorts.created.at(2); }

    Journal journal;
    FakeBoxes boxes{journal};
    FakeClock clock;
    FakeDisplay display;
    FakeEventLoop eventLoop{clock};
    FakeFolders folders{journal};
    FakePointer pointer;
    FakeSingleInstance singleInstance{journal};
    FakeTimers timers;
    FakeDriverState driver;
    FakeDriverLibrary driverLibrary{driver, journal};
    FakeSerialPortList serialPortList;
    FakeSerialPorts serialPorts{journal};
    FakeLiveCamera camera{journal};
};

}  // namespace travo::test
