// A program of its own, since it counts every allocation.
#include <gtest/gtest.h>
#include <malloc.h>

#include <memory>

#include "experiment/bird/BirdPictures.h"
#include "experiment/bird/BirdScaler.h"
#include "experiment/bird/BirdStill.h"
#include "support/CountedAllocations.h"

namespace travo::test {
namespace {

// Under the sanitizer, which would see a leak of any one of them, each takes many times as long.
#ifdef __SANITIZE_ADDRESS__
constexpr int Compositions = 1000;
#else
constexpr int Compositions = 10000;
#endif

// Bytes that are taken by whichever way, in blocks small and large.
std::size_t BytesInUse() {
    const struct mallinfo2 memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

class BirdAllocationTest : public testing::Test {
protected:
    void Move(int step) {
        for (std::size_t i = 0; i < scene.needles.size(); ++i) {
            scene.needles[i] =
                NeedlePlace({step % 1800 - 900, 5 * static_cast<std::int32_t>(i), step % 3 - 1}, {0, 0, 0},
                            {-5000, step, 0});
        }
        for (std::size_t i = 0; i < scene.cells.size(); ++i) {
            scene.cells[i] = CellPlace({step % 400 - 200, static_cast<std::int32_t>(i) * 10, 0});
        }
        scene.intBirdMagnification = static_cast<std::int16_t>(step % 4);
        scene.view = ViewPlace({step % 100, 7, 0}, scene.intBirdMagnification);
        scene.intBlinkPhase = NextBlinkPhase(scene.intBlinkPhase);
        scene.ShiftX = step % 5 * 0.1;
    }

    BirdCanvas canvas{SkinHome()};
    BirdScaler scaler;
    QImage still = Patterned(640, 480);
    QImage target = Filled(378, 378);
    BirdScene scene;
};

TEST_F(BirdAllocationTest, TheCounterCountsPicturesToo) {
    const long before = Allocations();
    const auto something = std::make_unique<int>(1);
    EXPECT_EQ(Allocations(), before + 1);
    EXPECT_EQ(*something, 1);
    const QImage picture(8, 8, QImage::Format_RGB32);
    EXPECT_GT(Allocations(), before + 1);
}

TEST_F(BirdAllocationTest, TenThousandCompositionsAllocateAndLeakNothing) {
    scene.chkMirror = true;
    scene.intTotalManipulatorNumber = 3;
    scene.intManipulatorNumber = 1;
    Move(0);
    scaler.Scale(canvas.Compose(still, scene), target);
    const long before = Allocations();
    const std::size_t bytes = BytesInUse();
    for (int step = 0; step < Compositions; ++step) {
        Move(step);
        scaler.Scale(canvas.Compose(still, scene), target);
    }
    EXPECT_EQ(BytesInUse(), bytes);
    EXPECT_EQ(Allocations(), before);
}

TEST_F(BirdAllocationTest, ContrastAndBrightnessAllocateNothing) {
    const PixelBuffer raw(640, 480);
    PixelBuffer display(640, 480);
    const long before = Allocations();
    for (int contrast = -256; contrast <= 256; contrast += 16) {
        ContrastAndBrightness(raw, display, 3, contrast);
    }
    EXPECT_EQ(Allocations(), before);
}

}  // namespace
}  // namespace travo::test
