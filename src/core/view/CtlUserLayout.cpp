// Where things stand on the user panel and what they are called. In design pixels.
#include "controls/PanelPlacing.h"
#include "core/view/CtlUser.h"

namespace travo {

namespace {

const QString OpenOrClose = QStringLiteral("Open or close this window");

// Two lines of a name beside a switch whose top is 194.
void PaintTwoLines(PanelCanvas& panel, double x, const QString& upper, const QString& lower) {
    panel.Paint(PaintedText{x, 209.1, upper, type::NameSmall});
    panel.Paint(PaintedText{x, 227.6, lower, type::NameSmall});
}

}  // namespace

// The order of placing is the order of the Tab key.
void CtlUser::Place() {
    PlacePaint();
    PlaceOffsets();
    PlaceSwitches();
    PlaceWindows();
    PlaceVersion();
}

void CtlUser::PlacePaint() {
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

void CtlUser::PlaceOffsets() {
    Put(*this, offsets_[OffsetXY],
        {"txtOffset(0)", "XY offset", QRectF(120, 40, 116, 48), NoSkin,
         "Distance kept from a cell along the needle's own axis"});
    Put(*this, offsets_[OffsetZ],
        {"txtOffset(1)", "Z offset", QRectF(120, 96, 116, 48), NoSkin, "Distance kept above a cell"});
    for (NumberBox& box : offsets_) {
        ShowOffset(box, 0);
    }
    minimum_.Face(type::NumberSmall);
    Put(*this, minimum_, {"lblMinVal", "Minimum Z offset", QRectF(280, 96, 84, 48)});
    Put(*this, apply_,
        {"usrKVButton1", "Apply offsets", QRectF(376, 40, 86, 104), "SET", "Use these two offsets"});
}

void CtlUser::PlaceSwitches() {
    Put(*this, switches_[OffsetSwitch],
        {"usrKVCheckButton2(0)", "Offset minimum off", QRectF(134, 194, 104, 48), "ONOFF",
         "Pressed: offsets below the minimum are accepted"});
    Put(*this, switches_[ContactSwitch],
        {"usrKVCheckButton2(1)", "Contact check off", QRectF(358, 194, 104, 48), "ONOFF",
         "Pressed: a predicted contact does not stop a needle"});
    Put(*this, modes_[TabMode],
        {"usrKVCheckButton3(0)", "Tab mode", QRectF(24, 292, 215, 48), "UserMode1", "Choose panels by tabs"});
    Put(*this, modes_[StepMode],
        {"usrKVCheckButton3(1)", "Step mode", QRectF(247, 292, 215, 48), "UserMode2",
         "Go through the work step by step"});
}

void CtlUser::PlaceWindows() {
    const std::array<QString, WindowCount> names{"Camera window", "Bird's-eye window", "Mirror window",
                                                 "Needle window", "Magnification window"};
    Put(*this, windows_, [&names](int window) {
        return Placed{Indexed("usrKVCheckButton1", window), names.at(window),
                      QRectF(24 + 89.0 * window, 390, 82, 76), QString("CtlUserWindow%1").arg(window + 1),
                      OpenOrClose};
    });
}

void CtlUser::PlaceVersion() {
    version_.Face(type::Caption, QFont::Normal, NumberLabel::Ground::Bare);
    version_.Colour(palette::Ink2);
    version_.setText(QStringLiteral("Version %1.%2").arg(TRAVO_VERSION_MAJOR).arg(TRAVO_VERSION_MINOR));
    Put(*this, version_, {"lblVersion", "Version", QRectF(262, 482, 200, 24)});
}

}  // namespace travo
