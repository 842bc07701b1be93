#include "core/owner/FormMainControls.h"

#include "controls/PanelPlacing.h"

namespace travo {

namespace {

struct TabText {
    const char* name;
    const char* toolTip;
};

// In the order of the pictures: experiment, calibration, cell position, escape, connection, user.
constexpr std::array<TabText, 6> TabTexts{{{"Experiment", "Move needles and view"},
                                           {"Calibration", "Calibrate the needles"},
                                           {"Cell position", "Store cell positions"},
                                           {"Escape", "Store escape positions"},
                                           {"Connection", "Connect the instruments"},
                                           {"User", "Settings and windows"}}};

// The window moves its controls itself: of these places the size counts alone.
constexpr QRectF StepButtonDesign(0, 0, 156, 27);
constexpr QRectF SizeButtonDesign(0, 0, 24, 24);

}  // namespace

QString FormMainControls::TabName(int tab) {
    return QLatin1String(TabTexts.at(static_cast<std::size_t>(tab)).name);
}

FormMainControls::FormMainControls(const QString& programFolder, QWidget* window) {
    for (int index = 0; index < FormMainLayout::TabPictureCount; ++index) {
        const int tab = index % 6;
        const QSize size = index < 12 ? FormMainLayout::LowerTab : FormMainLayout::UpperTab;
        imgTab.at(index).StandsForSelected(index == tab);
        Put(*window, programFolder, imgTab.at(index),
            {Indexed("imgTab", index), TabName(tab), QRectF(QPointF(), size),
             QString("tab-%1").arg(index, 2, 10, QLatin1Char('0')), TabTexts.at(tab).toolTip});
    }
    Put(*window, programFolder, usrKVButton2[0],
        {"usrKVButton2(0)", "Previous", StepButtonDesign, "Previous", "Back to the step before"});
    Put(*window, programFolder, usrKVButton2[1],
        {"usrKVButton2(1)", "Next", StepButtonDesign, "Next", "On to the next step"});
    Put(*window, programFolder, usrKVCheckButton1,
        {"usrKVCheckButton1", "User settings", StepButtonDesign, "User",
         "Show the user settings; press again to come back"});
    Put(*window, programFolder, usrKVButton1,
        {"usrKVButton1", "Design size", SizeButtonDesign, "size",
         "Bring the window back to its design size"});
    for (SkinButton* const button :
         std::initializer_list<SkinButton*>{&usrKVButton2[0], &usrKVButton2[1], &usrKVCheckButton1}) {
        button->hide();
    }
}

FormMainTabs::Controls FormMainControls::ForTabs() {
    FormMainTabs::Controls controls{};
    for (std::size_t index = 0; index < imgTab.size(); ++index) {
        controls.imgTab[index] = &imgTab[index];
    }
    controls.usrKVButton2 = {&usrKVButton2[0], &usrKVButton2[1]};
    controls.usrKVCheckButton1 = &usrKVCheckButton1;
    return controls;
}

void FormMainControls::Place(const FormMainLayout& layout) {
    for (int index = 0; index < FormMainLayout::TabPictureCount; ++index) {
        imgTab.at(static_cast<std::size_t>(index)).setGeometry(layout.Tab(index));
    }
    usrKVButton1.setGeometry(layout.SizeButton());
    usrKVButton2[0].setGeometry(layout.StepButton(0));
    usrKVButton2[1].setGeometry(layout.StepButton(1));
    usrKVCheckButton1.setGeometry(layout.StepButton(2));
}

}  // namespace travo
