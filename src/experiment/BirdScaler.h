// Brings the bird's-eye view's canvas to the size of its window.
#pragma once

#include <QImage>
#include <QRgb>
#include <vector>

namespace travo {

class BirdScaler {
public:
    // Fills `target`, whatever size it has, with `canvas`: the nearest pixel, without smoothing. The target
    // pixel x of w takes the source pixel under its middle, (2 * x + 1) * W / (2 * w) with the fraction
    // dropped, and the rows go likewise; at half size these are the odd ones. Both are RGB32 (BoundsFailure
    // for pictures that have not 32 bits to the pixel); nothing is done where either has no pixels.
    // Nothing is allocated while the sizes stay and nobody keeps a copy of the target.
    void Scale(const QImage& canvas, QImage& target);

private:
    void Columns(int from, int to);
    void TakeColumns(const QRgb* from, QRgb* to) const;

    // The source column of each target column, for one pair of widths.
    std::vector<int> columns_;
    int canvasWidth_ = 0;
};

}  // namespace travo
