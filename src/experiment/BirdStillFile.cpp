#include "experiment/BirdStillFile.h"

#include <QBuffer>
#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>
#include <cstdlib>

namespace travo {

namespace {

constexpr std::int64_t GreatestSide = 16384;
constexpr std::int64_t GreatestArea = 64'000'000;
// 32 bits to the pixel, and room for headers, tables and padding.
constexpr std::int64_t GreatestFile = 4 * GreatestArea + 1'000'000;

// Where the fields lie that we look at, in bytes from the file's start.
constexpr std::int64_t FileSizeAt = 2;
constexpr std::int64_t PixelsFromAt = 10;
constexpr std::int64_t InfoSizeAt = 14;
constexpr std::int64_t WidthAt = 18;
constexpr std::int64_t HeightAt = 22;
constexpr std::int64_t DepthAt = 28;
constexpr std::int64_t CompressionAt = 30;
constexpr std::int64_t PixelBytesAt = 34;
constexpr std::int64_t LeastHeader = 54;
constexpr std::uint32_t LeastInfo = 40;

// Run lengths: only the header knows how many bytes the pixels take.
constexpr std::uint32_t RunLength8 = 1;
constexpr std::uint32_t RunLength4 = 2;

template <typename Field>
Field At(const QByteArray& bytes, std::int64_t place) {
    return qFromLittleEndian<Field>(bytes.constData() + place);
}

void Demand(bool holds, const char* text) {
    if (!holds) {
        throw BirdStillFailure(text);
    }
}

std::int64_t PixelBytes(const QByteArray& bytes, std::int64_t width, std::int64_t height) {
    const auto compression = At<std::uint32_t>(bytes, CompressionAt);
    if (compression == RunLength8 || compression == RunLength4) {
        return At<std::uint32_t>(bytes, PixelBytesAt);
    }
    const std::int64_t rowBits = width * At<std::uint16_t>(bytes, DepthAt);
    return (rowBits + 31) / 32 * 4 * height;
}

// Qt gives a picture that ends early as one whose rest is black.
void DemandComplete(const QByteArray& bytes) {
    Demand(bytes.size() >= LeastHeader && bytes.startsWith("BM"), "the still is no bitmap");
    Demand(At<std::uint32_t>(bytes, InfoSizeAt) >= LeastInfo, "the still's header is unknown");
    const std::int64_t width = At<std::int32_t>(bytes, WidthAt);
    // Below 0 for a picture that begins with its top row.
    const std::int64_t height = std::llabs(At<std::int32_t>(bytes, HeightAt));
    Demand(width > 0 && height > 0, "the still has no pixels");
    Demand(width <= GreatestSide && height <= GreatestSide && width * height <= GreatestArea,
           "the still is too large");
    const std::int64_t pixels = PixelBytes(bytes, width, height);
    Demand(pixels > 0, "the still has no pixels");
    Demand(At<std::uint32_t>(bytes, PixelsFromAt) + pixels <= bytes.size() &&
               At<std::uint32_t>(bytes, FileSizeAt) <= bytes.size(),
           "the still is cut off");
}

// Qt's own limit of 128 MB to a picture is below ours.
class ReaderLimit {
public:
    ReaderLimit() { QImageReader::setAllocationLimit(static_cast<int>(GreatestFile / 1'000'000)); }
    ~ReaderLimit() { QImageReader::setAllocationLimit(former_); }
    ReaderLimit(const ReaderLimit&) = delete;
    ReaderLimit& operator=(const ReaderLimit&) = delete;

private:
    int former_ = QImageReader::allocationLimit();
};

}  // namespace

QImage DecodeBirdStill(const QByteArray& bytes) {
    DemandComplete(bytes);
    const ReaderLimit limit;
    QImage picture = QImage::fromData(bytes, "BMP");
    Demand(!picture.isNull(), "the still cannot be decoded");
    picture.convertTo(QImage::Format_RGB32);
    picture.setDevicePixelRatio(1);
    return picture;
}

QImage ReadBirdStill(QFile& file) {
    const QFileInfo info(file.fileName());
    Demand(info.isFile(), "there is no still");
    Demand(info.size() <= GreatestFile, "the still's file is too large");
    Demand(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered), "the still cannot be opened");
    const QDateTime before = file.fileTime(QFileDevice::FileModificationTime);
    const QByteArray bytes = file.readAll();
    Demand(file.error() == QFileDevice::NoError, "the still cannot be read");
    Demand(file.size() == bytes.size() && file.fileTime(QFileDevice::FileModificationTime) == before,
           "the still is being written");
    return DecodeBirdStill(bytes);
}

QImage ReadBirdStill(const QString& path) {
    QFile file(path);
    return ReadBirdStill(file);
}

}  // namespace travo
