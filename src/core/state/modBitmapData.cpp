#include "core/state/modBitmapData.h"

#include <cstring>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr std::int16_t Done = 0;
constexpr std::int16_t Failed = -1;

using FlatRow = std::vector<std::uint32_t>;

// Width and height of a picture as offsets, and the way of one flat element.
struct Extent {
    std::size_t width;
    std::size_t height;

    std::size_t FlatSize() const { return width * height + 1; }
    std::size_t RowBytes() const { return width * sizeof(std::uint32_t); }

    // Calls for each x from 0 to w and each y from 0 to h - 1 with the flat element and the place in a
    // buffer whose rows are `columns` long.
    template <typename Procedure>
    void ForEach(std::size_t columns, const Procedure& procedure) const {
        for (std::size_t y = 0; y < height; ++y) {
            const std::size_t row = (height - y) * columns;
            for (std::size_t x = 0; x <= width; ++x) {
                procedure(y * width + x, row + width - x);
            }
        }
    }
};

template <typename Rows>
bool HasPixels(const Rows& picture) {
    return picture.pixels != nullptr && picture.width > 0 && picture.height > 0;
}

template <typename Rows>
bool Fits(const Rows& picture, const PixelBuffer& buffer) {
    return HasPixels(picture) && buffer.BoundX() >= picture.width && buffer.BoundY() >= picture.height;
}

template <typename Rows>
Extent ExtentOf(const Rows& picture) {
    return {static_cast<std::size_t>(picture.width), static_cast<std::size_t>(picture.height)};
}

// The flat row counts the picture's rows from below.
template <typename Rows>
auto* RowFromBelow(const Rows& picture, std::size_t row) {
    return picture.pixels + (picture.height - 1 - static_cast<std::ptrdiff_t>(row)) * picture.bytesPerRow;
}

std::size_t Columns(const PixelBuffer& buffer) { return static_cast<std::size_t>(buffer.BoundX()) + 1; }

}  // namespace

PixelBuffer::PixelBuffer(std::int32_t boundX, std::int32_t boundY) : boundX_(boundX), boundY_(boundY) {
    if (boundX < 0 || boundY < 0) {
        ThrowBounds();
    }
    pixels_.resize((static_cast<std::size_t>(boundX) + 1) * (static_cast<std::size_t>(boundY) + 1));
}

std::size_t PixelBuffer::Place(std::int32_t x, std::int32_t y) const {
    const auto columns = static_cast<std::size_t>(boundX_) + 1;
    const auto rows = static_cast<std::size_t>(boundY_) + 1;
    return Bounded(y, rows) * columns + Bounded(x, columns);
}

std::int16_t ReadBitmapPixels(const ConstBitmapRows& picture, PixelBuffer& buffer) {
    if (!Fits(picture, buffer)) {
        return Failed;
    }
    const Extent extent = ExtentOf(picture);
    FlatRow flat(extent.FlatSize());
    for (std::size_t row = 0; row < extent.height; ++row) {
        std::memcpy(flat.data() + row * extent.width, RowFromBelow(picture, row), extent.RowBytes());
    }
    const auto pixels = buffer.Pixels();
    extent.ForEach(Columns(buffer), [&](std::size_t from, std::size_t to) { pixels[to] = flat[from]; });
    return Done;
}

std::int16_t WriteBitmapPixels(const BitmapRows& picture, const PixelBuffer& buffer) {
    if (!Fits(picture, buffer)) {
        return Failed;
    }
    const Extent extent = ExtentOf(picture);
    FlatRow flat(extent.FlatSize());
    const auto pixels = buffer.Pixels();
    extent.ForEach(Columns(buffer), [&](std::size_t to, std::size_t from) { flat[to] = pixels[from]; });
    for (std::size_t row = 0; row < extent.height; ++row) {
        std::memcpy(RowFromBelow(picture, row), flat.data() + row * extent.width, extent.RowBytes());
    }
    return Done;
}

}  // namespace travo
