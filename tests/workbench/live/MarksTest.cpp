#include "workbench/live/Marks.h"

#include <gtest/gtest.h>

#include <QImage>

namespace workbench::live {

namespace {

const QSizeF FieldAt2x(242.9, 181.0);

QImage Painted(Overlay overlay, const QSizeF& field) {
    QImage image(PictureSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintMarks(painter, overlay, field, QRectF(QPointF(), QSizeF(PictureSize)));
    return image;
}

// Whether anything has been drawn near a place that is given in common units from the centre.
bool Marked(const QImage& image, const QSizeF& field, const QPointF& offset) {
    const QPoint at = View({}, field, PictureSize).Pixel(offset).toPoint();
    for (int x = at.x() - 10; x <= at.x() + 10; ++x) {
        if (image.valid(x, at.y()) && image.pixelColor(x, at.y()) != QColor(Qt::white)) {
            return true;
        }
    }
    return false;
}

TEST(MarksTest, ThePointsAreApexAndBaseCorners) {
    const std::vector<Mark> marks = MarksOf(Overlay::Points);
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_EQ(marks[0].offset, QPointF(0.0, -60.0));
    EXPECT_EQ(marks[1].offset, QPointF(-80.0, 60.0));
    EXPECT_EQ(marks[2].offset, QPointF(80.0, 60.0));
}

TEST(MarksTest, ZIsTheApexAndCenterTheCentre) {
    ASSERT_EQ(MarksOf(Overlay::Z).size(), 1U);
    EXPECT_EQ(MarksOf(Overlay::Z)[0].offset, QPointF(0.0, -60.0));
    ASSERT_EQ(MarksOf(Overlay::Center).size(), 1U);
    EXPECT_EQ(MarksOf(Overlay::Center)[0].offset, QPointF(0.0, 0.0));
    EXPECT_TRUE(MarksOf(Overlay::None).empty());
}

TEST(MarksTest, AreDrawnAtTheirPlacesAtEveryMagnification) {
    for (const QSizeF& field : {QSizeF(1524.0, 1143.0), FieldAt2x}) {
        const QImage image = Painted(Overlay::Points, field);
        for (const Mark& mark : MarksOf(Overlay::Points)) {
            EXPECT_TRUE(Marked(image, field, mark.offset));
        }
        EXPECT_TRUE(Marked(Painted(Overlay::Center, field), field, {0.0, 0.0}));
    }
    EXPECT_FALSE(Marked(Painted(Overlay::Points, FieldAt2x), FieldAt2x, {0.0, 0.0}));
    EXPECT_FALSE(Marked(Painted(Overlay::Center, FieldAt2x), FieldAt2x, {0.0, -60.0}));
}

TEST(MarksTest, AMarkOutsideTheFieldIsToldOfAtTheEdge) {
    const QImage image = Painted(Overlay::Z, {121.4, 90.5});
    bool drawn = false;
    for (int y = 0; y < 50; ++y) {
        drawn = drawn || image.pixelColor(320, y) != QColor(Qt::white);
    }
    EXPECT_TRUE(drawn);
}

TEST(MarksTest, WithoutAnOverlayNothingIsDrawn) {
    QImage white(PictureSize, QImage::Format_RGB32);
    white.fill(Qt::white);
    EXPECT_EQ(Painted(Overlay::None, FieldAt2x), white);
}

TEST(MarksTest, TheScaleBarIsAsLongAsItSays) {
    QImage image(PictureSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintScaleBar(painter, FieldAt2x, QRectF(QPointF(), QSizeF(PictureSize)));
    painter.end();
    int drawn = 0;
    for (int x = 0; x < image.width(); ++x) {
        drawn += image.pixelColor(x, 34) != QColor(Qt::white) ? 1 : 0;
    }
    const double twenty = 20.0 * PictureSize.width() / FieldAt2x.width();
    EXPECT_NEAR(drawn, twenty, 8.0);
}

}  // namespace

}  // namespace workbench::live
