#include "core/owner/FormMainControls.h"

#include "controls/ControlNames.h"

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

constexpr QSizeF StepButtonDesign{156, 27};
constexpr QSizeF SizeButtonDesign{24, 24};

void Prepare(SkinButton& button, QWidget* window, const QString& programFolder, const QString& skin,
             const QSizeF& design) {
    button.setParent(window);
    button.inipath(programFolder);
    button.path(skin);
    button.DesignSize(design);
}

}  // namespace

QString FormMainControls::TabName(int tab) {
    return QLatin1String(TabTexts.at(static_cast<std::size_t>(tab)).name);
}

FormMainControls::FormMainControls(const QString& programFolder, QWidget* window) {
    for (SkinTab& picture : imgTab) {
        picture.setParent(window);
    }
    Prepare(usrKVButton2[0], window, programFolder, QStringLiteral("Previous"), StepButtonDesign);
    Prepare(usrKVButton2[1], window, programFolder, QStringLiteral("Next"), StepButtonDesign);
    Prepare(usrKVCheckButton1, window, programFolder, QStringLiteral("User"), StepButtonDesign);
    Prepare(usrKVButton1, window, programFolder, QStringLiteral("size"), SizeButtonDesign);
    NameTabs(programFolder);
    NameButtons();
    for (SkinButton* const button :
         std::initializer_list<SkinButton*>{&usrKVButton2[0], &usrKVButton2[1], &usrKVCheckButton1}) {
        button->hide();
    }
}

void FormMainControls::NameTabs(const QString& programFolder) {
    for (int index = 0; index < FormMainLayout::TabPictureCount; ++index) {
        SkinTab& picture = imgTab.at(static_cast<std::size_t>(index));
        const int tab = index % 6;
        const TabText& text = TabTexts.at(static_cast<std::size_t>(tab));
        picture.StandsForSelected(index == tab);
        picture.inipath(programFolder);
        picture.path(QStringLiteral("tab-%1").arg(index, 2, 10, QLatin1Char('0')));
        picture.DesignSize(QSizeF(index < 12 ? FormMainLayout::LowerTab : FormMainLayout::UpperTab));
        Identify(picture, Indexed(QStringLiteral("imgTab"), index), TabName(tab),
                 QLatin1String(text.toolTip));
    }
}

void FormMainControls::NameButtons() {
    Identify(usrKVButton2[0], Indexed(QStringLiteral("usrKVButton2"), 0), QStringLiteral("Previous"),
             QStringLiteral("Back to the step before"));
    Identify(usrKVButton2[1], Indexed(QStringLiteral("usrKVButton2"), 1), QStringLiteral("Next"),
             QStringLiteral("On to the next step"));
    Identify(usrKVCheckButton1, QStringLiteral("usrKVCheckButton1"), QStringLiteral("User settings"),
             QStringLiteral("Show the user settings; press again to come back"));
    Identify(usrKVButton1, QStringLiteral("usrKVButton1"), QStringLiteral("Design size"),
             QStringLiteral("Bring the window back to its design size"));
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
