// Where things stand on the user panel and what they are called.
#include "controls/ControlNames.h"
#include "core/view/CtlUser.h"

namespace travo {

namespace {

struct Named {
    const char* objectName;
    int index;
    const char* skin;
    const char* humanName;
    const char* toolTip;
    QRectF place;  // design pixels
};

constexpr const char* OpenOrClose = "Open or close this window";

constexpr std::array<Named, 2> Offsets{{
    {"txtOffset", 0, "", "XY offset", "Distance kept from a cell along the needle's own axis",
     QRectF(120, 40, 116, 48)},
    {"txtOffset", 1, "", "Z offset", "Distance kept above a cell", QRectF(120, 96, 116, 48)},
}};

constexpr std::array<Named, 2> Switches{{
    {"usrKVCheckButton2", 0, "ONOFF", "Offset minimum off", "Pressed: offsets below the minimum are accepted",
     QRectF(134, 194, 104, 48)},
    {"usrKVCheckButton2", 1, "ONOFF", "Contact check off",
     "Pressed: a predicted contact does not stop a needle", QRectF(358, 194, 104, 48)},
}};

constexpr std::array<Named, 2> Modes{{
    {"usrKVCheckButton3", 0, "UserMode1", "Tab mode", "Choose panels by tabs", QRectF(24, 292, 215, 48)},
    {"usrKVCheckButton3", 1, "UserMode2", "Step mode", "Go through the work step by step",
     QRectF(247, 292, 215, 48)},
}};

constexpr std::array<Named, 5> Windows{{
    {"usrKVCheckButton1", 0, "CtlUserWindow1", "Camera window", OpenOrClose, QRectF(24, 390, 82, 76)},
    {"usrKVCheckButton1", 1, "CtlUserWindow2", "Bird's-eye window", OpenOrClose, QRectF(113, 390, 82, 76)},
    {"usrKVCheckButton1", 2, "CtlUserWindow3", "Mirror window", OpenOrClose, QRectF(202, 390, 82, 76)},
    {"usrKVCheckButton1", 3, "CtlUserWindow4", "Needle window", OpenOrClose, QRectF(291, 390, 82, 76)},
    {"usrKVCheckButton1", 4, "CtlUserWindow5", "Magnification window", OpenOrClose, QRectF(380, 390, 82, 76)},
}};

void Name(QWidget& control, const Named& named) {
    Identify(control, Indexed(QLatin1String(named.objectName), named.index), QLatin1String(named.humanName),
             QLatin1String(named.toolTip));
}

template <std::size_t Count>
void BuildTwoState(std::array<usrKVCheckButton*, Count>& buttons, const std::array<Named, Count>& table,
                   PanelCanvas& panel, const QString& programFolder) {
    for (std::size_t index = 0; index < Count; ++index) {
        auto* const button = new usrKVCheckButton(&panel);
        buttons.at(index) = button;
        const Named& named = table.at(index);
        button->path(QLatin1String(named.skin));
        button->inipath(programFolder);
        Name(*button, named);
        panel.Add(*button, named.place);
    }
}

// Two lines of a name beside a switch whose top is 194.
void PaintTwoLines(PanelCanvas& panel, double x, const QString& upper, const QString& lower) {
    panel.Paint(PaintedText{x, 209.1, upper, type::NameSmall});
    panel.Paint(PaintedText{x, 227.6, lower, type::NameSmall});
}

}  // namespace

void CtlUser::BuildPaint() {
    Paint(Plate{QRectF(12, 12, 462, 144)});
    Paint(CaptionText(24, 18, QStringLiteral("Offsets")));
    Paint(NameText(24, 40, 48, QStringLiteral("XY offset")));
    Paint(NameText(24, 96, 48, QStringLiteral("Z offset")));
    Paint(PaintedText{272, 120, QStringLiteral("min."), 14, QFont::Normal, palette::Ink2, Qt::AlignRight});
    Paint(Plate{QRectF(12, 166, 462, 88)});
    Paint(CaptionText(24, 172, QStringLiteral("Safeguards")));
    PaintTwoLines(*this, 24, QStringLiteral("Offset"), QStringLiteral("minimum"));
    PaintTwoLines(*this, 258, QStringLiteral("Contact"), QStringLiteral("check"));
    Paint(Plate{QRectF(12, 264, 462, 88)});
    Paint(CaptionText(24, 270, QStringLiteral("Way of working")));
    Paint(Plate{QRectF(12, 362, 462, 116)});
    Paint(CaptionText(24, 368, QStringLiteral("Windows")));
}

void CtlUser::BuildOffsets(const QString& programFolder) {
    for (std::size_t index = 0; index < offsets_.size(); ++index) {
        auto* const box = new NumberBox(this);
        offsets_.at(index) = box;
        ShowOffset(*box, 0);
        Name(*box, Offsets.at(index));
        Add(*box, Offsets.at(index).place);
    }
    minimum_ = new NumberLabel(this, type::NumberSmall);
    Identify(*minimum_, QStringLiteral("lblMinVal"), QStringLiteral("Minimum Z offset"));
    Add(*minimum_, QRectF(280, 96, 84, 48));

    apply_ = new usrKVButton(this);
    apply_->path(QStringLiteral("SET"));
    apply_->inipath(programFolder);
    Identify(*apply_, QStringLiteral("usrKVButton1"), QStringLiteral("Apply offsets"),
             QStringLiteral("Use these two offsets"));
    Add(*apply_, QRectF(376, 40, 86, 104));
}

void CtlUser::BuildSafeguards(const QString& programFolder) {
    BuildTwoState(switches_, Switches, *this, programFolder);
}

void CtlUser::BuildModes(const QString& programFolder) { BuildTwoState(modes_, Modes, *this, programFolder); }

void CtlUser::BuildWindows(const QString& programFolder) {
    BuildTwoState(windows_, Windows, *this, programFolder);
}

void CtlUser::BuildVersion() {
    version_ = new NumberLabel(this, type::Caption, QFont::Normal, NumberLabel::Ground::Bare);
    version_->Colour(palette::Ink2);
    version_->setText(QStringLiteral("Version %1.%2").arg(TRAVO_VERSION_MAJOR).arg(TRAVO_VERSION_MINOR));
    Identify(*version_, QStringLiteral("lblVersion"), QStringLiteral("Version"));
    Add(*version_, QRectF(262, 482, 200, 24));
}

}  // namespace travo
