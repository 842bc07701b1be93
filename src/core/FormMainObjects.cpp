#include "core/FormMainObjects.h"

namespace travo {

FormMainObjects::FormMainObjects(const platform::Machine& machine, SharedState& state)
    : Failures(DebugLog.Place(), machine.boxes), machine_(machine), state_(state) {}

void FormMainObjects::Create() {
    const clsManipulator::Machine manipulatorMachine{machine_.driverLibrary, machine_.clock,
                                                     machine_.eventLoop, machine_.pointer};
    cCommunication.Create(manipulatorMachine, Failures);
    cNeedleMove.Create(state_, cCommunication.Place(), cObjectiveUpDown.Place(), Failures, machine_.boxes);
    cNeedleSynchro.Create(cNeedleMove.Place(), cObjectiveUpDown.Place(), Failures);
    cObjectiveUpDown.Create();
    cIniEdit.Create(machine_.profile);
    DebugLog.Create(machine_.clock);
}

void FormMainObjects::Release() {
    cCommunication.Release();
    cNeedleMove.Release();
    cNeedleSynchro.Release();
    cObjectiveUpDown.Release();
    cIniEdit.Release();
    DebugLog.Release();
}

}  // namespace travo
