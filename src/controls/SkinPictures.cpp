#include "controls/SkinPictures.h"

#include <algorithm>
#include <cmath>

#include "controls/SkinCheck.h"

namespace travo {

namespace {

// Scales such as 1.1 are not exact: what falls short of a whole pixel by less than this is one.
constexpr double PixelTolerance = 1e-6;

int WholePixels(double length) { return std::max(1, static_cast<int>(std::floor(length + PixelTolerance))); }

}  // namespace

QString SkinFileName(const QString& folder, const QString& picture) {
    return folder + QStringLiteral("/skin/") + picture + QStringLiteral(".svg");
}

bool SkinPictures::Kept::IsFor(const Kept& other) const {
    return name == other.name && size == other.size && displayScale == other.displayScale &&
           scale == other.scale && fit == other.fit;
}

void SkinPictures::Folder(const QString& folder) {
    folder_ = folder;
    drawings_.clear();
    kept_.clear();
}

QPixmap SkinPictures::Picture(const QString& name, const QSize& size, double displayScale, double scale,
                              SkinFit fit) {
    Kept wanted{name, size, displayScale, scale, fit, {}};
    const auto found =
        std::find_if(kept_.begin(), kept_.end(), [&wanted](const Kept& kept) { return kept.IsFor(wanted); });
    if (found != kept_.end()) {
        kept_.splice(kept_.begin(), kept_, found);
        return kept_.front().pixmap;
    }
    SkinDrawing* const drawing = Drawing(name);
    if (drawing == nullptr) {
        return {};
    }
    wanted.pixmap = Drawn(*drawing, wanted);
    kept_.push_front(wanted);
    if (kept_.size() > MostPixmaps) {
        kept_.pop_back();
    }
    return wanted.pixmap;
}

QPixmap SkinPictures::Drawn(SkinDrawing& drawing, const Kept& wanted) {
    // Half a pixel too few is a hair of the ground; half a pixel too many costs the picture its right or
    // lower edge, which the control cuts off.
    const QSize pixels(WholePixels(wanted.size.width() * wanted.displayScale),
                       WholePixels(wanted.size.height() * wanted.displayScale));
    QPixmap pixmap = QPixmap::fromImage(drawing.Draw(pixels, wanted.scale * wanted.displayScale, wanted.fit));
    pixmap.setDevicePixelRatio(wanted.displayScale);
    return pixmap;
}

SkinDrawing* SkinPictures::Drawing(const QString& name) {
    const auto found = drawings_.find(name);
    if (found != drawings_.end()) {
        return found->second.get();
    }
    std::unique_ptr<SkinDrawing>& drawing = drawings_[name];
    const SkinFile file = ReadSkinFile(SkinFileName(folder_, name));
    if (!SkinFault(file)) {
        drawing = std::make_unique<SkinDrawing>(file);
        if (!drawing->IsValid()) {
            drawing.reset();
        }
    }
    return drawing.get();
}

}  // namespace travo
