// Reads the picture file that the live camera writes.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QRect>
#include <QString>
#include <cstdint>
#include <memory>

#include "core/ground/Arithmetic.h"

namespace travo {

// The still cannot be read; the text says why.
class BirdStillFailure : public Failure {
public:
    using Failure::Failure;
};

// What the head of a device-independent bitmap file says, and how long the file must be for it.
struct BirdStillHead {
    std::int64_t width = 0;       // 1 to 16384 pixels, 64 million with the height in all
    std::int64_t height = 0;      // without its sign
    bool isFromTop = false;       // else the lowest row comes first
    std::int64_t headSize = 0;    // of the information header: 12, or 40 and more
    std::int64_t pixelsFrom = 0;  // bytes from the file's start
    std::int64_t pixelBytes = 0;  // of all rows
    std::int64_t rowBytes = 0;    // 0 where rows are run lengths, of no fixed size
    int bitsToPixel = 0;
    bool isRunLength = false;
};

// `bytes` are the file's first ones, at least 54 of them or all that there are. Raises BirdStillFailure for
// what is no complete picture in a file of that many bytes: half a still would be taken for the field.
BirdStillHead ReadBirdStillHead(const QByteArray& bytes, std::int64_t fileSize);

// A whole device-independent bitmap file of any depth, as RGB32 with a fourth byte of 0xFF. Raises
// BirdStillFailure as above.
QImage DecodeBirdStill(const QByteArray& bytes);

// A still's file, held open: what is read from it later is of the same still, also when the camera has put
// another file in its place.
class BirdStillFile {
public:
    // Opens an ordinary file and reads its head. Raises BirdStillFailure where the file is missing, no
    // ordinary file, cannot be read, or holds no complete picture.
    explicit BirdStillFile(std::unique_ptr<QFile> file);
    explicit BirdStillFile(const QString& path);

    QSize Size() const { return {static_cast<int>(head_.width), static_cast<int>(head_.height)}; }

    // The pixels of a part, which lies within the still, as DecodeBirdStill would give them: what they take
    // and no more is read, but for run lengths, which are read from their beginning. Raises BirdStillFailure
    // where they cannot be read, or the file has been written to since it was opened.
    QImage Read(const QRect& part);

private:
    QByteArray Bytes(std::int64_t from, std::int64_t count);
    void DemandUnchanged();
    QImage ReadWhole();
    QImage ReadPart(const QRect& part);
    // The part's rows, in the order of the file, as a file without run lengths holds them.
    QByteArray Rows(const QRect& part);
    QByteArray ExpandedRows(const QRect& part);

    std::unique_ptr<QFile> file_;
    QDateTime written_;
    std::int64_t size_ = 0;
    BirdStillHead head_;
};

}  // namespace travo
