#include "controls/SkinImage.h"

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

using SkinImageTest = test::ControlRig;

TEST_F(SkinImageTest, APictureTakesNoMouseAndIsAGraphic) {
    const auto lamp = Made<SkinImage>(QStringLiteral("lamp-move"), QSize(82, 12));
    EXPECT_EQ(window_.childAt(60, 24), nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(lamp.get())->role(), QAccessible::Graphic);
}

TEST_F(SkinImageTest, ALampIsStretchedToItsRectangle) {
    const auto lamp = Made<SkinImage>(QStringLiteral("lamp-move"), QSize(82, 12));
    lamp->resize(164, 12);
    EXPECT_EQ(Shot(*lamp).pixelColor(20, 4), palette::Coral);
    EXPECT_EQ(Shot(*lamp).pixelColor(144, 4), palette::Coral);
}

TEST_F(SkinImageTest, APadKeepsItsProportionsInTheMiddle) {
    const auto pad = Made<SkinImage>(QStringLiteral("pad-00"), QSize(165, 165));
    pad->resize(265, 165);
    const QImage shot = Shot(*pad);
    const auto pad00 = Made<SkinImage>(QStringLiteral("pad-00"), QSize(165, 165));
    EXPECT_EQ(shot.copy(60, 10, 140, 140), Shot(*pad00).copy(10, 10, 140, 140));
}

TEST_F(SkinImageTest, ATitleStripKeepsItsTextAtTheLeft) {
    const auto title = Made<SkinImage>(QStringLiteral("title-FormManiInfo"), QSize(340, 32));
    const QImage narrow = Shot(*title);
    title->DesignSize(QSizeF());
    title->resize(700, 32);
    EXPECT_EQ(Shot(*title).copy(12, 4, 200, 20), narrow.copy(12, 4, 200, 20));
    EXPECT_EQ(Shot(*title).pixelColor(690, 30), palette::Coral);
}

TEST_F(SkinImageTest, AMissingPictureLeavesAPlateWithTheName) {
    const auto image = Made<SkinImage>(QStringLiteral("no-such-picture"), QSize(100, 40));
    const QImage plain = Shot(*image);
    EXPECT_EQ(plain.pixelColor(50, 5), palette::Well);
    image->setAccessibleName(QStringLiteral("Arrow track"));
    EXPECT_NE(Shot(*image), plain);
}

}  // namespace travo
