#include "experiment/bird/BirdMarkers.h"

#include <QRgb>
#include <cstddef>

#include "controls/SkinCheck.h"
#include "controls/SkinDrawing.h"
#include "controls/SkinFile.h"
#include "controls/SkinPictures.h"
#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr QSize FigureSize(34, 27);
constexpr std::array<QSize, BirdMarkers::ViewMarkers> ViewSizes{QSize(102, 76), QSize(51, 38), QSize(23, 23)};

constexpr QRgb White = 0xFFFFFFFFU;
constexpr QRgb BlackOfMask = 0xFF000000U;
constexpr QRgb ColourBytes = 0x00FFFFFFU;

// Null where the file is missing or of no use.
QImage Drawn(const QString& programFolder, const QString& name, const QSize& size) {
    const SkinFile file = ReadSkinFile(SkinFileName(programFolder, name));
    if (SkinFault(file)) {
        return {};
    }
    return SkinDrawing(file).Draw(size, 1.0, SkinFit::Stretch).convertToFormat(QImage::Format_RGB32);
}

template <typename Change>
void ChangePixels(QImage& image, const Change& change) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            row[x] = change(row[x]);
        }
    }
}

BirdMarker Pair(const QString& programFolder, const QString& kind, const QString& number, const QSize& size) {
    BirdMarker marker{Drawn(programFolder, kind + QStringLiteral("B-") + number, size),
                      Drawn(programFolder, kind + QLatin1Char('-') + number, size)};
    if (marker.mask.isNull() || marker.picture.isNull()) {
        return {};
    }
    // A soft edge in the mask would let the ground shine through in false colours.
    ChangePixels(marker.mask, [](QRgb pixel) { return qGray(pixel) < 128 ? BlackOfMask : White; });
    ChangePixels(marker.picture, [](QRgb pixel) { return pixel & ColourBytes; });
    return marker;
}

QString TwoDigits(std::size_t number) {
    return QStringLiteral("%1").arg(static_cast<int>(number), 2, 10, QLatin1Char('0'));
}

}  // namespace

BirdMarkers::BirdMarkers(const QString& programFolder) {
    for (std::size_t i = 0; i < needles_.size(); ++i) {
        needles_[i] = Pair(programFolder, QStringLiteral("needle"), TwoDigits(i), FigureSize);
    }
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        cells_[i] = Pair(programFolder, QStringLiteral("cell"), TwoDigits(i), FigureSize);
    }
    for (std::size_t i = 0; i < views_.size(); ++i) {
        views_[i] = Pair(programFolder, QStringLiteral("view"), QString::number(i + 1), ViewSizes[i]);
    }
}

const BirdMarker& BirdMarkers::Needle(int shapeTimes4PlusIndex) const {
    return needles_[Bounded(shapeTimes4PlusIndex, needles_.size())];
}

const BirdMarker& BirdMarkers::Cell(int index0to15) const {
    return cells_[Bounded(index0to15, cells_.size())];
}

const BirdMarker& BirdMarkers::View(std::int16_t magnification) const {
    switch (magnification) {
        case 2:
            return views_[0];
        case 3:
            return views_[1];
        default:
            return views_[2];
    }
}

}  // namespace travo
