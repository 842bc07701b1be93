// The panels of the main window, one of each.
#pragma once

#include <QString>
#include <QWidget>
#include <array>

#include "core/owner/FormMainObjects.h"
#include "core/owner/FormMainTabs.h"
#include "core/state/NeedleReader.h"
#include "core/state/SharedState.h"
#include "core/view/CtlUser.h"
#include "devices/view/CtlConnection.h"
#include "experiment/view/CtlCellPosition.h"
#include "experiment/view/CtlExperiment2.h"
#include "platform/Machine.h"
#include "workflows/CtlCalibration.h"
#include "workflows/CtlEscape.h"

namespace travo {

// All are children of the window, named as their tabs and hidden at first; they go with this object, before
// the window.
class FormMainPanels {
public:
    struct Owner {
        CtlUser::Owner& user;
        CtlCellPosition::Owner& cellPosition;
        CtlCalibration::Owner& calibration;
        CtlEscape::Owner& escape;
        CtlConnection::Owner& connection;
        NeedleReader& needle;
    };

    // The objects are alive.
    FormMainPanels(const platform::Machine& machine, SharedState& state, FormMainObjects& objects,
                   const Owner& owner, QWidget* window);

    FormMainTabs::Panels ForTabs();
    // The rectangle that they share.
    void Place(const QRect& rectangle);

    CtlExperiment2 CtlExperiment1;
    CtlCalibration CtlCalibration1;
    CtlCellPosition CtlCellPosition1;
    CtlEscape CtlEscape1;
    CtlConnection CtlConnection1;
    CtlUser CtlUser1;

private:
    // In the order of the tabs.
    std::array<QWidget*, 6> All();
};

}  // namespace travo
