#include "experiment/bird/FormBirdViewStill.h"

#include <utility>

#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdStill.h"

namespace travo {

namespace {

constexpr QSize FirstSize(640, 480);
// Up to here all pixels of a still are held: twice, when the next one is loaded.
constexpr std::int64_t GreatestArea = 4'000'000;

PixelBuffer PixelsOf(const QImage& picture) {
    PixelBuffer pixels(picture.width(), picture.height());
    if (ReadBitmapPixels(picture, pixels) != 0) {
        throw BirdStillFailure("the still has no pixels");
    }
    return pixels;
}

// One pixel at least: a still may be shifted off the canvas.
QRect SeenOf(const QSize& still, const BirdShift& shift) {
    const QRect seen = SeenOnCanvas(still, shift);
    return seen.isEmpty() ? QRect(0, 0, 1, 1) : seen;
}

}  // namespace

FormBirdViewStill::FormBirdViewStill() : whole_(FirstSize) {
    QImage ground(FirstSize, QImage::Format_RGB32);
    ground.fill(BirdGround);
    Hold(ground, {});
}

void FormBirdViewStill::Load(const QString& path, const BirdShift& shift) {
    BirdStillFile file(path);
    const QSize whole = file.Size();
    const bool isLarge = std::int64_t{whole.width()} * whole.height() > GreatestArea;
    const QRect part = isLarge ? SeenOf(whole, shift) : QRect(QPoint(0, 0), whole);
    Hold(file.Read(part), part.topLeft());
    whole_ = whole;
    file_.reset();
    if (isLarge) {
        file_.emplace(std::move(file));
    }
    bars_.reset();
    isLoaded_ = true;
}

void FormBirdViewStill::Hold(const QImage& picture, const QPoint& corner) {
    PixelBuffer raw = PixelsOf(picture);
    BirdDisplay_ = raw;
    BirdRaw_ = std::move(raw);
    picDummy_ = picture;
    corner_ = corner;
}

void FormBirdViewStill::Process(std::int32_t brightness, std::int32_t contrast) {
    if (!isLoaded_) {
        return;
    }
    bars_ = Bars{brightness, contrast};
    ContrastAndBrightness(BirdRaw_, BirdDisplay_, brightness, contrast);
    WriteBitmapPixels(picDummy_, BirdDisplay_);
}

BirdStillPart FormBirdViewStill::Part(const BirdShift& shift) {
    const QRect seen = SeenOnCanvas(whole_, shift);
    if (file_ && !seen.isEmpty() && !QRect(corner_, picDummy_.size()).contains(seen)) {
        try {
            Hold(file_->Read(seen), seen.topLeft());
            if (bars_) {
                Process(bars_->brightness, bars_->contrast);
            }
        } catch (const BirdStillFailure&) {
            // The camera's word on its new still brings that one.
            file_.reset();
        }
    }
    return {picDummy_, whole_, corner_};
}

}  // namespace travo
