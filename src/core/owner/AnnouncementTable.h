// Who hears what, and in which order.
#pragma once

#include <vector>

#include "core/state/News.h"
#include "devices/links/HearsPorts.h"

namespace travo {

// One list for each announcement, in the order in which its listeners are told.
struct AnnouncementTable {
    std::vector<HearsMagnification*> magnification;
    std::vector<HearsView*> view;
    std::vector<HearsTick*> tick;
    std::vector<HearsTotalManipulatorNumber*> totalManipulatorNumber;
    std::vector<HearsManipulatorChange*> manipulatorChange;
    std::vector<HearsNeedle*> needle;
    std::vector<HearsZeroPosition*> zeroPosition;
    std::vector<HearsCell*> cell;
    std::vector<HearsCalibTime*> calibTime;
    std::vector<HearsMirror*> mirror;
    std::vector<HearsMirrorMotors*> mirrorMotors;
    std::vector<HearsFocusMotor*> focusMotor;
    std::vector<HearsPortLost*> portLost;
    std::vector<HearsLineDropped*> lineDropped;
    std::vector<HearsStill*> still;
    std::vector<HearsCameraHidden*> cameraHidden;
    std::vector<HearsCameraGone*> cameraGone;
    std::vector<HearsFormClose*> formClose;
};

// The one table of the system. `to` has a member for each listener, named as the panel, window or object for
// which it hears; what is listed outlives the table. A template, so that the table stands here without its
// widgets.
template <typename Listeners>
AnnouncementTable WhoHearsWhat(Listeners& to) {
    AnnouncementTable table;
    table.magnification = {&to.MirrorCtl2,     &to.MirrorCtl, &to.BirdView,
                           &to.CtlExperiment1, &to.Live,      &to.CtlCalibration1};
    table.view = {&to.BirdView, &to.cEscape};
    table.tick = {&to.CtlExperiment1};
    table.totalManipulatorNumber = {&to.CtlConnection1, &to.CtlCalibration1, &to.CtlExperiment1,
                                    &to.ManiInfo};
    table.manipulatorChange = {&to.CtlCalibration1, &to.CtlExperiment1};
    table.needle = {&to.BirdView};
    table.zeroPosition = {&to.CtlCellPosition1, &to.CtlEscape1};
    table.cell = {&to.BirdView};
    table.calibTime = {&to.ManiInfo};
    table.mirror = {&to.BirdView};
    table.mirrorMotors = {&to.CtlExperiment1, &to.MirrorCtl, &to.MirrorCtl2};
    table.focusMotor = {&to.CtlConnection1};
    table.portLost = {&to.CtlConnection1};
    table.lineDropped = {&to.Details};
    table.still = {&to.Still};
    table.cameraHidden = {&to.CtlUser1};
    table.cameraGone = {&to.CtlUser1, &to.CtlConnection1};
    table.formClose = {&to.CtlUser1};
    return table;
}

}  // namespace travo
