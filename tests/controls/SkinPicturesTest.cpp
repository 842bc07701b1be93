#include "controls/SkinPictures.h"

#include "controls/ControlRig.h"

namespace travo {

using test::OwnSkin;
using test::SkinHome;

TEST(SkinPicturesTest, TheSamePictureIsDrawnOnce) {
    SkinPictures pictures;
    pictures.Folder(SkinHome());
    const QPixmap first = pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 1.0, 1.0);
    const QPixmap second = pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 1.0, 1.0);
    EXPECT_EQ(first.cacheKey(), second.cacheKey());
    EXPECT_EQ(pictures.PixmapsKept(), 1U);
}

TEST(SkinPicturesTest, EachSizeStateAndDisplayScaleHasItsOwn) {
    SkinPictures pictures;
    pictures.Folder(SkinHome());
    const QPixmap one = pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 1.0, 1.0);
    const QPixmap two = pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 2.0, 1.0);
    const QPixmap large = pictures.Picture(QStringLiteral("SET-up"), QSize(140, 104), 1.0, 2.0);
    const QPixmap down = pictures.Picture(QStringLiteral("SET-down"), QSize(70, 52), 1.0, 1.0);
    EXPECT_EQ(pictures.PixmapsKept(), 4U);
    EXPECT_EQ(one.size(), QSize(70, 52));
    EXPECT_EQ(two.size(), QSize(140, 104));
    EXPECT_EQ(two.devicePixelRatio(), 2.0);
    EXPECT_EQ(two.deviceIndependentSize(), QSizeF(70, 52));
    EXPECT_EQ(large.devicePixelRatio(), 1.0);
    EXPECT_NE(one.toImage(), down.toImage());
}

TEST(SkinPicturesTest, AtAFractionalDisplayScaleAPictureIsNotWiderThanItsControl) {
    SkinPictures pictures;
    pictures.Folder(SkinHome());
    EXPECT_EQ(pictures.Picture(QStringLiteral("SET-up"), QSize(71, 53), 1.5, 1.0).size(), QSize(106, 79));
}

TEST(SkinPicturesTest, TheNumberOfPixmapsKeptIsBounded) {
    SkinPictures pictures;
    pictures.Folder(SkinHome());
    const QPixmap last = pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 1.0, 1.0);
    for (int width = 71; width < 200; ++width) {
        pictures.Picture(QStringLiteral("SET-up"), QSize(width, 52), 1.0, 1.0);
        // Used again and again, so it is never the one that goes.
        EXPECT_EQ(pictures.Picture(QStringLiteral("SET-up"), QSize(70, 52), 1.0, 1.0).cacheKey(),
                  last.cacheKey());
        EXPECT_LE(pictures.PixmapsKept(), SkinPictures::MostPixmaps);
    }
    EXPECT_EQ(pictures.PixmapsKept(), SkinPictures::MostPixmaps);
}

TEST(SkinPicturesTest, AMissingOrBadPictureIsNullAndKeepsNothing) {
    const OwnSkin skin;
    skin.Write(QStringLiteral("Bad-up"), OwnSkin::Shipped(QStringLiteral("SET-up")).left(700));
    SkinPictures pictures;
    pictures.Folder(skin.Home());
    EXPECT_TRUE(pictures.Picture(QStringLiteral("Bad-up"), QSize(70, 52), 1.0, 1.0).isNull());
    EXPECT_TRUE(pictures.Picture(QStringLiteral("Missing-up"), QSize(70, 52), 1.0, 1.0).isNull());
    EXPECT_EQ(pictures.PixmapsKept(), 0U);
}

TEST(SkinPicturesTest, AnotherFolderForgetsThePicturesOfTheFirst) {
    const OwnSkin skin;
    skin.Write(QStringLiteral("SET-up"), OwnSkin::Shipped(QStringLiteral("RESET-up")));
    SkinPictures pictures;
    pictures.Folder(SkinHome());
    const QImage shipped = pictures.Picture(QStringLiteral("SET-up"), QSize(86, 52), 1.0, 1.0).toImage();
    pictures.Folder(skin.Home());
    EXPECT_NE(pictures.Picture(QStringLiteral("SET-up"), QSize(86, 52), 1.0, 1.0).toImage(), shipped);
}

}  // namespace travo
