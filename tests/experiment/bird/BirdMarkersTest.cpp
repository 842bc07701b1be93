// The markers that are shipped, pixel by pixel, and skins in which some are missing.
#include "experiment/bird/BirdMarkers.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/BirdPictures.h"

namespace travo::test {
namespace {

constexpr QRgb White = 0xFFFFFFFFU;
constexpr QRgb Black = 0xFF000000U;

class BirdMarkersTest : public testing::Test {
protected:
    using Look = std::function<void(const BirdMarker& marker, const std::string& name)>;

    void ForEach(const Look& look) const {
        for (int i = 0; i < 12; ++i) {
            look(markers.Needle(i), "needle " + std::to_string(i));
        }
        for (int i = 0; i < 16; ++i) {
            look(markers.Cell(i), "cell " + std::to_string(i));
        }
        for (const std::int16_t magnification : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
            look(markers.View(magnification), "view " + std::to_string(magnification));
        }
    }

    // How many pixels of the rectangle have this colour in the picture.
    static int Count(const BirdMarker& marker, QRgb colour, const QRect& where) {
        int count = 0;
        for (int y = where.top(); y <= where.bottom(); ++y) {
            for (int x = where.left(); x <= where.right(); ++x) {
                count += marker.picture.pixel(x, y) == colour ? 1 : 0;
            }
        }
        return count;
    }

    const BirdMarkers markers{SkinHome()};
};

TEST_F(BirdMarkersTest, EachPairHasTheSizeOfItsKindAndPlainPixels) {
    ForEach([](const BirdMarker& marker, const std::string& name) {
        for (const QImage& image : {marker.mask, marker.picture}) {
            EXPECT_EQ(image.format(), QImage::Format_RGB32) << name;
            EXPECT_EQ(image.devicePixelRatio(), 1.0) << name;
        }
        EXPECT_EQ(marker.mask.size(), marker.picture.size()) << name;
    });
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(markers.Needle(i).mask.size(), QSize(34, 27));
    }
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(markers.Cell(i).mask.size(), QSize(34, 27));
    }
    EXPECT_EQ(markers.View(2).mask.size(), QSize(102, 76));
    EXPECT_EQ(markers.View(3).mask.size(), QSize(51, 38));
    EXPECT_EQ(markers.View(1).mask.size(), QSize(23, 23));
}

TEST_F(BirdMarkersTest, TheMaskIsPureBlackAndWhiteAndThePicturesFourthByteIs0) {
    ForEach([](const BirdMarker& marker, const std::string& name) {
        int black = 0;
        int white = 0;
        for (int y = 0; y < marker.mask.height(); ++y) {
            for (int x = 0; x < marker.mask.width(); ++x) {
                const QRgb mask = RawPixel(marker.mask, x, y);
                ASSERT_TRUE(mask == Black || mask == White) << name << " at " << x << ", " << y;
                ASSERT_EQ(RawPixel(marker.picture, x, y) >> 24, 0U) << name;
                black += mask == Black ? 1 : 0;
                white += mask == White ? 1 : 0;
            }
        }
        EXPECT_GT(black, 0) << name;
        EXPECT_GT(white, 0) << name;
    });
}

TEST_F(BirdMarkersTest, TheMaskCoversThePicture) {
    ForEach([](const BirdMarker& marker, const std::string& name) {
        for (int y = 0; y < marker.mask.height(); ++y) {
            for (int x = 0; x < marker.mask.width(); ++x) {
                if (RawPixel(marker.picture, x, y) != 0) {
                    ASSERT_EQ(marker.mask.pixel(x, y), Black) << name << " at " << x << ", " << y;
                }
            }
        }
    });
}

TEST_F(BirdMarkersTest, ANeedlesShapeIsSolidRoundItsMiddleWithItsDigitToTheRight) {
    for (int i = 0; i < 12; ++i) {
        const BirdMarker& marker = markers.Needle(i);
        EXPECT_EQ(Count(marker, qRgb(255, 153, 153), QRect(7, 7, 4, 4)), 16) << i;
        EXPECT_EQ(Count(marker, qRgb(255, 153, 153), QRect(18, 0, 16, 27)), 0) << i;
        EXPECT_GT(Count(marker, qRgb(242, 154, 135), QRect(18, 0, 16, 27)), 20) << i;
        EXPECT_EQ(Count(marker, qRgb(242, 154, 135), QRect(0, 0, 18, 27)), 0) << i;
    }
}

TEST_F(BirdMarkersTest, Shape0HasItsTipUpShape1DownAndShape2IsADisc) {
    const auto inRow = [this](int marker, int row) {
        return Count(markers.Needle(marker), qRgb(255, 153, 153), QRect(0, row, 18, 1));
    };
    for (int needle = 0; needle < 4; ++needle) {
        EXPECT_LT(inRow(needle, 4), inRow(needle, 9));
        EXPECT_LT(inRow(needle, 9), inRow(needle, 13));
        EXPECT_GT(inRow(4 + needle, 4), inRow(4 + needle, 8));
        EXPECT_GT(inRow(4 + needle, 8), inRow(4 + needle, 13));
        for (int off = 1; off <= 6; ++off) {
            EXPECT_EQ(inRow(8 + needle, 8 - off), inRow(8 + needle, 9 + off)) << off;
        }
        EXPECT_GT(inRow(8 + needle, 8), inRow(8 + needle, 4));
    }
}

TEST_F(BirdMarkersTest, EachNeedleHasItsOwnDigitAndKeepsItInAllShapes) {
    const QRect right(18, 0, 16, 27);
    for (int needle = 0; needle < 4; ++needle) {
        const QImage digit = markers.Needle(needle).picture.copy(right);
        EXPECT_EQ(markers.Needle(4 + needle).picture.copy(right), digit);
        EXPECT_EQ(markers.Needle(8 + needle).picture.copy(right), digit);
        for (int other = 0; other < needle; ++other) {
            EXPECT_NE(markers.Needle(other).picture.copy(right), digit);
        }
    }
}

TEST_F(BirdMarkersTest, ACellsCrossIsSolidInItsColourInBothVariants) {
    constexpr QRgb colours[] = {qRgb(0, 204, 255),   qRgb(102, 153, 204), qRgb(255, 102, 153),
                                qRgb(255, 204, 102), qRgb(204, 204, 102), qRgb(102, 204, 102),
                                qRgb(255, 51, 51),   qRgb(255, 255, 153)};
    for (int cell = 0; cell < 8; ++cell) {
        for (const auto& [index, middle] : {std::pair{cell, 9}, {cell + 8, 25}}) {
            const QRgb colour = colours[cell];
            EXPECT_EQ(Count(markers.Cell(index), colour, QRect(middle - 7, 18, 15, 1)), 15) << index;
            EXPECT_EQ(Count(markers.Cell(index), colour, QRect(middle, 11, 1, 15)), 15) << index;
            const QRect letter(middle == 9 ? 18 : 0, 0, 16, 16);
            EXPECT_GT(Count(markers.Cell(index), colour, letter), 20) << index;
        }
    }
}

TEST_F(BirdMarkersTest, EachCellHasItsOwnLetterOnTheOtherSideInTheLeftHandedVariant) {
    const auto letter = [this](int index) {
        const QImage image = markers.Cell(index).mask;
        return index < 8 ? image.copy(17, 0, 17, 11) : image.copy(0, 0, 17, 11);
    };
    for (int cell = 0; cell < 8; ++cell) {
        for (int other = 0; other < cell; ++other) {
            EXPECT_NE(letter(other), letter(cell));
            EXPECT_NE(letter(other + 8), letter(cell + 8));
        }
    }
}

TEST_F(BirdMarkersTest, TheViewsFrameIsSolidAndOpenInTheMiddle) {
    constexpr QRgb colour = qRgb(255, 204, 176);
    for (const auto& [magnification, size, width] :
         {std::tuple{std::int16_t{2}, QSize(102, 76), 3}, {std::int16_t{3}, QSize(51, 38), 2}}) {
        const BirdMarker& view = markers.View(magnification);
        const QRect outer(QPoint(0, 0), size);
        const QRect inner = outer.adjusted(width, width, -width, -width);
        EXPECT_EQ(Count(view, colour, outer),
                  outer.width() * outer.height() - inner.width() * inner.height());
        EXPECT_EQ(Count(view, Black, inner), inner.width() * inner.height());
        EXPECT_EQ(view.mask.pixel(size.width() / 2, size.height() / 2), White);
    }
}

TEST_F(BirdMarkersTest, TheCrossOfTheViewIsThreePixelsThick) {
    constexpr QRgb colour = qRgb(255, 204, 176);
    const BirdMarker& view = markers.View(1);
    EXPECT_EQ(Count(view, colour, QRect(0, 10, 23, 3)), 69);
    EXPECT_EQ(Count(view, colour, QRect(10, 0, 3, 23)), 69);
    EXPECT_EQ(Count(view, colour, QRect(0, 0, 23, 23)), 69 + 69 - 9);
}

TEST_F(BirdMarkersTest, AnyMagnificationBut2And3HasTheCross) {
    for (const int magnification : {-32768, -1, 0, 1, 4, 32767}) {
        EXPECT_EQ(markers.View(static_cast<std::int16_t>(magnification)).mask.size(), QSize(23, 23));
    }
}

TEST_F(BirdMarkersTest, AnIndexBeyondTheTableIsAFailure) {
    for (const int index : {-1, 12, INT32_MIN, INT32_MAX}) {
        EXPECT_THROW(markers.Needle(index), BoundsFailure);
    }
    for (const int index : {-1, 16, INT32_MIN, INT32_MAX}) {
        EXPECT_THROW(markers.Cell(index), BoundsFailure);
    }
}

TEST(MarkersOfASkinTest, WithoutFilesThereIsNoPictureAndNoFailure) {
    const OwnSkin skin;
    for (const QString& folder : {skin.Home(), QStringLiteral("/nowhere"), QString()}) {
        const BirdMarkers markers(folder);
        EXPECT_TRUE(markers.Needle(11).mask.isNull());
        EXPECT_TRUE(markers.Cell(15).picture.isNull());
        EXPECT_TRUE(markers.View(2).mask.isNull());
    }
}

TEST(MarkersOfASkinTest, HalfAPairAndABrokenFileDrawNothing) {
    const OwnSkin skin;
    skin.Write(QStringLiteral("needle-00"), OwnSkin::Shipped(QStringLiteral("needle-00")));
    skin.Write(QStringLiteral("needleB-01"), OwnSkin::Shipped(QStringLiteral("needleB-01")));
    skin.Write(QStringLiteral("needle-02"), OwnSkin::Shipped(QStringLiteral("needle-02")));
    skin.Write(QStringLiteral("needleB-02"), OwnSkin::Shipped(QStringLiteral("needleB-02")).left(120));
    skin.Write(QStringLiteral("needle-03"), OwnSkin::Shipped(QStringLiteral("needle-03")));
    skin.Write(QStringLiteral("needleB-03"), OwnSkin::Shipped(QStringLiteral("needleB-03")));
    const BirdMarkers markers(skin.Home());
    for (const int index : {0, 1, 2}) {
        EXPECT_TRUE(markers.Needle(index).mask.isNull()) << index;
        EXPECT_TRUE(markers.Needle(index).picture.isNull()) << index;
    }
    EXPECT_FALSE(markers.Needle(3).mask.isNull());
    EXPECT_FALSE(markers.Needle(3).picture.isNull());
}

TEST(MarkersOfASkinTest, AFileOfAnotherSizeIsBroughtToTheMarkersSize) {
    const OwnSkin skin;
    const QByteArray mask =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" height=\"10\" viewBox=\"0 0 10 10\">"
        "<rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"#000000\"/></svg>";
    QByteArray picture = mask;
    picture.replace("#000000", "#204060");
    skin.Write(QStringLiteral("needleB-00"), mask);
    skin.Write(QStringLiteral("needle-00"), picture);
    const BirdMarkers markers(skin.Home());
    EXPECT_EQ(Differences(markers.Needle(0).mask, Filled(34, 27, Black)), 0);
    EXPECT_EQ(Differences(markers.Needle(0).picture, Filled(34, 27, 0x00204060U)), 0);
}

}  // namespace
}  // namespace travo::test
