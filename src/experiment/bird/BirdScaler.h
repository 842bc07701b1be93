// Brings the bird's-eye view's canvas to the size of its window.
#pragma once

#include <QImage>
#include <QRgb>
#include <cstdint>
#include <vector>

namespace travo {

class BirdScaler {
public:
    // Fills `target`, whatever size it has, with `canvas`. Along an axis on which the target has fewer pixels
    // than the canvas, each is the mean of what it covers of the canvas, parts of pixels counted as parts:
    // letters and thin lines that were left out by the pixel would fray. Along the others it is the nearest
    // pixel, without smoothing: target pixel x of w takes the one under its middle,
    // (2 * x + 1) * W / (2 * w) with the fraction dropped. Means go to the nearest number, ties to even.
    //
    // Both are RGB32; the target's fourth byte becomes 0xFF. BoundsFailure for pictures that have not 32 bits
    // to the pixel, and for a canvas of more than 3000 pixels on a side; nothing is done where either has no
    // pixels. Nothing is allocated while the sizes stay and nobody keeps a copy of the target.
    void Scale(const QImage& canvas, QImage& target);

private:
    // Along one axis: the source pixels of each target pixel, and how much of each counts. The weights of a
    // target pixel add up to `total`.
    struct Axis {
        int from = 0;
        int to = 0;
        std::uint32_t total = 1;
        std::vector<int> first;             // of each target pixel; one more for the end
        std::vector<int> source;            // of the first weight
        std::vector<std::uint32_t> weight;  // those of target pixel x begin at first[x]

        void Set(int newFrom, int newTo);
        bool IsMean() const { return to < from; }
    };

    void ScaleNearest(const QImage& canvas, QImage& target) const;
    void ScaleMean(const QImage& canvas, QImage& target);
    void AddRow(const QRgb* from, std::uint32_t weight);
    void MeanOfSums(QRgb* to) const;

    Axis columns_;
    Axis rows_;
    // Of one target row: the weighted rows of the canvas, four channels to the pixel.
    std::vector<std::uint32_t> sums_;
};

}  // namespace travo
