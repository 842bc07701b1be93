// Every picture of the skin by name: the one list that panels, windows and the check of skin/ share.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <vector>

namespace travo {

// A skin name of the buttons. Its pictures are <name>-up, -down, -disabled, and -down-disabled for a
// two-state one.
struct ButtonSkin {
    QString name;
    QSize size;  // natural size in design pixels; a control may be larger
    bool isTwoState;
};
std::vector<ButtonSkin> ButtonSkins();

// A picture that is no button.
struct PictureSkin {
    QString name;
    QSize size;
};
// Tabs, pad, arrows, lamps, letters, step pictures, icons, window parts, pieces of the scroll bar.
std::vector<PictureSkin> PictureSkins();
// The bird's-eye view's markers: masks (name with B) and pictures.
std::vector<PictureSkin> MarkerSkins();

// Names of all files of skin/, without their ending.
QStringList AllSkinNames();

// Whether the picture fills its rectangle; all others keep their proportions.
bool IsStretchedSkin(const QString& name);

}  // namespace travo
