#include "workbench/tour/WindowPicture.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace workbench::tour {

namespace {

// Of a shade, on each channel.
constexpr int ColourTolerance = 4;
// Smaller groups are crumbs of a letter's edge.
constexpr int LeastPixels = 6;

constexpr int ShaftFrom = 20;
constexpr int ShaftTo = 120;

std::array<int, 3> Channels(QRgb pixel) { return {qRed(pixel), qGreen(pixel), qBlue(pixel)}; }

// The colour itself, or at least half of it over black.
bool IsShade(QRgb pixel, QRgb colour) {
    const std::array<int, 3> seen = Channels(pixel);
    const std::array<int, 3> full = Channels(colour);
    const auto brightest =
        static_cast<std::size_t>(std::max_element(full.begin(), full.end()) - full.begin());
    const double part = static_cast<double>(seen.at(brightest)) / full.at(brightest);
    if (part < 0.5 || part > 1.0) {
        return false;
    }
    for (std::size_t channel = 0; channel < full.size(); ++channel) {
        if (std::abs(seen.at(channel) - part * full.at(channel)) > ColourTolerance) {
            return false;
        }
    }
    return true;
}

class Grouping {
public:
    Grouping(const QImage& picture, QRgb colour)
        : width_(picture.width()),
          height_(picture.height()),
          open_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                open_[Index({x, y})] = IsShade(picture.pixel(x, y), colour);
            }
        }
    }

    std::vector<QRect> Take() {
        std::vector<QRect> groups;
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const QRect extent = TakeGroup({x, y});
                if (pixels_ >= LeastPixels) {
                    groups.push_back(extent);
                }
            }
        }
        return groups;
    }

private:
    std::size_t Index(const QPoint& at) const {
        return static_cast<std::size_t>(at.y()) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(at.x());
    }

    bool TakePixel(const QPoint& at) {
        if (!QRect(0, 0, width_, height_).contains(at) || !open_[Index(at)]) {
            return false;
        }
        open_[Index(at)] = false;
        return true;
    }

    QRect TakeGroup(const QPoint& first) {
        pixels_ = 0;
        QRect extent;
        std::vector<QPoint> reached;
        if (TakePixel(first)) {
            reached.push_back(first);
        }
        while (!reached.empty()) {
            const QPoint at = reached.back();
            reached.pop_back();
            ++pixels_;
            extent |= QRect(at, QSize(1, 1));
            for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
                if (TakePixel(at + step)) {
                    reached.push_back(at + step);
                }
            }
        }
        return extent;
    }

    int width_;
    int height_;
    int pixels_ = 0;
    std::vector<bool> open_;
};

bool StandsAt(const QImage& picture, const QImage& patch, const QPoint& corner) {
    for (int y = 0; y < patch.height(); ++y) {
        for (int x = 0; x < patch.width(); ++x) {
            if (picture.pixel(corner + QPoint(x, y)) != patch.pixel(x, y)) {
                return false;
            }
        }
    }
    return true;
}

// At design size a pixel holds four of the canvas, of which a shaft covers more than half somewhere across
// it.
bool IsDark(QRgb pixel) {
    constexpr int HalfOfStillAndGround = 100;
    return qGreen(pixel) <= HalfOfStillAndGround;
}

bool IsDarkNear(const QImage& picture, const QPoint& at) {
    for (int y = at.y() - 1; y <= at.y() + 1; ++y) {
        for (int x = at.x() - 1; x <= at.x() + 1; ++x) {
            if (picture.valid(x, y) && IsDark(picture.pixel(x, y))) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

QPointF CanvasPlace(double x, double y) {
    return {CanvasOrigin + CanvasPixelsPerUnit * x, CanvasOrigin + CanvasPixelsPerUnit * y};
}

int CanvasPixel(int pixel, int side) { return (2 * pixel + 1) * CanvasPixels / (2 * side); }

QPoint PicturePixel(const QPointF& canvas, int side) { return (canvas * side / CanvasPixels).toPoint(); }

std::vector<QRect> Groups(const QImage& picture, QRgb colour) { return Grouping(picture, colour).Take(); }

QPointF CanvasMiddle(const QRect& extent, int side) {
    return QPointF(CanvasPixel(extent.left(), side) + CanvasPixel(extent.right(), side),
                   CanvasPixel(extent.top(), side) + CanvasPixel(extent.bottom(), side)) /
           2.0;
}

std::vector<QPointF> NeedleMiddles(const QImage& picture) {
    std::vector<QPointF> middles;
    for (const QRect& extent : Groups(picture, NeedleColour)) {
        middles.push_back(CanvasMiddle(extent, picture.width()));
    }
    return middles;
}

std::optional<QPointF> CellMiddle(const QImage& picture, std::size_t cell) {
    const std::vector<QRect> groups = Groups(picture, CellColours.at(cell));
    if (groups.empty()) {
        return std::nullopt;
    }
    const auto lowest =
        std::max_element(groups.begin(), groups.end(),
                         [](const QRect& one, const QRect& other) { return one.bottom() < other.bottom(); });
    return CanvasMiddle(*lowest, picture.width());
}

std::optional<ViewMark> FindView(const QImage& picture) {
    QRect extent;
    for (const QRect& group : Groups(picture, ViewColour)) {
        extent |= group;
    }
    if (extent.isEmpty()) {
        return std::nullopt;
    }
    return ViewMark{CanvasMiddle(extent, picture.width()), extent.size() * CanvasPixels / picture.width()};
}

double DarkAlong(const QImage& picture, const QPointF& from, const QPointF& to) {
    const QLineF line(from, to);
    int looked = 0;
    int dark = 0;
    for (int distance = ShaftFrom; distance <= ShaftTo; ++distance) {
        const QPointF canvas = line.pointAt(distance / line.length());
        if (QRectF(0.0, 0.0, CanvasPixels, CanvasPixels).contains(canvas)) {
            ++looked;
            dark += IsDarkNear(picture, PicturePixel(canvas, picture.width())) ? 1 : 0;
        }
    }
    return looked > 0 ? static_cast<double>(dark) / looked : 0.0;
}

std::optional<QPoint> FindPatch(const QImage& picture, const QImage& patch) {
    for (int y = 0; y <= picture.height() - patch.height(); ++y) {
        for (int x = 0; x <= picture.width() - patch.width(); ++x) {
            if (StandsAt(picture, patch, {x, y})) {
                return QPoint(x, y);
            }
        }
    }
    return std::nullopt;
}

QRect Differing(const QImage& picture, const QImage& still, const QPoint& corner) {
    QRect extent;
    for (int y = 0; y < still.height(); ++y) {
        for (int x = 0; x < still.width(); ++x) {
            const QPoint at = corner + QPoint(x, y);
            if (picture.valid(at) && picture.pixel(at) != still.pixel(x, y)) {
                extent |= QRect(at, QSize(1, 1));
            }
        }
    }
    return extent;
}

}  // namespace workbench::tour
