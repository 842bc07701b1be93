// Where heights of the common frame lie on the strip of heights.
#pragma once

namespace workbench {

// The range, in common units, to both sides of its middle.
inline constexpr double FirstDepthReach = 250.0;
inline constexpr double LeastDepthReach = 10.0;
inline constexpr double MostDepthReach = 13000.0;

struct DepthScale {
    double top = 0.0;     // pixel of the highest height shown
    double bottom = 1.0;  // pixel of the lowest
    double middle = 0.0;  // height in the middle
    double reach = FirstDepthReach;

    double Lowest() const { return middle - reach; }
    double Highest() const { return middle + reach; }
    double PixelsPerUnit() const { return (bottom - top) / (2.0 * reach); }
    double Pixel(double height) const { return bottom - (height - Lowest()) * PixelsPerUnit(); }
    double HeightAt(double pixel) const { return Lowest() + (bottom - pixel) / PixelsPerUnit(); }
    bool IsShown(double height) const { return height >= Lowest() && height <= Highest(); }
    // Units between two ticks: the smallest of 1, 2, 5, 10, ... that is at least 44 pixels.
    double TickStep() const;
    // The same with so many times the units to a pixel, within the limits; the height at that pixel stays.
    DepthScale ZoomedAbout(double pixel, double factor) const;
    // The same with all heights moved down by so many pixels.
    DepthScale PannedBy(double pixels) const;

    bool operator==(const DepthScale&) const = default;
};

}  // namespace workbench
