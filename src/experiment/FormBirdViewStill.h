// The still of the bird's-eye view: as it was loaded, and as contrast and brightness show it.
#pragma once

#include <QImage>
#include <QString>
#include <cstdint>

#include "core/modBitmapData.h"

namespace travo {

// Takes three times the memory of its picture, and as much again for a new one while that is loaded.
class FormBirdViewStill {
public:
    // Bare ground of 640 by 480 pixels until the first still.
    FormBirdViewStill();

    // Takes the picture in the file, unprocessed. Raises as ReadBirdStill does; the former still stays then.
    void Load(const QString& path);

    // Always from the still as it was loaded, so that changes do not build up. The bare ground stays as it
    // is: it shows that no still has come yet.
    void Process(std::int32_t brightness, std::int32_t contrast);

    // RGB32.
    const QImage& Picture() const { return picDummy_; }

private:
    bool isLoaded_ = false;
    // Holds at all times what BirdDisplay_ holds.
    QImage picDummy_;
    PixelBuffer BirdRaw_;
    PixelBuffer BirdDisplay_;
};

}  // namespace travo
