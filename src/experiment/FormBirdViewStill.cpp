#include "experiment/FormBirdViewStill.h"

#include <utility>

#include "experiment/BirdCanvas.h"
#include "experiment/BirdStill.h"
#include "experiment/BirdStillFile.h"

namespace travo {

namespace {

constexpr QSize FirstSize(640, 480);

PixelBuffer PixelsOf(const QImage& picture) {
    PixelBuffer pixels(picture.width(), picture.height());
    if (ReadBitmapPixels(picture, pixels) != 0) {
        throw BirdStillFailure("the still has no pixels");
    }
    return pixels;
}

}  // namespace

FormBirdViewStill::FormBirdViewStill() : picDummy_(FirstSize, QImage::Format_RGB32) {
    picDummy_.fill(BirdGround);
    BirdRaw_ = PixelsOf(picDummy_);
    BirdDisplay_ = BirdRaw_;
}

void FormBirdViewStill::Load(const QString& path) {
    QImage picture = ReadBirdStill(path);
    PixelBuffer raw = PixelsOf(picture);
    PixelBuffer display = raw;
    picDummy_ = std::move(picture);
    BirdRaw_ = std::move(raw);
    BirdDisplay_ = std::move(display);
    isLoaded_ = true;
}

void FormBirdViewStill::Process(std::int32_t brightness, std::int32_t contrast) {
    if (!isLoaded_) {
        return;
    }
    ContrastAndBrightness(BirdRaw_, BirdDisplay_, brightness, contrast);
    WriteBitmapPixels(picDummy_, BirdDisplay_);
}

}  // namespace travo
