// Files that a camera leaves behind, whole and torn.
#include "experiment/bird/BirdStillFile.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>
#include <string>

namespace travo::test {
namespace {

QImage Sample(QImage::Format format, const QSize& size = QSize(7, 5)) {
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            picture.setPixel(x, y, qRgb(12 * x, 40 * y, 200 - x - y));
        }
    }
    return picture.convertToFormat(format);
}

QByteArray Bitmap(const QImage& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(picture.save(&buffer, "BMP"));
    return buffer.data();
}

// The same picture under the oldest header: 16 bits to a field, three bytes to a colour.
QByteArray OldestBitmap(const QImage& picture) {
    const QByteArray bytes = Bitmap(picture);
    const auto pixels = qFromLittleEndian<std::uint32_t>(bytes.constData() + 10);
    QByteArray old = bytes.first(14) + QByteArray(12, '\0');
    for (qsizetype colour = 54; colour < static_cast<qsizetype>(pixels); colour += 4) {
        old += bytes.sliced(colour, 3);
    }
    // A table of all colours that the depth allows.
    const int depth = picture.depth() == 32 ? 24 : picture.depth();
    old.resize(26 + (depth <= 8 ? 3 << depth : 0), '\0');
    const auto put = [&](qsizetype place, auto value) { qToLittleEndian(value, old.data() + place); };
    put(10, static_cast<std::uint32_t>(old.size()));
    put(14, std::uint32_t{12});
    put(18, static_cast<std::uint16_t>(picture.width()));
    put(20, static_cast<std::uint16_t>(picture.height()));
    put(22, std::uint16_t{1});
    put(24, static_cast<std::uint16_t>(depth));
    old += bytes.sliced(static_cast<qsizetype>(pixels));
    put(2, static_cast<std::uint32_t>(old.size()));
    return old;
}

template <typename Field>
void Put(QByteArray& bytes, qsizetype place, Field value) {
    qToLittleEndian(value, bytes.data() + place);
}

std::string WhyNot(const QByteArray& bytes) {
    try {
        DecodeBirdStill(bytes);
    } catch (const BirdStillFailure& failure) {
        return failure.what();
    }
    return "taken";
}

TEST(BirdStillFileTest, APictureOfAnyDepthComesAsPlainPixelsOf32Bits) {
    const QImage whole = Sample(QImage::Format_RGB32);
    EXPECT_EQ(DecodeBirdStill(Bitmap(whole)), whole);
    for (const QImage::Format format :
         {QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_Mono, QImage::Format_RGB888}) {
        const QImage picture = Sample(format);
        const QImage read = DecodeBirdStill(Bitmap(picture));
        EXPECT_EQ(read.format(), QImage::Format_RGB32);
        EXPECT_EQ(read, picture.convertToFormat(QImage::Format_RGB32)) << format;
        EXPECT_EQ(read.pixel(0, 0) >> 24U, 0xFFU);
    }
}

TEST(BirdStillFileTest, RowsFromTheTopAndFromTheBottomAreOneAndTheSame) {
    QByteArray bytes = Bitmap(Sample(QImage::Format_RGB888, QSize(4, 3)));
    Put<std::int32_t>(bytes, 22, -3);
    EXPECT_EQ(DecodeBirdStill(bytes), Sample(QImage::Format_RGB32, QSize(4, 3)).mirrored(false, true));
}

TEST(BirdStillFileTest, APictureUnderTheOldestHeaderOf12BytesIsTheSamePicture) {
    for (const QImage::Format format :
         {QImage::Format_RGB888, QImage::Format_Indexed8, QImage::Format_Mono}) {
        const QImage picture = Sample(format);
        const QByteArray old = OldestBitmap(picture);
        EXPECT_EQ(DecodeBirdStill(old), picture.convertToFormat(QImage::Format_RGB32)) << format;
        for (qsizetype length = 0; length < old.size(); ++length) {
            EXPECT_THROW(DecodeBirdStill(old.first(length)), BirdStillFailure) << format << " " << length;
        }
    }
    const auto changed = [](qsizetype place, std::uint16_t value) {
        QByteArray bytes = OldestBitmap(Sample(QImage::Format_RGB888));
        Put(bytes, place, value);
        return WhyNot(bytes);
    };
    EXPECT_EQ(changed(18, 0), "the still has no pixels");
    EXPECT_EQ(changed(20, 0), "the still has no pixels");
    // 16 bits without a sign: no picture that begins with its top row.
    EXPECT_EQ(changed(20, 0xFFFF), "the still is too large");
    EXPECT_EQ(changed(18, 16385), "the still is too large");
    EXPECT_EQ(changed(20, 6), "the still is cut off");
    EXPECT_EQ(changed(24, 7), "the still cannot be decoded");
}

TEST(BirdStillFileTest, RunLengthsAreReadOnlyWhereAllTheirBytesAreThere) {
    // One palette entry: a run of twenty, the end of the row, the end of the picture.
    QByteArray bytes = Bitmap(Sample(QImage::Format_Indexed8, QSize(20, 1)));
    const auto pixels = static_cast<qsizetype>(qFromLittleEndian<std::uint32_t>(bytes.constData() + 10));
    bytes.truncate(pixels);
    bytes.append(QByteArray("\x14\x01\x00\x00\x00\x01", 6));
    Put<std::uint32_t>(bytes, 2, static_cast<std::uint32_t>(bytes.size()));
    Put<std::uint32_t>(bytes, 30, 1);
    Put<std::uint32_t>(bytes, 34, 6);
    const QImage read = DecodeBirdStill(bytes);
    EXPECT_EQ(read.size(), QSize(20, 1));
    EXPECT_EQ(read.pixel(0, 0), read.pixel(19, 0));
    for (qsizetype length = pixels; length < bytes.size(); ++length) {
        EXPECT_NE(WhyNot(bytes.first(length)), "taken");
    }
    Put<std::uint32_t>(bytes, 34, 0);
    EXPECT_EQ(WhyNot(bytes), "the still has no pixels");
}

TEST(BirdStillFileTest, EveryBeginningOfAPictureIsAFailureAndNotHalfAPicture) {
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_RGB888, QImage::Format_Indexed8}) {
        const QByteArray whole = Bitmap(Sample(format));
        for (qsizetype length = 0; length < whole.size(); ++length) {
            EXPECT_THROW(DecodeBirdStill(whole.first(length)), BirdStillFailure) << length;
        }
        EXPECT_NO_THROW(DecodeBirdStill(whole));
        EXPECT_NO_THROW(DecodeBirdStill(whole + "padding"));
    }
}

TEST(BirdStillFileTest, AHeaderThatPromisesMoreThanTheFileHoldsIsAFailure) {
    const QByteArray whole = Bitmap(Sample(QImage::Format_RGB32));
    const auto changed = [&](qsizetype place, std::int32_t value) {
        QByteArray bytes = whole;
        Put(bytes, place, value);
        return WhyNot(bytes);
    };
    EXPECT_EQ(changed(18, 9), "the still is cut off");
    EXPECT_EQ(changed(22, 6), "the still is cut off");
    EXPECT_EQ(changed(22, -6), "the still is cut off");
    EXPECT_EQ(changed(10, 55), "the still is cut off");
    EXPECT_EQ(changed(10, -1), "the still is cut off");
    EXPECT_EQ(changed(2, static_cast<std::int32_t>(whole.size()) + 1), "the still is cut off");
    EXPECT_EQ(changed(18, 0), "the still has no pixels");
    EXPECT_EQ(changed(18, -7), "the still has no pixels");
    EXPECT_EQ(changed(22, 0), "the still has no pixels");
    EXPECT_EQ(changed(22, INT32_MIN), "the still is too large");
    EXPECT_EQ(changed(18, 16385), "the still is too large");
    EXPECT_EQ(changed(14, 16), "the still's header is unknown");
    // Bits to the pixel, in the upper half of the field.
    EXPECT_EQ(changed(26, 1), "the still has no pixels");
    EXPECT_EQ(changed(26, 1 + (7 << 16)), "the still cannot be decoded");
    EXPECT_EQ(changed(26, 1 + (64 << 16)), "the still cannot be decoded");
    EXPECT_EQ(changed(30, 77), "the still cannot be decoded");
}

TEST(BirdStillFileTest, WhatIsNoBitmapIsAFailure) {
    EXPECT_EQ(WhyNot({}), "the still is no bitmap");
    EXPECT_EQ(WhyNot(QByteArray(100, 'B')), "the still is no bitmap");
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(Sample(QImage::Format_RGB32, QSize(40, 40)).save(&buffer, "PNG"));
    EXPECT_EQ(WhyNot(buffer.data()), "the still is no bitmap");
}

TEST(BirdStillFileTest, ThePixelsMayBeMoreThanQtsOwnLimitWhichStaysAsItWas) {
    const int limit = QImageReader::allocationLimit();
    // 48 million pixels: 144 MB in the file, 192 MB in memory.
    QByteArray bytes = Bitmap(Sample(QImage::Format_RGB888, QSize(1, 1)));
    Put<std::int32_t>(bytes, 18, 8000);
    Put<std::int32_t>(bytes, 22, 6000);
    Put<std::uint32_t>(bytes, 2, 0);
    bytes.append(8000 * 6000 * 3, '\x7f');
    const QImage picture = DecodeBirdStill(bytes);
    EXPECT_EQ(picture.size(), QSize(8000, 6000));
    EXPECT_EQ(picture.pixel(7999, 0), qRgb(127, 127, 127));
    EXPECT_EQ(QImageReader::allocationLimit(), limit);
    EXPECT_NE(WhyNot(QByteArray()), "taken");
    EXPECT_EQ(QImageReader::allocationLimit(), limit);
}

QImage ReadAll(std::unique_ptr<QFile> file) {
    BirdStillFile still(std::move(file));
    return still.Read(QRect(QPoint(0, 0), still.Size()));
}

class BirdStillOnDiskTest : public ::testing::Test {
protected:
    void Write(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::string WhyNotRead() const {
        try {
            ReadAll(std::make_unique<QFile>(path));
        } catch (const BirdStillFailure& failure) {
            return failure.what();
        }
        return "taken";
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("BirdView.bmp"));
};

TEST_F(BirdStillOnDiskTest, AFileIsReadWhole) {
    Write(Bitmap(Sample(QImage::Format_RGB32)));
    EXPECT_EQ(ReadAll(std::make_unique<QFile>(path)), Sample(QImage::Format_RGB32));
}

TEST_F(BirdStillOnDiskTest, AFileThatIsMissingOrEmptyOrAFolderIsAFailure) {
    EXPECT_EQ(WhyNotRead(), "there is no still");
    Write({});
    EXPECT_EQ(WhyNotRead(), "the still is no bitmap");
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    EXPECT_EQ(WhyNotRead(), "there is no still");
}

TEST_F(BirdStillOnDiskTest, AFileTooLargeForAnyStillIsNotEvenRead) {
    Write({});
    QFile file(path);
    ASSERT_TRUE(file.resize(400'000'000));
    EXPECT_EQ(WhyNotRead(), "the still's file is too large");
}

// A file that the camera writes once more in the middle of the reading.
class Rewritten : public QFile {
public:
    Rewritten(const QString& path, const QByteArray& next) : QFile(path), next_(next) {}

protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 got = QFile::readData(data, size);
        if (!next_.isEmpty()) {
            QFile camera(fileName());
            EXPECT_TRUE(camera.open(QIODevice::WriteOnly));
            camera.write(next_);
            camera.flush();
            EXPECT_TRUE(camera.setFileTime(QDateTime::currentDateTime().addSecs(5), FileModificationTime));
            next_.clear();
        }
        return got;
    }

private:
    QByteArray next_;
};

TEST_F(BirdStillOnDiskTest, AFileThatIsRewrittenWhileItIsReadIsAFailure) {
    const QByteArray first = Bitmap(Sample(QImage::Format_RGB32));
    const QByteArray longer = Bitmap(Sample(QImage::Format_RGB32, QSize(70, 50)));
    for (const QByteArray& next : {first, longer, first.first(30)}) {
        Write(first);
        EXPECT_THROW(ReadAll(std::make_unique<Rewritten>(path, next)), BirdStillFailure);
    }
    Write(first);
    EXPECT_NO_THROW(ReadAll(std::make_unique<Rewritten>(path, QByteArray())));
}

}  // namespace
}  // namespace travo::test
