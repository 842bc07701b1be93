#include "workbench/live/Blur.h"

#include <gtest/gtest.h>

namespace workbench::live {

namespace {

QImage Dot() {
    QImage image(81, 61, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 26; y < 35; ++y) {
        for (int x = 36; x < 45; ++x) {
            image.setPixelColor(x, y, QColor(200, 100, 50));
        }
    }
    return image;
}

int Alpha(const QImage& image, int x, int y) { return qAlpha(image.pixel(x, y)); }

TEST(BlurTest, DoesNothingBelowOnePixel) {
    QImage image = Dot();
    BlurImage(image, 0.4);
    EXPECT_EQ(image, Dot());
}

TEST(BlurTest, SpreadsAndLowersEvenlyToAllSides) {
    QImage image = Dot();
    BlurImage(image, 10.0);
    EXPECT_LT(Alpha(image, 40, 30), 200);
    EXPECT_GT(Alpha(image, 40, 30), Alpha(image, 46, 30));
    EXPECT_GT(Alpha(image, 46, 30), Alpha(image, 50, 30));
    EXPECT_GT(Alpha(image, 47, 30), 0);
    for (int away = 1; away <= 12; ++away) {
        EXPECT_EQ(Alpha(image, 40 + away, 30), Alpha(image, 40 - away, 30));
        EXPECT_EQ(Alpha(image, 40, 30 + away), Alpha(image, 40, 30 - away));
        // Each pass drops fractions: rows and columns may part by one for each.
        EXPECT_NEAR(Alpha(image, 40 + away, 30), Alpha(image, 40, 30 + away), 3);
    }
}

TEST(BlurTest, ALargerRadiusIsSofter) {
    QImage little = Dot();
    QImage much = Dot();
    BlurImage(little, 4.0);
    BlurImage(much, 16.0);
    EXPECT_GT(Alpha(little, 40, 30), Alpha(much, 40, 30));
    EXPECT_LT(Alpha(little, 53, 30), Alpha(much, 53, 30));
}

TEST(BlurTest, AnImageSmallerThanTheRadiusIsBlurredAsWell) {
    QImage image(3, 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    BlurImage(image, 40.0);
    EXPECT_LT(Alpha(image, 1, 1), 40);
}

}  // namespace

}  // namespace workbench::live
