#include "controls/SkinDrawing.h"

#include "controls/ControlRig.h"

namespace travo {

using test::OwnSkin;

namespace {

// A face with four corner squares of 12 and a middle in another colour; a glyph of 20 x 10 in the middle
// of 60 x 40.
constexpr char Sample[] =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"40\" viewBox=\"0 0 60 40\">"
    "<g id=\"face\"><rect x=\"0\" y=\"0\" width=\"60\" height=\"40\" fill=\"#0000FF\"/>"
    "<rect x=\"0\" y=\"0\" width=\"12\" height=\"12\" fill=\"#FF0000\"/>"
    "<rect x=\"48\" y=\"28\" width=\"12\" height=\"12\" fill=\"#FF0000\"/></g>"
    "<g id=\"%1\"><rect x=\"0\" y=\"0\" width=\"60\" height=\"40\" fill=\"none\"/>"
    "<rect x=\"20\" y=\"15\" width=\"20\" height=\"10\" fill=\"#00FF00\"/></g></svg>";

SkinFile File(const QString& glyph = QStringLiteral("glyph")) {
    return ParseSkinFile(QString::fromLatin1(Sample).arg(glyph).toUtf8());
}

QRect Extent(const QImage& image, const QColor& colour) {
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                extent |= QRect(x, y, 1, 1);
            }
        }
    }
    return extent;
}

int Count(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

}  // namespace

TEST(SkinDrawingTest, NinePartBordersKeepTheirSizeWhereTheControlIsLarger) {
    SkinDrawing drawing(File());
    for (const QSize& size : {QSize(60, 40), QSize(200, 40), QSize(60, 150), QSize(300, 222)}) {
        const QImage image = drawing.Draw(size, 1.0, SkinFit::Proportion);
        EXPECT_EQ(Count(image, Qt::red), 2 * 12 * 12);
        EXPECT_EQ(Extent(image.copy(0, 0, size.width() / 2, size.height() / 2), Qt::red),
                  QRect(0, 0, 12, 12));
    }
}

TEST(SkinDrawingTest, BordersGrowWithTheScale) {
    SkinDrawing drawing(File());
    EXPECT_EQ(Count(drawing.Draw(QSize(400, 200), 2.0, SkinFit::Proportion), Qt::red), 2 * 24 * 24);
}

TEST(SkinDrawingTest, BordersTakeAtMostAThirdOfASide) {
    SkinDrawing drawing(File());
    const QImage image = drawing.Draw(QSize(30, 40), 1.0, SkinFit::Proportion);
    // 10 of the corner's 12 columns stand as drawn, the two others are squeezed with the middle.
    EXPECT_EQ(Extent(image.copy(0, 0, 15, 20), Qt::red).size(), QSize(11, 12));
}

TEST(SkinDrawingTest, TheGlyphIsNeverDistortedAndStandsInTheMiddle) {
    SkinDrawing drawing(File());
    for (const QSize& size : {QSize(60, 40), QSize(200, 40), QSize(60, 150), QSize(300, 222)}) {
        const QRect glyph = Extent(drawing.Draw(size, 1.0, SkinFit::Proportion), Qt::green);
        EXPECT_EQ(glyph.size(), QSize(20, 10));
        EXPECT_EQ(glyph.topLeft(), QPoint((size.width() - 20) / 2, (size.height() - 10) / 2));
    }
}

TEST(SkinDrawingTest, AGlyphLeftKeepsToTheLeftEdge) {
    SkinDrawing drawing(File(QStringLiteral("glyph-left")));
    const QRect glyph = Extent(drawing.Draw(QSize(200, 40), 1.0, SkinFit::Proportion), Qt::green);
    EXPECT_EQ(glyph, QRect(20, 15, 20, 10));
}

TEST(SkinDrawingTest, APictureWithoutGroupsIsDrawnInProportionOrStretched) {
    const QByteArray bytes =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"10\" viewBox=\"0 0 20 10\">"
        "<rect x=\"0\" y=\"0\" width=\"20\" height=\"10\" fill=\"#00FF00\"/></svg>";
    SkinDrawing drawing(ParseSkinFile(bytes));
    const QSize size(40, 60);
    EXPECT_EQ(Extent(drawing.Draw(size, 1.0, SkinFit::Proportion), Qt::green), QRect(0, 20, 40, 20));
    EXPECT_EQ(Extent(drawing.Draw(size, 1.0, SkinFit::Stretch), Qt::green), QRect(0, 0, 40, 60));
}

TEST(SkinDrawingTest, TwiceTheScaleIsDrawnAnewAndNotBlownUp) {
    SkinDrawing drawing(ParseSkinFile(OwnSkin::Shipped(QStringLiteral("ExpMove-up"))));
    const QImage once = drawing.Draw(QSize(260, 72), 1.0, SkinFit::Proportion);
    const QImage twice = drawing.Draw(QSize(520, 144), 2.0, SkinFit::Proportion);
    // A blown-up edge is as soft as its source: it has about four times as many half-covered pixels.
    const auto pure = [](const QImage& image) { return Count(image, QColor(0x18, 0x27, 0x33)); };
    EXPECT_GT(pure(twice), 4 * pure(once));
}

TEST(SkinDrawingTest, AnEmptyRectangleAndAnInvalidPictureDrawNothing) {
    SkinDrawing drawing(File());
    EXPECT_TRUE(drawing.Draw(QSize(0, 40), 1.0, SkinFit::Proportion).isNull());
    SkinDrawing invalid(ParseSkinFile("Move"));
    EXPECT_FALSE(invalid.IsValid());
    EXPECT_TRUE(invalid.Draw(QSize(60, 40), 1.0, SkinFit::Proportion).isNull());
}

}  // namespace travo
