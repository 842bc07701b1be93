#include "experiment/bird/BirdStillFile.h"

#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "experiment/bird/BirdRunLengths.h"

namespace travo {

namespace {

constexpr std::int64_t GreatestSide = 16384;
constexpr std::int64_t GreatestArea = 64'000'000;
constexpr int GreatestDepth = 32;
// 32 bits to the pixel, and room for headers, tables and padding.
constexpr std::int64_t GreatestFile = 4 * GreatestArea + 1'000'000;
// Up to here a file is read whole.
constexpr std::int64_t GreatestWholeArea = 4'000'000;
constexpr std::int64_t GreatestWholeFile = 4 * GreatestWholeArea + 1'000'000;
// More than any header with its tables takes.
constexpr std::int64_t GreatestHead = 65536;
constexpr std::int64_t RunLengthsAtOnce = 65536;

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
constexpr std::int64_t LeastInfo = 40;

// The oldest header has 16 bits to a field, and none for a compression.
constexpr std::int64_t CoreInfo = 12;
constexpr std::int64_t CoreHeightAt = 20;
constexpr std::int64_t CoreDepthAt = 24;
constexpr std::int64_t CoreHeader = 26;

// Run lengths: only the header knows how many bytes the pixels take.
constexpr std::uint32_t RunLength8 = 1;
constexpr std::uint32_t RunLength4 = 2;

template <typename Field>
Field At(const QByteArray& bytes, std::int64_t place) {
    return qFromLittleEndian<Field>(bytes.constData() + place);
}

template <typename Field>
void Put(QByteArray& bytes, std::int64_t place, std::int64_t value) {
    qToLittleEndian(static_cast<Field>(value), bytes.data() + place);
}

void Demand(bool holds, const char* text) {
    if (!holds) {
        throw BirdStillFailure(text);
    }
}

std::int64_t RowBytes(std::int64_t width, int bitsToPixel) { return (width * bitsToPixel + 31) / 32 * 4; }

// The fields of one of both kinds of header.
BirdStillHead Fields(const QByteArray& bytes) {
    BirdStillHead head;
    head.headSize = At<std::uint32_t>(bytes, InfoSizeAt);
    head.pixelsFrom = At<std::uint32_t>(bytes, PixelsFromAt);
    if (head.headSize == CoreInfo) {
        head.width = At<std::uint16_t>(bytes, WidthAt);
        head.height = At<std::uint16_t>(bytes, CoreHeightAt);
        head.bitsToPixel = At<std::uint16_t>(bytes, CoreDepthAt);
        return head;
    }
    Demand(head.headSize >= LeastInfo, "the still's header is unknown");
    Demand(bytes.size() >= LeastHeader, "the still is cut off");
    head.width = At<std::int32_t>(bytes, WidthAt);
    // Below 0 for a picture that begins with its top row.
    const std::int64_t height = At<std::int32_t>(bytes, HeightAt);
    head.height = std::llabs(height);
    head.isFromTop = height < 0;
    head.bitsToPixel = At<std::uint16_t>(bytes, DepthAt);
    const auto compression = At<std::uint32_t>(bytes, CompressionAt);
    head.isRunLength = compression == RunLength8 || compression == RunLength4;
    return head;
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

// The head of a file that holds a part of the picture, without run lengths, whose first pixel follows it.
QByteArray HeadOfPart(QByteArray head, const BirdStillHead& of, const QSize& part) {
    const int bitsToPixel = of.isRunLength ? 8 : of.bitsToPixel;
    const std::int64_t pixelBytes = RowBytes(part.width(), bitsToPixel) * part.height();
    Put<std::uint32_t>(head, FileSizeAt, head.size() + pixelBytes);
    Put<std::uint32_t>(head, PixelsFromAt, head.size());
    if (of.headSize == CoreInfo) {
        Put<std::uint16_t>(head, WidthAt, part.width());
        Put<std::uint16_t>(head, CoreHeightAt, part.height());
        return head;
    }
    Put<std::int32_t>(head, WidthAt, part.width());
    Put<std::int32_t>(head, HeightAt, of.isFromTop ? -part.height() : part.height());
    Put<std::uint32_t>(head, PixelBytesAt, pixelBytes);
    if (of.isRunLength) {
        constexpr std::int64_t ColoursAt = 46;
        if (At<std::uint32_t>(head, ColoursAt) == 0) {
            Put<std::uint32_t>(head, ColoursAt, std::int64_t{1} << of.bitsToPixel);
        }
        Put<std::uint16_t>(head, DepthAt, bitsToPixel);
        Put<std::uint32_t>(head, CompressionAt, 0);
    }
    return head;
}

// A row of a bitmap file takes whole groups of four bytes.
void AddRow(QByteArray& bytes, const QByteArray& row) {
    bytes.append(row);
    bytes.append((4 - row.size() % 4) % 4, '\0');
}

}  // namespace

BirdStillHead ReadBirdStillHead(const QByteArray& bytes, std::int64_t fileSize) {
    Demand(bytes.size() >= CoreHeader && bytes.startsWith("BM"), "the still is no bitmap");
    BirdStillHead head = Fields(bytes);
    Demand(head.width > 0 && head.height > 0, "the still has no pixels");
    Demand(
        head.width <= GreatestSide && head.height <= GreatestSide && head.width * head.height <= GreatestArea,
        "the still is too large");
    Demand(head.bitsToPixel <= GreatestDepth, "the still cannot be decoded");
    if (head.isRunLength) {
        head.pixelBytes = At<std::uint32_t>(bytes, PixelBytesAt);
    } else {
        head.rowBytes = RowBytes(head.width, head.bitsToPixel);
        head.pixelBytes = head.rowBytes * head.height;
    }
    Demand(head.pixelBytes > 0, "the still has no pixels");
    Demand(head.pixelsFrom + head.pixelBytes <= fileSize && At<std::uint32_t>(bytes, FileSizeAt) <= fileSize,
           "the still is cut off");
    return head;
}

QImage DecodeBirdStill(const QByteArray& bytes) {
    // Qt gives a picture that ends early as one whose rest is black.
    ReadBirdStillHead(bytes, bytes.size());
    const ReaderLimit limit;
    QImage picture = QImage::fromData(bytes, "BMP");
    Demand(!picture.isNull(), "the still cannot be decoded");
    picture.convertTo(QImage::Format_RGB32);
    picture.setDevicePixelRatio(1);
    return picture;
}

BirdStillFile::BirdStillFile(const QString& path) : BirdStillFile(std::make_unique<QFile>(path)) {}

BirdStillFile::BirdStillFile(std::unique_ptr<QFile> file) : file_(std::move(file)) {
    const QFileInfo info(file_->fileName());
    Demand(info.isFile(), "there is no still");
    Demand(info.size() <= GreatestFile, "the still's file is too large");
    Demand(file_->open(QIODevice::ReadOnly | QIODevice::Unbuffered), "the still cannot be opened");
    size_ = file_->size();
    written_ = file_->fileTime(QFileDevice::FileModificationTime);
    head_ = ReadBirdStillHead(Bytes(0, std::min(size_, LeastHeader)), size_);
}

QImage BirdStillFile::Read(const QRect& part) {
    const QRect all(QPoint(0, 0), Size());
    Demand(!part.isEmpty() && all.contains(part), "the still has no such part");
    // Run lengths are ours to read: Qt shows whatever memory held where they leave a pixel out.
    const bool isSmall = !head_.isRunLength && head_.width * head_.height <= GreatestWholeArea &&
                         head_.pixelsFrom + head_.pixelBytes <= GreatestWholeFile;
    QImage picture = isSmall ? ReadWhole() : ReadPart(part);
    DemandUnchanged();
    return isSmall && part != all ? picture.copy(part) : picture;
}

QByteArray BirdStillFile::Bytes(std::int64_t from, std::int64_t count) {
    QByteArray bytes(count, Qt::Uninitialized);
    const bool isRead = file_->seek(from) && file_->read(bytes.data(), count) == count;
    if (!isRead) {
        DemandUnchanged();
    }
    Demand(isRead, "the still cannot be read");
    return bytes;
}

void BirdStillFile::DemandUnchanged() {
    // The size first: asking for it looks at the file anew.
    Demand(file_->size() == size_ && file_->fileTime(QFileDevice::FileModificationTime) == written_,
           "the still is being written");
}

QImage BirdStillFile::ReadWhole() {
    // What follows the pixels may be long and is nothing to us, but a head that says too early a place for
    // them, where they come right behind it.
    QByteArray bytes = Bytes(0, std::min(size_, head_.pixelsFrom + head_.pixelBytes + GreatestHead));
    Put<std::uint32_t>(bytes, FileSizeAt, bytes.size());
    return DecodeBirdStill(bytes);
}

// By a file in memory that holds the part alone: whatever depth and masks it has, Qt knows it.
QImage BirdStillFile::ReadPart(const QRect& part) {
    Demand(head_.pixelsFrom >= InfoSizeAt + head_.headSize, "the still cannot be decoded");
    // Of pixels that share a byte the first one is read as well.
    const int shared = head_.bitsToPixel < 8 && !head_.isRunLength ? 8 / head_.bitsToPixel : 1;
    const int before = part.left() % shared;
    const std::int64_t firstRow = head_.isFromTop ? part.top() : head_.height - 1 - part.bottom();
    const QRect wide(part.left() - before, static_cast<int>(firstRow), part.width() + before, part.height());
    const QByteArray head = Bytes(0, std::min(head_.pixelsFrom, GreatestHead));
    const QByteArray rows = head_.isRunLength ? ExpandedRows(wide) : Rows(wide);
    return DecodeBirdStill(HeadOfPart(head, head_, wide.size()) + rows)
        .copy(QRect(QPoint(before, 0), part.size()));
}

QByteArray BirdStillFile::Rows(const QRect& part) {
    const std::int64_t skipped = std::int64_t{part.left()} * head_.bitsToPixel / 8;
    const std::int64_t wanted = (std::int64_t{part.width()} * head_.bitsToPixel + 7) / 8;
    QByteArray rows;
    for (std::int64_t row = part.top(); row <= part.bottom(); ++row) {
        AddRow(rows, Bytes(head_.pixelsFrom + row * head_.rowBytes + skipped, wanted));
    }
    return rows;
}

QByteArray BirdStillFile::ExpandedRows(const QRect& part) {
    std::int64_t place = head_.pixelsFrom;
    const std::int64_t end = place + head_.pixelBytes;
    const BirdByteSource source = [&] {
        const std::int64_t from = place;
        place = std::min(place + RunLengthsAtOnce, end);
        return from < place ? Bytes(from, place - from) : QByteArray();
    };
    const QByteArray indices = ExpandRunLengths(source, Size(), part, head_.bitsToPixel == 4);
    QByteArray rows;
    for (qsizetype row = 0; row < part.height(); ++row) {
        AddRow(rows, indices.sliced(row * part.width(), part.width()));
    }
    return rows;
}

}  // namespace travo
