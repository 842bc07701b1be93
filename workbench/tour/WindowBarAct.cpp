#include "workbench/tour/WindowBarAct.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowPicture.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

const QString Brightness = QStringLiteral("Brightness");
const QString Contrast = QStringLiteral("Contrast");

struct Shown {
    QImage picture;
    QPoint corner;  // of the still
    QRect except;   // the mark of the view
    const QImage& still;

    // Calls with the still's pixel and the one on show, for each that is.
    template <typename Each>
    void ForEach(const Each& each) const {
        for (int y = 0; y < still.height(); ++y) {
            for (int x = 0; x < still.width(); ++x) {
                const QPoint at = corner + QPoint(x, y);
                if (picture.valid(at) && !except.contains(at)) {
                    each(still.pixel(x, y), picture.pixel(at));
                }
            }
        }
    }
};

bool IsGrey(QRgb pixel) { return qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel); }

// By how much every pixel is brighter than the red of the still's, grey and clamped to 0 to 255; nothing
// where they differ in that.
std::optional<int> BrighterBy(const Shown& shown) {
    std::optional<int> by;
    shown.ForEach([&](QRgb from, QRgb to) {
        if (!by && qRed(to) > 0 && qRed(to) < 255) {
            by = qRed(to) - qRed(from);
        }
    });
    bool same = by.has_value();
    shown.ForEach([&](QRgb from, QRgb to) {
        same = same && IsGrey(to) && qRed(to) == std::clamp(qRed(from) + *by, 0, 255);
    });
    return same ? by : std::nullopt;
}

// Standard deviation of the reds on show over that of the still's.
double Spread(const Shown& shown) {
    double count = 0.0;
    std::array<double, 2> sum{};
    std::array<double, 2> squares{};
    shown.ForEach([&](QRgb from, QRgb to) {
        ++count;
        const std::array<double, 2> reds{static_cast<double>(qRed(from)), static_cast<double>(qRed(to))};
        for (std::size_t side = 0; side < reds.size(); ++side) {
            sum.at(side) += reds.at(side);
            squares.at(side) += reds.at(side) * reds.at(side);
        }
    });
    const auto deviation = [&](std::size_t side) {
        const double mean = sum.at(side) / count;
        return std::sqrt(squares.at(side) / count - mean * mean);
    };
    return deviation(1) / deviation(0);
}

class Bars {
public:
    Bars(Stage& stage, const Landmark& landmark) : stage_(stage), still_(StillFile(stage)) {
        const std::optional<QPointF> onStill = LandmarkOn(still_, landmark);
        Require(onStill.has_value(), "the still does not hold its own landmark");
        corner_ = (FindLandmark(stage, landmark) - *onStill).toPoint();
    }

    Shown Look() const { return {BirdPicture(stage_), corner_, MarkOfView(stage_), still_}; }

    // The thumb from the middle of its bar by a part of the bar's width.
    void Drag(const QString& bar, double part) const {
        const QSize size = AtBirdView(stage_).SizeOf(bar);
        const QPoint middle(size.width() / 2, size.height() / 2);
        AtBirdView(stage_).Drag(bar, middle, middle + QPoint(static_cast<int>(size.width() * part), 0));
    }

    void BackToNeutral(const QString& bar) const {
        const QSize size = AtBirdView(stage_).SizeOf(bar);
        AtBirdView(stage_).DoubleClickAt(bar, {size.width() / 2, size.height() / 2});
        Require(BrighterBy(Look()) == 0, "a double click on a bar does not bring the still back");
    }

private:
    Stage& stage_;
    QImage still_;
    QPoint corner_;
};

void WorkBrightness(const Bars& bars) {
    bars.Drag(Brightness, 0.1);
    const std::optional<int> up = BrighterBy(bars.Look());
    bars.BackToNeutral(Brightness);
    bars.Drag(Brightness, -0.1);
    const std::optional<int> down = BrighterBy(bars.Look());
    bars.BackToNeutral(Brightness);
    Require(up && *up > 0, "the still is not brighter by the same everywhere");
    Require(down && *down < 0, "the still is not darker by the same everywhere");
    PrintLine("brightness dragged: every pixel of the still grey from its red, by " + std::to_string(*up) +
              " and by " + std::to_string(*down) + ", clamped; double click: 0");
}

void WorkContrast(const Bars& bars) {
    bars.Drag(Contrast, 0.1);
    const double more = Spread(bars.Look());
    bars.BackToNeutral(Contrast);
    bars.Drag(Contrast, -0.1);
    const double less = Spread(bars.Look());
    bars.BackToNeutral(Contrast);
    PrintLine("contrast dragged: the still's reds spread " + NumberText(more) + " and " + NumberText(less) +
              " times as wide; double click: as taken");
    Require(more > 1.1 && less < 0.9, "the contrast of the still does not follow its bar");
}

}  // namespace

void PlayWindowBarAct(Stage& stage, const Landmark& landmark) {
    const Bars bars(stage, landmark);
    WorkBrightness(bars);
    WorkContrast(bars);
}

}  // namespace workbench::tour
