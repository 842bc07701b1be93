// The objects that the main window owns, in their order of creation and release.
#pragma once

#include "core/state/DetailsLog.h"
#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/SharedState.h"
#include "core/state/Slot.h"
#include "core/state/clsDebugLog.h"
#include "core/state/clsIniEdit.h"
#include "devices/links/clsCommunication.h"
#include "mirror/motion/clsMirrorMove.h"
#include "needle/clsEscape.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsNeedleSynchro.h"
#include "needle/clsObjectiveUpDown.h"
#include "platform/Machine.h"

namespace travo {

class FormMainObjects {
public:
    FormMainObjects(const platform::Machine& machine, SharedState& state,
                    clsCommunication::Listener& instruments, LiveLink::Listener& camera);
    ~FormMainObjects() { Release(); }
    FormMainObjects(const FormMainObjects&) = delete;
    FormMainObjects& operator=(const FormMainObjects&) = delete;

    // Creates all objects, each with references to what it uses. Failures go to the caller.
    void Create();
    // Releases all objects, in the order of creation: the instruments first, the log behind them, so that
    // a failure at the instruments' release can still be written, and the camera last.
    void Release();

    Slot<clsCommunication> cCommunication;
    Slot<clsNeedleMove> cNeedleMove;
    Slot<clsEscape> cEscape;
    Slot<clsNeedleSynchro> cNeedleSynchro;
    Slot<clsObjectiveUpDown> cObjectiveUpDown;
    Slot<clsMirrorMove> cMirrorMove;
    Slot<clsIniEdit> cIniEdit;
    Slot<clsDebugLog> DebugLog;
    // Empty until the camera program is attached; its release lets that program end.
    Slot<LiveLink> Live;

    // The handler of all objects; to be used while DebugLog lives.
    FailureHandler Failures;
    // What no operator has to be told at once.
    DetailsLog Details;

private:
    const platform::Machine& machine_;
    SharedState& state_;
    clsCommunication::Listener& instruments_;
    LiveLink::Listener& camera_;
};

}  // namespace travo
