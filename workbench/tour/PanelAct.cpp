#include "workbench/tour/PanelAct.h"

#include "workbench/tour/Handling.h"
#include "workbench/tour/PanelCellAct.h"
#include "workbench/tour/PanelConnectAct.h"
#include "workbench/tour/PanelMoveAct.h"
#include "workbench/tour/PanelPlay.h"
#include "workbench/tour/PanelSynchroAct.h"
#include "workbench/tour/PanelUserAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

void PlayPanelAct(Stage& stage) {
    PrintHeading("Act 3: the operator at the panels");
    stage.OpenProgram();
    PanelPlay play{stage, Hands(stage), {}};
    play.hands.TakeTheKeys();
    PlayPanelConnectAct(play);
    PlayPanelCellAct(play);
    PlayPanelMoveAct(play);
    PlayPanelUserAct(play);
    PlayPanelSynchroAct(play);
    RequireNoCrossing(stage);
    stage.CloseProgram();
    PrintLine("closed through its question; no true crossing in the whole act");
}

}  // namespace workbench::tour
