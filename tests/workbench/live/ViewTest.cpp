#include "workbench/live/View.h"

#include <gtest/gtest.h>

namespace workbench::live {

namespace {

TEST(ViewTest, XGoesToTheRightAndYDown) {
    const View view({100.0, -50.0}, {242.9, 181.0}, PictureSize);
    EXPECT_EQ(view.Pixel(100.0, -50.0), QPointF(320.0, 240.0));
    EXPECT_GT(view.Pixel(110.0, -50.0).x(), 320.0);
    EXPECT_GT(view.Pixel(100.0, -40.0).y(), 240.0);
    EXPECT_NEAR(view.Pixel(100.0 + 242.9 / 2.0, -50.0).x(), 640.0, 1e-9);
    const QPointF back = view.Place(view.Pixel(33.0, 44.0));
    EXPECT_NEAR(back.x(), 33.0, 1e-9);
    EXPECT_NEAR(back.y(), 44.0, 1e-9);
}

TEST(ViewTest, AtTheSmallestMagnificationAPixelIsOneOfTheBirdsEyeView) {
    const View view({}, FieldOf(nullptr, 1), PictureSize);
    EXPECT_NEAR(view.PixelsPerUnit(), 0.42, 0.0005);
}

TEST(ViewTest, TheTrueFieldGoesBeforeTheToldMagnification) {
    WorkbenchClient::CameraState scene;
    scene.fieldOfView = {121.4, 90.5};
    EXPECT_EQ(FieldOf(&scene, 1), QSizeF(121.4, 90.5));
    scene.fieldOfView = {0.0, 0.0};
    EXPECT_EQ(FieldOf(&scene, 2), QSizeF(242.9, 181.0));
    EXPECT_EQ(FieldOf(nullptr, 3), QSizeF(121.4, 90.5));
}

TEST(ViewTest, AMagnificationThatIsNotKnownIsTheSmallestOne) {
    for (const std::int16_t told : std::initializer_list<std::int16_t>{-1, 0, 4}) {
        EXPECT_EQ(FieldOf(nullptr, told), FieldOf(nullptr, 1));
    }
}

TEST(ViewTest, BlurGrowsWithTheDistanceAndTheMagnificationUpToALimit) {
    EXPECT_EQ(BlurRadius(0.0, 2.6), 0.0);
    EXPECT_EQ(BlurRadius(-1.5, 2.6), 0.0);
    EXPECT_GT(BlurRadius(30.0, 2.6), BlurRadius(10.0, 2.6));
    EXPECT_GT(BlurRadius(30.0, 5.2), BlurRadius(30.0, 2.6));
    EXPECT_EQ(BlurRadius(30.0, 2.6), BlurRadius(-30.0, 2.6));
    EXPECT_EQ(BlurRadius(1e6, 2.6), BlurRadius(1e7, 2.6));
}

}  // namespace

}  // namespace workbench::live
