#include "core/owner/FormMainObjects.h"

namespace travo {

FormMainObjects::FormMainObjects(const platform::Machine& machine, SharedState& state,
                                 clsCommunication::Listener& instruments, LiveLink::Listener& camera)
    : Failures(DebugLog.Place(), machine.boxes),
      Details(machine.clock),
      machine_(machine),
      state_(state),
      instruments_(instruments),
      camera_(camera) {}

void FormMainObjects::Create() {
    const clsCommunication::Machine links{
        {machine_.driverLibrary, machine_.clock, machine_.eventLoop, machine_.pointer},
        machine_.serialPorts,
        machine_.eventLoop};
    cCommunication.Create(links, state_, Failures, instruments_);
    cNeedleMove.Create(state_, cCommunication.Place(), cObjectiveUpDown.Place(), Failures, machine_.boxes);
    cEscape.Create(clsEscape::Machine{machine_.clock, machine_.eventLoop}, state_, cCommunication.Place(),
                   cNeedleMove.Place(), Failures);
    cNeedleSynchro.Create(cNeedleMove.Place(), cObjectiveUpDown.Place(), Failures);
    cObjectiveUpDown.Create(cCommunication.Place(), Failures);
    cMirrorMove.Create(state_, cCommunication.Place(), cObjectiveUpDown.Place(), Failures);
    cIniEdit.Create(machine_.profile);
    DebugLog.Create(machine_.clock);
    Live.Create(machine_.liveCamera, state_, camera_);
}

void FormMainObjects::Release() {
    cCommunication.Release();
    cNeedleMove.Release();
    cEscape.Release();
    cNeedleSynchro.Release();
    cObjectiveUpDown.Release();
    cMirrorMove.Release();
    cIniEdit.Release();
    DebugLog.Release();
    Live.Release();
}

}  // namespace travo
