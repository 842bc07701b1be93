// Direct access to the pixels of a picture, for windows that compute what they show.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace travo {

// A two-dimensional array of 32-bit pixels: blue, green, red and a fourth byte, blue in the lowest bits.
// The first index is x, the second y; both run from 0 to their bound, the bound included.
class PixelBuffer {
public:
    // Without a single pixel.
    PixelBuffer() = default;
    // All pixels 0. BoundsFailure for a bound below 0.
    PixelBuffer(std::int32_t boundX, std::int32_t boundY);

    // -1 while there is no pixel.
    std::int32_t BoundX() const { return boundX_; }
    std::int32_t BoundY() const { return boundY_; }

    // BoundsFailure beyond the bounds.
    std::uint32_t Pixel(std::int32_t x, std::int32_t y) const { return pixels_[Place(x, y)]; }
    void Pixel(std::int32_t x, std::int32_t y, std::uint32_t pixel) { pixels_[Place(x, y)] = pixel; }

    // All pixels, x running fastest: for what is done to each of them alike.
    std::span<std::uint32_t> Pixels() { return pixels_; }
    std::span<const std::uint32_t> Pixels() const { return pixels_; }

private:
    std::size_t Place(std::int32_t x, std::int32_t y) const;

    std::int32_t boundX_ = -1;
    std::int32_t boundY_ = -1;
    std::vector<std::uint32_t> pixels_;
};

// Where a picture of 32 bits to the pixel lies in memory: its rows from the top, `bytesPerRow` apart.
// The pixels belong to the picture and must outlive this. A picture without pixels has null or no size.
struct ConstBitmapRows {
    const std::byte* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::ptrdiff_t bytesPerRow = 0;
};
struct BitmapRows {
    std::byte* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::ptrdiff_t bytesPerRow = 0;
};

// Copy a picture of w by h pixels into the buffer, and back. Result 0, or -1 with nothing changed: the
// picture has no pixels, or the buffer's bounds are below w and h.
//
// The copy goes through a flat row of w * h + 1 pixels that begins with the picture's lowest row, read
// from the left. For y from 0 to h - 1 and x from 0 to w, both included, its element y * w + x belongs to
// the buffer's pixel (w - x, h - y): the buffer holds the picture turned left to right in columns 1 to w
// and rows 1 to h. Column 0 repeats the neighbouring row's first pixel; (0, 1) is the flat row's last
// element, 0 after reading and dropped in writing. Row 0 is never touched. Where two pixels of the buffer
// share an element, column w counts in writing. Reading and then writing changes no picture.
std::int16_t ReadBitmapPixels(const ConstBitmapRows& picture, PixelBuffer& buffer);
std::int16_t WriteBitmapPixels(const BitmapRows& picture, const PixelBuffer& buffer);

// A QImage and whatever offers its pixels likewise: this floor knows no pictures by name.
template <typename Image>
concept PictureInMemory = requires(Image& picture) {
    picture.isNull();
    picture.depth();
    picture.bytesPerLine();
    picture.constBits();
    picture.bits();
};

// The same on such a picture. -1 also where it has not 32 bits to the pixel.
template <PictureInMemory Image>
std::int16_t ReadBitmapPixels(const Image& picture, PixelBuffer& buffer) {
    if (picture.isNull() || picture.depth() != 32) {
        return -1;
    }
    return ReadBitmapPixels(ConstBitmapRows{reinterpret_cast<const std::byte*>(picture.constBits()),
                                            picture.width(), picture.height(), picture.bytesPerLine()},
                            buffer);
}

template <PictureInMemory Image>
std::int16_t WriteBitmapPixels(Image& picture, const PixelBuffer& buffer) {
    if (picture.isNull() || picture.depth() != 32) {
        return -1;
    }
    return WriteBitmapPixels(BitmapRows{reinterpret_cast<std::byte*>(picture.bits()), picture.width(),
                                        picture.height(), picture.bytesPerLine()},
                             buffer);
}

}  // namespace travo
