#include "core/owner/FormMainPanels.h"

#include "core/owner/FormMainControls.h"
#include "platform/Folders.h"

namespace travo {

namespace {

template <typename Panel>
FormMainTabs::Panel ForTab(Panel& panel) {
    return {&panel, &panel};
}

}  // namespace

FormMainPanels::FormMainPanels(const platform::Machine& machine, SharedState& state, FormMainObjects& objects,
                               const Owner& owner, QWidget* window)
    : CtlExperiment1({state, *objects.cCommunication, *objects.cNeedleMove, *objects.cNeedleSynchro,
                      *objects.cEscape, *objects.cMirrorMove, *objects.Live, machine.boxes, machine.timers,
                      objects.Failures, owner.needle},
                     machine.folders.Program(), window),
      CtlCalibration1({state, *objects.cCommunication, *objects.cNeedleMove, *objects.cIniEdit, *objects.Live,
                       objects.Failures, machine.clock, machine.timers, owner.calibration, owner.needle},
                      machine.folders.Program(), window),
      CtlCellPosition1({state, *objects.cCommunication, *objects.Live, owner.cellPosition},
                       machine.folders.Program(), window),
      CtlEscape1(
          {state, *objects.cCommunication, *objects.cEscape, *objects.Live, owner.needle, owner.escape},
          machine.folders.Program(), window),
      CtlConnection1({state, *objects.cCommunication, *objects.cIniEdit, *objects.Live, objects.Failures,
                      machine.pointer, machine.serialPortList, machine.timers, owner.connection},
                     machine.folders.Program(), window),
      CtlUser1({state, *objects.Live, *objects.cNeedleMove, *objects.cObjectiveUpDown, objects.Failures,
                machine.profile, machine.folders, owner.user},
               machine.folders.Program(), window) {
    int tab = 0;
    for (QWidget* const panel : All()) {
        panel->setAccessibleName(FormMainControls::TabName(tab++));
        panel->hide();
    }
}

std::array<QWidget*, 6> FormMainPanels::All() {
    return {&CtlExperiment1, &CtlCalibration1, &CtlCellPosition1, &CtlEscape1, &CtlConnection1, &CtlUser1};
}

FormMainTabs::Panels FormMainPanels::ForTabs() {
    FormMainTabs::Panels panels;
    panels.calibration = ForTab(CtlCalibration1);
    panels.escape = ForTab(CtlEscape1);
    panels.cellPosition = ForTab(CtlCellPosition1);
    panels.connection = ForTab(CtlConnection1);
    panels.experiment = ForTab(CtlExperiment1);
    panels.user = ForTab(CtlUser1);
    return panels;
}

void FormMainPanels::Place(const QRect& rectangle) {
    for (QWidget* const panel : All()) {
        panel->setGeometry(rectangle);
    }
}

}  // namespace travo
