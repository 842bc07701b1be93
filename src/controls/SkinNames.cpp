#include "controls/SkinNames.h"

namespace travo {

namespace {

constexpr bool TwoState = true;
constexpr bool Push = false;

struct Family {
    const char* names;  // separated by blanks
    int width;
    int height;
    bool isTwoState;
};

constexpr Family Buttons[] = {
    {"ExpMove", 260, 72, Push},
    {"ExpManiSelect1 ExpManiSelect2 ExpManiSelect3 ExpManiSelect4 ExpView", 82, 64, TwoState},
    {"ExpPosSelectA ExpPosSelectB ExpPosSelectC ExpPosSelectD", 82, 64, TwoState},
    {"ExpPosSelectE ExpPosSelectF ExpPosSelectG ExpPosSelectH", 82, 64, TwoState},
    {"ExpSynchro ExpDirect", 82, 72, TwoState},
    {"ExpEscape1 ExpEscape2", 215, 50, Push},
    {"CalibrationMode1 CalibrationMode2", 215, 48, TwoState},
    {"SelectManipulator1 SelectManipulator2 SelectManipulator3 SelectManipulator4", 102, 48, TwoState},
    {"PositionA PositionB PositionC", 140, 56, TwoState},
    {"PositionZ PositionCenter", 438, 56, TwoState},
    {"SET TEST", 70, 52, Push},
    {"OPEN", 148, 52, Push},
    {"RESET ALLRESET", 86, 52, Push},
    {"Down Up", 42, 52, Push},
    {"CellPosSelect", 462, 52, TwoState},
    {"ONOFF", 104, 48, TwoState},
    {"UserMode1 UserMode2", 215, 48, TwoState},
    {"CtlUserWindow1 CtlUserWindow2 CtlUserWindow3 CtlUserWindow4 CtlUserWindow5", 82, 76, TwoState},
    {"Previous Next", 156, 27, Push},
    {"User", 156, 27, TwoState},
    {"MirrorUp2 MirrorUp MirrorDown MirrorDown2", 73, 36, Push},
    {"ctlmag035 ctlmag2 ctlmag4", 80, 50, TwoState},
    {"On Off", 123, 46, TwoState},
    {"BirdMode", 120, 40, TwoState},
    {"ManiLine ViewShift", 104, 40, TwoState},
    {"CLOSE size", 24, 24, Push},
};

constexpr Family Pictures[] = {
    {"tab-00 tab-01 tab-02 tab-03 tab-04 tab-05 tab-06 tab-07 tab-08 tab-09 tab-10 tab-11", 162, 36, Push},
    {"tab-12 tab-13 tab-14 tab-15 tab-16 tab-17", 162, 32, Push},
    {"pad-00 pad-01 pad-02 pad-03 pad-04 pad-05 pad-06 pad-07 pad-08 pad-09", 165, 165, Push},
    {"pad-10 pad-11 pad-12 pad-13 pad-14 pad-15 pad-16 pad-17 pad-18", 165, 165, Push},
    {"calibpos-0 calibpos-1 calibpos-2", 438, 130, Push},
    {"exparrow-0 exparrow-1 exparrow-2 exparrow-3 exparrow-4", 100, 34, Push},
    {"lamp-move lamp-target", 82, 12, Push},
    {"cellletters-0 cellletters-1", 56, 282, Push},
    {"icon-mirror icon-gauge icon-motor icon-needle icon-camera icon-plug", 24, 24, Push},
    {"icon-objective icon-zero icon-info icon-warn", 24, 24, Push},
    {"title-FormBirdView", 410, 32, Push},
    {"title-FormMirrorCtl title-FormMirrorCtl2", 276, 32, Push},
    {"title-FormManiInfo", 340, 32, Push},
    {"corner-left corner-right", 4, 4, Push},
    {"mani-connected-1 mani-connected-2 mani-connected-3 mani-connected-4", 64, 52, Push},
    {"mani-missing-1 mani-missing-2 mani-missing-3 mani-missing-4", 64, 52, Push},
    {"birdxyz", 250, 40, Push},
    {"birdparm", 80, 86, Push},
    {"xscroll-track-up xscroll-track-disabled", 182, 36, Push},
    {"xscroll-left-up xscroll-left-down xscroll-left-disabled", 36, 36, Push},
    {"xscroll-right-up xscroll-right-down xscroll-right-disabled", 36, 36, Push},
    {"xscroll-thumb-up xscroll-thumb-down xscroll-thumb-disabled", 26, 36, Push},
};

QStringList NamesOf(const Family& family) {
    return QString::fromLatin1(family.names).split(QLatin1Char(' '));
}

void AddPair(std::vector<PictureSkin>& markers, const QString& kind, const QString& number,
             const QSize& size) {
    markers.push_back({kind + QStringLiteral("B-") + number, size});
    markers.push_back({kind + QLatin1Char('-') + number, size});
}

}  // namespace

std::vector<ButtonSkin> ButtonSkins() {
    std::vector<ButtonSkin> skins;
    for (const Family& family : Buttons) {
        for (const QString& name : NamesOf(family)) {
            skins.push_back({name, QSize(family.width, family.height), family.isTwoState});
        }
    }
    return skins;
}

std::vector<PictureSkin> PictureSkins() {
    std::vector<PictureSkin> skins;
    for (const Family& family : Pictures) {
        for (const QString& name : NamesOf(family)) {
            skins.push_back({name, QSize(family.width, family.height)});
        }
    }
    return skins;
}

std::vector<PictureSkin> MarkerSkins() {
    // Needles: shape (up, down, disc) times 4 plus needle index. Cells: A to H, then the same with the
    // cross at the right. View: the field at 2x, at 4x, a plain cross.
    constexpr int needles = 12;
    constexpr int cells = 16;
    std::vector<PictureSkin> markers;
    for (int i = 0; i < needles; ++i) {
        AddPair(markers, QStringLiteral("needle"), QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')),
                {34, 27});
    }
    for (int i = 0; i < cells; ++i) {
        AddPair(markers, QStringLiteral("cell"), QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')),
                {34, 27});
    }
    AddPair(markers, QStringLiteral("view"), QStringLiteral("1"), {102, 76});
    AddPair(markers, QStringLiteral("view"), QStringLiteral("2"), {51, 38});
    AddPair(markers, QStringLiteral("view"), QStringLiteral("3"), {23, 23});
    return markers;
}

QStringList AllSkinNames() {
    QStringList names;
    for (const ButtonSkin& skin : ButtonSkins()) {
        names << skin.name + QStringLiteral("-up") << skin.name + QStringLiteral("-down")
              << skin.name + QStringLiteral("-disabled");
        if (skin.isTwoState) {
            names << skin.name + QStringLiteral("-down-disabled");
        }
    }
    for (const PictureSkin& skin : PictureSkins()) {
        names << skin.name;
    }
    for (const PictureSkin& skin : MarkerSkins()) {
        names << skin.name;
    }
    return names;
}

bool IsStretchedSkin(const QString& name) {
    return name.startsWith(QLatin1String("lamp-")) || name.startsWith(QLatin1String("cellletters-")) ||
           name == QLatin1String("birdxyz") || name == QLatin1String("birdparm") ||
           name.startsWith(QLatin1String("xscroll-track-"));
}

}  // namespace travo
