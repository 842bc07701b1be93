// Puts a skinned control into a panel: its picture, its names and its place in one call.
#pragma once

#include <QRectF>
#include <QString>

#include "controls/ControlNames.h"
#include "controls/PanelCanvas.h"

namespace travo {

// What a layout needs to know of one control besides its rectangle: object name, accessible name,
// tooltip and skin name.
struct PlacedNames {
    QString object;
    QString human;
    QString toolTip;
    QString skin;
};

// The control becomes a child of the panel and stands at the rectangle, in design pixels. The order of
// the calls is the order of the Tab key. programFolder holds the folder skin.
template <typename Control>
void Put(PanelCanvas& panel, Control& control, const QRectF& place, const QString& programFolder,
         const PlacedNames& names) {
    control.setParent(&panel);
    control.path(names.skin);
    control.inipath(programFolder);
    Identify(control, names.object, names.human, names.toolTip);
    panel.Add(control, place);
}

}  // namespace travo
