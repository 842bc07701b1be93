// All that the system asks of the machine, one interface each.
#pragma once

namespace travo::platform {

class Clock;
class Display;
class EventLoop;
class Folders;
class LiveCamera;
class ManipulatorDriverLibrary;
class MessageBoxes;
class Pointer;
class PrivateProfile;
class SerialPortList;
class SerialPorts;
class SingleInstance;
class Timers;

// References only: whoever builds the machine keeps it alive longer than the system on it.
struct Machine {
    Clock& clock;
    Display& display;
    EventLoop& eventLoop;
    Folders& folders;
    LiveCamera& liveCamera;
    ManipulatorDriverLibrary& driverLibrary;
    MessageBoxes& boxes;
    Pointer& pointer;
    PrivateProfile& profile;
    SerialPortList& serialPortList;
    SerialPorts& serialPorts;
    SingleInstance& singleInstance;
    Timers& timers;
};

}  // namespace travo::platform
