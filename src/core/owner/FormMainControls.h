// The main window's own controls: tab pictures, step buttons, size button.
#pragma once

#include <QString>
#include <QWidget>
#include <array>

#include "controls/SkinTab.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/owner/FormMainLayout.h"
#include "core/owner/FormMainTabs.h"

namespace travo {

class FormMainControls {
public:
    // Children of the window; the step buttons are hidden at first. The folder holds the folder skin.
    FormMainControls(const QString& programFolder, QWidget* window);

    // For people. Tabs count from 0: experiment, calibration, cell position, escape, connection, user.
    static QString TabName(int tab);

    FormMainTabs::Controls ForTabs();
    // Puts all where the layout says.
    void Place(const FormMainLayout& layout);

    std::array<SkinTab, FormMainLayout::TabPictureCount> imgTab;
    std::array<usrKVButton, 2> usrKVButton2;
    usrKVCheckButton usrKVCheckButton1;
    usrKVButton usrKVButton1;
};

}  // namespace travo
