// The still of the bird's-eye view: as it was loaded, and as contrast and brightness show it.
#pragma once

#include <QImage>
#include <QRect>
#include <QString>
#include <cstdint>
#include <optional>

#include "core/state/modBitmapData.h"
#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdStillFile.h"

namespace travo {

// Of a small still all pixels are held, in three times the memory of its picture. Of a large one, which would
// take most of a gigabyte, the part that the canvas shows: its file stays open, and a shift reads another
// part of the same still from it, whatever the camera has put in its place meanwhile.
class FormBirdViewStill {
public:
    // Bare ground of 640 by 480 pixels until the first still.
    FormBirdViewStill();

    // Takes the picture in the file, unprocessed, for a canvas that shows it shifted so. Raises as
    // BirdStillFile does; the former still stays then.
    void Load(const QString& path, const BirdShift& shift);

    // Always from the still as it was loaded, so that changes do not build up. The bare ground stays as it
    // is: it shows that no still has come yet.
    void Process(std::int32_t brightness, std::int32_t contrast);

    // What the canvas shows of the still where it is shifted so. Where another part cannot be read any more,
    // since the camera has written over the file and not yet said so, the part that is held remains all.
    BirdStillPart Part(const BirdShift& shift);

private:
    // How the pixels are shown: as they were loaded, or by the bars.
    struct Bars {
        std::int32_t brightness;
        std::int32_t contrast;
    };

    void Hold(const QImage& picture, const QPoint& corner);

    // A large still's; none for a small one, and once it has failed.
    std::optional<BirdStillFile> file_;
    QSize whole_;
    // Of the still: where the part that is held begins.
    QPoint corner_;
    bool isLoaded_ = false;
    std::optional<Bars> bars_;
    // Holds at all times what BirdDisplay_ holds.
    QImage picDummy_;
    PixelBuffer BirdRaw_;
    PixelBuffer BirdDisplay_;
};

}  // namespace travo
