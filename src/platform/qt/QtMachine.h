// The machine as the program runs on it: every seam on Qt.
#pragma once

#include <QString>

#include "platform/Machine.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDriverLibrary.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtFolders.h"
#include "platform/qt/QtLiveCamera.h"
#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtPrivateProfile.h"
#include "platform/qt/QtScreen.h"
#include "platform/qt/QtSerialPort.h"
#include "platform/qt/QtSerialPortList.h"

namespace travo::platform::qt {

class QtMachine {
public:
    // The folder in which the system finds its settings, driver library, skin and ports: that of the
    // running program, but for programs that build the system into themselves.
    explicit QtMachine(const QString& programFolder)
        : driverLibrary_(programFolder),
          folders_(programFolder),
          boxes_(eventLoop_),
          serialPortList_({programFolder}),
          serialPorts_(programFolder),
          singleInstance_(programFolder) {}

    Machine Seams() {
        return {clock_,   display_, eventLoop_,      folders_,     liveCamera_,     driverLibrary_, boxes_,
                pointer_, profile_, serialPortList_, serialPorts_, singleInstance_, timers_};
    }
    QtMessageBoxes& Boxes() { return boxes_; }
    QtPointer& MousePointer() { return pointer_; }

private:
    QtClock clock_;
    QtDisplay display_;
    QtEventLoop eventLoop_;
    QtDriverLibrary driverLibrary_;
    QtFolders folders_;
    QtLiveCamera liveCamera_;
    QtMessageBoxes boxes_;
    QtPointer pointer_;
    QtPrivateProfile profile_;
    QtSerialPortList serialPortList_;
    QtSerialPorts serialPorts_;
    QtSingleInstance singleInstance_;
    QtTimers timers_;
};

}  // namespace travo::platform::qt
