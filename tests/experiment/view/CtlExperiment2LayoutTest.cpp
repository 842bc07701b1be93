// Places and pictures of the controls, and how they scale with the panel.
#include <QRect>

#include "controls/SkinNames.h"
#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

struct Placed {
    const char* object;
    QRect place;
    const char* skin;
};

const std::vector<Placed> Buttons{
    {"usrKVCheckButton1(0)", {24, 40, 82, 64}, "ExpManiSelect1"},
    {"usrKVCheckButton1(1)", {113, 40, 82, 64}, "ExpManiSelect2"},
    {"usrKVCheckButton1(2)", {202, 40, 82, 64}, "ExpManiSelect3"},
    {"usrKVCheckButton1(3)", {291, 40, 82, 64}, "ExpManiSelect4"},
    {"usrKVCheckButton4(0)", {380, 40, 82, 64}, "ExpView"},
    {"usrKVCheckButton2(0)", {24, 200, 82, 64}, "ExpPosSelectA"},
    {"usrKVCheckButton2(3)", {291, 200, 82, 64}, "ExpPosSelectD"},
    {"usrKVCheckButton2(4)", {24, 278, 82, 64}, "ExpPosSelectE"},
    {"usrKVCheckButton2(7)", {291, 278, 82, 64}, "ExpPosSelectH"},
    {"usrKVCheckButton4(1)", {380, 200, 82, 142}, "ExpView"},
    {"usrKVButton1", {24, 364, 260, 72}, "ExpMove"},
    {"usrKVCheckButton3(0)", {291, 364, 82, 72}, "ExpSynchro"},
    {"usrKVCheckButton3(1)", {380, 364, 82, 72}, "ExpDirect"},
    {"usrKVButton2(0)", {24, 458, 215, 50}, "ExpEscape1"},
    {"usrKVButton2(1)", {247, 458, 215, 50}, "ExpEscape2"},
};

const std::vector<Placed> Pictures{
    {"imgMManiNo(0)", {24, 107, 82, 12}, "lamp-move"},
    {"imgMManiNo(4)", {380, 107, 82, 12}, "lamp-move"},
    {"Image2(0)", {193, 124, 100, 34}, "exparrow-0"},
    {"Image2(1)", {193, 124, 100, 34}, "exparrow-1"},
    {"Image2(3)", {193, 124, 100, 34}, "exparrow-3"},
    {"Image2(4)", {193, 124, 100, 34}, "exparrow-4"},
    {"imgMCellNo(0)", {24, 186, 82, 12}, "lamp-target"},
    {"imgMCellNo(5)", {113, 264, 82, 12}, "lamp-target"},
    {"imgMCellNo(8)", {380, 186, 82, 12}, "lamp-target"},
};

template <typename Control>
void ExpectPlaced(const CtlExperiment2Rig& bench, const Placed& placed) {
    SCOPED_TRACE(placed.object);
    const Control& control = bench.Find<Control>(QString::fromLatin1(placed.object));
    EXPECT_EQ(control.geometry(), placed.place);
    EXPECT_EQ(control.path(), QString::fromLatin1(placed.skin));
}

TEST(CtlExperiment2LayoutTest, EachControlStandsAtItsPlaceWithItsPicture) {
    CtlExperiment2Rig bench;
    bench.panel.resize(486, 520);
    for (const Placed& placed : Buttons) {
        ExpectPlaced<SkinButton>(bench, placed);
    }
    for (const Placed& placed : Pictures) {
        ExpectPlaced<SkinImage>(bench, placed);
    }
}

TEST(CtlExperiment2LayoutTest, EachControlScalesWithThePanel) {
    CtlExperiment2Rig bench;
    bench.panel.resize(972, 780);
    for (const Placed& placed : Buttons) {
        const QRect geometry = bench.Find<SkinButton>(QString::fromLatin1(placed.object)).geometry();
        EXPECT_EQ(geometry.x(), 2 * placed.place.x()) << placed.object;
        EXPECT_EQ(geometry.width(), 2 * placed.place.width()) << placed.object;
        EXPECT_NEAR(geometry.y(), 1.5 * placed.place.y(), 0.5) << placed.object;
        EXPECT_NEAR(geometry.height(), 1.5 * placed.place.height(), 1.0) << placed.object;
    }
}

TEST(CtlExperiment2LayoutTest, EveryControlNamesAPictureOfTheSkin) {
    CtlExperiment2Rig bench;
    QStringList names;
    for (const ButtonSkin& skin : ButtonSkins()) {
        names << skin.name;
    }
    for (const PictureSkin& skin : PictureSkins()) {
        names << skin.name;
    }
    const auto buttons = bench.panel.findChildren<SkinButton*>();
    const auto images = bench.panel.findChildren<SkinImage*>();
    EXPECT_EQ(buttons.size(), 19);
    EXPECT_EQ(images.size(), 19);
    for (const SkinButton* const button : buttons) {
        EXPECT_TRUE(names.contains(button->path())) << button->objectName().toStdString();
    }
    for (const SkinImage* const image : images) {
        EXPECT_TRUE(names.contains(image->path())) << image->objectName().toStdString();
    }
}

TEST(CtlExperiment2LayoutTest, EveryControlLooksForItsPicturesInTheProgramsFolder) {
    PanelRig rig;
    NoNeedles needles;
    const CtlExperiment2 panel({rig.state, rig.communication, rig.needleMove, rig.needleSynchro, rig.escape,
                                rig.mirrorMove, rig.live, rig.boxes, rig.timers, rig.failures, needles},
                               rig.ProgramFolder(), nullptr);
    for (const SkinButton* const button : panel.findChildren<SkinButton*>()) {
        EXPECT_EQ(button->inipath(), rig.ProgramFolder()) << button->objectName().toStdString();
    }
    for (const SkinImage* const image : panel.findChildren<SkinImage*>()) {
        EXPECT_EQ(image->inipath(), rig.ProgramFolder()) << image->objectName().toStdString();
    }
}

TEST(CtlExperiment2LayoutTest, TheTabKeyGoesFromWhatMovesToWhereToToTheActions) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    QStringList order;
    for (const QWidget* next = bench.Needle(0).nextInFocusChain(); next != &bench.Needle(0);
         next = next->nextInFocusChain()) {
        if (qobject_cast<const SkinButton*>(next) != nullptr) {
            order << next->accessibleName();
        }
    }
    EXPECT_EQ(order.join(QStringLiteral(", ")),
              QStringLiteral("Needle 2, Needle 3, Needle 4, View, Cell A, Cell B, Cell C, Cell D, Cell E, "
                             "Cell F, Cell G, Cell H, Present view, Move, Synchro, Direct, Objective escape, "
                             "Needle escape"));
}

TEST(CtlExperiment2LayoutTest, ADashedSlotStandsWhereThePresentViewIsHidden) {
    CtlExperiment2Rig bench;
    bench.panel.resize(486, 520);
    // Down its left edge: dashes, and the plate in the gaps between them.
    const auto slotIsPainted = [&bench] {
        const QImage picture = bench.panel.grab().toImage();
        int dashes = 0;
        int gaps = 0;
        for (int y = 220; y < 320; ++y) {
            (picture.pixelColor(381, y) == palette::Well ? gaps : dashes) += 1;
        }
        return dashes > 0 && gaps > 0;
    };
    EXPECT_FALSE(slotIsPainted());
    bench.EnterView();
    EXPECT_TRUE(slotIsPainted());
    bench.Click(bench.Needle(0));
    EXPECT_FALSE(slotIsPainted());
}

TEST(CtlExperiment2LayoutTest, ButtonsWorkByTheKeyboardAsWell) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.OnlyCalibrated(2);
    QTest::keyClick(&bench.Needle(2), Qt::Key_Space);
    EXPECT_EQ(bench.State(), "Needle 3");
    QTest::keyClick(&bench.Move(), Qt::Key_Space);
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
}

}  // namespace
}  // namespace travo::test
