// How a control comes onto a panel or window: one row says all of it, one call puts it there.
#pragma once

#include <QRectF>
#include <QString>
#include <QWidget>
#include <array>

#include "controls/ControlNames.h"
#include "controls/DesignSized.h"
#include "controls/PanelCanvas.h"

namespace travo {

// One row of a layout. What a control has no use for is left out: a value has no skin, a lamp no tooltip.
struct Placed {
    QString object = {};   // the control's own name with its index, as in "usrKVButton1(2)"
    QString human = {};    // how people and screen readers call it
    QRectF place = {};     // design pixels of the panel
    QString skin = {};     // the picture, or what the names of a button's pictures begin with
    QString toolTip = {};  // what it does, in one sentence
};

// For a number box, which has a tooltip and no picture.
inline constexpr const char* NoSkin = "";

// For a window that moves its controls itself: of the place the size alone counts, as the design size. A
// control without one stands at scale 1. The control becomes a child of the window, and the last one that the
// Tab key comes to. programFolder holds the folder skin.
template <typename Control>
void Put(QWidget& window, const QString& programFolder, Control& control, const Placed& placed) {
    control.setParent(&window);
    if constexpr (requires { control.path(placed.skin); }) {
        control.path(placed.skin);
    }
    if constexpr (requires { control.inipath(programFolder); }) {
        control.inipath(programFolder);
    }
    if constexpr (requires { control.DesignSize(placed.place.size()); }) {
        if (!placed.place.isEmpty()) {
            control.DesignSize(placed.place.size());
        }
    }
    Identify(control, placed.object, placed.human, placed.toolTip);
}

// The control becomes a child of the panel, stands at its place and has its pictures from where the panel has
// its own. The order of the calls is the order of the Tab key and of the accessible tree.
template <typename Control>
void Put(PanelCanvas& panel, Control& control, const Placed& placed) {
    Put(panel, panel.inipath(), control, placed);
    panel.Add(control, placed.place);
}

// A row or grid of controls: `row` gives the Placed of each index, from 0.
template <typename Control, std::size_t Count, typename Row>
void Put(PanelCanvas& panel, std::array<Control, Count>& controls, Row row) {
    for (std::size_t index = 0; index < Count; ++index) {
        Put(panel, controls[index], row(static_cast<int>(index)));
    }
}

}  // namespace travo
