// Parts of stills that are too large to be held whole.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QtEndian>
#include <initializer_list>
#include <random>
#include <string>

#include "experiment/bird/BirdRunLengths.h"
#include "experiment/bird/BirdStillFile.h"

namespace travo::test {
namespace {

// A little more than what is read whole.
constexpr QSize Large(2501, 1603);

template <typename Field>
void Put(QByteArray& bytes, qsizetype place, Field value) {
    qToLittleEndian(value, bytes.data() + place);
}

void Add(QByteArray& bytes, std::initializer_list<int> values) {
    for (const int value : values) {
        bytes.append(static_cast<char>(value));
    }
}

// The head of a file whose pixels follow its colour table of greys.
QByteArray Head(const QSize& size, std::uint16_t bitsToPixel, std::uint32_t compression = 0) {
    QByteArray head(54, '\0');
    head[0] = 'B';
    head[1] = 'M';
    Put(head, 14, std::uint32_t{40});
    Put(head, 18, static_cast<std::int32_t>(size.width()));
    Put(head, 22, static_cast<std::int32_t>(size.height()));
    Put(head, 26, std::uint16_t{1});
    Put(head, 28, bitsToPixel);
    Put(head, 30, compression);
    const int colours = bitsToPixel <= 8 ? 1 << bitsToPixel : 0;
    for (int colour = 0; colour < colours; ++colour) {
        const int grey = colour * 255 / (colours - 1);
        Add(head, {grey, 255 - colour, grey, 0});
    }
    Put(head, 10, static_cast<std::uint32_t>(head.size()));
    return head;
}

QByteArray Noise(qsizetype count) {
    QByteArray bytes(count, '\0');
    std::mt19937 random(7);
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

QByteArray NoiseOf(const QSize& size, std::uint16_t bitsToPixel) {
    const qsizetype rowBytes = (qsizetype{size.width()} * bitsToPixel + 31) / 32 * 4;
    return Head(size, bitsToPixel) + Noise(rowBytes * size.height());
}

// Runs, pixels one by one, moves and early ends of rows, as they come.
class RunLengthWriter {
public:
    RunLengthWriter(const QSize& size, bool areNibbles)
        : size_(size), areNibbles_(areNibbles), picture_(size, QImage::Format_Indexed8) {
        const QByteArray head = Head(size_, BitsToPixel());
        for (qsizetype colour = 54; colour < head.size(); colour += 4) {
            const auto channel = [&](qsizetype place) { return static_cast<unsigned char>(head[place]); };
            colours_.append(qRgb(channel(colour + 2), channel(colour + 1), channel(colour)));
        }
        picture_.setColorTable(colours_);
        picture_.fill(0);
    }

    QByteArray Write() {
        for (y_ = size_.height() - 1; y_ >= 0; --y_) {
            x_ = 0;
            WriteRow();
            Add(bytes_, {0, 0});
        }
        Add(bytes_, {0, 1});
        QByteArray head = Head(size_, BitsToPixel(), areNibbles_ ? 2 : 1);
        Put(head, 34, static_cast<std::uint32_t>(bytes_.size()));
        return head + bytes_;
    }
    QImage Picture() const { return picture_.convertToFormat(QImage::Format_RGB32); }

private:
    std::uint16_t BitsToPixel() const { return areNibbles_ ? 4 : 8; }
    int Random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    // Two to a byte, or one: what the picture then shows, `count` at the most.
    void Draw(int value, int count) {
        for (int i = 0; i < count; ++i) {
            const int nibble = i % 2 == 0 ? value / 16 : value % 16;
            picture_.setPixel(x_++, y_, static_cast<uint>(areNibbles_ ? nibble : value));
        }
    }

    void WriteRow() {
        while (x_ < size_.width()) {
            const int kind = Random(40);
            const int count = std::min(size_.width() - x_, 3 + Random(200));
            if (kind == 0) {
                return;
            }
            if (kind == 1) {
                Add(bytes_, {0, 2, count, 0});
                x_ += count;
            } else if (kind < 10 && count >= 3) {
                WriteOneByOne(count);
            } else {
                const int value = Random(256);
                Add(bytes_, {count, value});
                Draw(value, count);
            }
        }
    }

    void WriteOneByOne(int count) {
        Add(bytes_, {0, count});
        const int inOne = areNibbles_ ? 2 : 1;
        const int byteCount = (count + inOne - 1) / inOne;
        for (int i = 0; i < byteCount; ++i) {
            const int value = Random(256);
            Add(bytes_, {value});
            Draw(value, std::min(inOne, count - i * inOne));
        }
        if (byteCount % 2 == 1) {
            Add(bytes_, {0});
        }
    }

    QSize size_;
    bool areNibbles_;
    QImage picture_;
    QList<QRgb> colours_;
    std::mt19937 random_{11};
    QByteArray bytes_;
    int x_ = 0;
    int y_ = 0;
};

class BirdStillPartTest : public ::testing::Test {
protected:
    void Write(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void ExpectPartsOf(const QByteArray& bytes, const QImage& whole, const std::string& what) const {
        Write(bytes);
        BirdStillFile still(path);
        ASSERT_EQ(still.Size(), whole.size());
        for (const QRect& part : {QRect(0, 0, 1, 1), QRect(803, 500, 756, 756), QRect(2500, 1602, 1, 1),
                                  QRect(1, 1000, 9, 600), QRect(0, 0, 2501, 3), QRect(1745, 0, 756, 1603)}) {
            EXPECT_EQ(still.Read(part), whole.copy(part)) << what << " at " << part.left();
        }
    }
    std::string WhyNot() const {
        try {
            BirdStillFile still(path);
            still.Read(QRect(0, 0, 1, 1));
        } catch (const BirdStillFailure& failure) {
            return failure.what();
        }
        return "taken";
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("BirdView.bmp"));
};

TEST_F(BirdStillPartTest, APartIsWhatTheWholePictureShowsThereAtEveryDepthAndInBothOrdersOfRows) {
    for (const int depth : {1, 4, 8, 16, 24, 32}) {
        const auto bitsToPixel = static_cast<std::uint16_t>(depth);
        QByteArray bytes = NoiseOf(Large, bitsToPixel);
        ExpectPartsOf(bytes, DecodeBirdStill(bytes), "lowest row first, bits " + std::to_string(depth));
        Put(bytes, 22, -Large.height());
        ExpectPartsOf(bytes, DecodeBirdStill(bytes), "top row first, bits " + std::to_string(depth));
    }
}

TEST_F(BirdStillPartTest, APartUnderTheOldestHeaderIsWhatTheWholePictureShowsThere) {
    QByteArray head = QByteArray("BM") + QByteArray(24, '\0');
    Put(head, 10, std::uint32_t{26});
    Put(head, 14, std::uint32_t{12});
    Put(head, 18, static_cast<std::uint16_t>(Large.width()));
    Put(head, 20, static_cast<std::uint16_t>(Large.height()));
    Put(head, 22, std::uint16_t{1});
    Put(head, 24, std::uint16_t{24});
    const QByteArray bytes = head + NoiseOf(Large, 24).sliced(54);
    ExpectPartsOf(bytes, DecodeBirdStill(bytes), "24 bits");
}

TEST_F(BirdStillPartTest, APartOfRunLengthsIsWhatTheWholePictureShowsThere) {
    for (const bool areNibbles : {false, true}) {
        RunLengthWriter writer(Large, areNibbles);
        const QByteArray bytes = writer.Write();
        ExpectPartsOf(bytes, writer.Picture(), areNibbles ? "nibbles" : "bytes");
    }
}

// Qt shows whatever memory held where they leave a pixel out.
TEST_F(BirdStillPartTest, RunLengthsOfASmallStillLeavePixelsOutInThePalettesFirstColour) {
    RunLengthWriter writer(QSize(301, 200), true);
    Write(writer.Write());
    BirdStillFile still(path);
    EXPECT_EQ(still.Read(QRect(0, 0, 301, 200)), writer.Picture());
}

TEST_F(BirdStillPartTest, RunLengthsThatEndEarlyOrRunOverTheirRowsLeaveIndex0) {
    const auto expand = [](const QByteArray& runs, const QRect& part) {
        QByteArray rest = runs;
        // Three bytes at a time, so that runs are torn.
        return ExpandRunLengths(
            [&] {
                const QByteArray next = rest.first(std::min<qsizetype>(3, rest.size()));
                rest.remove(0, next.size());
                return next;
            },
            QSize(4, 3), part, false);
    };
    const QRect all(0, 0, 4, 3);
    EXPECT_EQ(expand({}, all), QByteArray(12, '\0'));
    EXPECT_EQ(expand(QByteArray("\x09\x05", 2), all), QByteArray("\5\5\5\5\0\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(expand(QByteArray("\x02\x05\x00\x00\x00\x01", 6), all),
              QByteArray("\5\5\0\0\0\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(expand(QByteArray("\x00\x02\x03\x01\x02\x07", 6), all),
              QByteArray("\0\0\0\0\0\0\0\7\0\0\0\0", 12));
    EXPECT_EQ(expand(QByteArray("\x00\x03\x01\x02", 4), all), QByteArray("\1\2\0\0\0\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(expand(QByteArray("\x00\x02\xff\xff\x02\x07", 6), all), QByteArray(12, '\0'));
    EXPECT_EQ(expand(QByteArray("\x00\x03\x01\x02\x03\x00\x01\x04", 8), QRect(1, 0, 3, 1)),
              QByteArray("\2\3\4", 3));
}

TEST_F(BirdStillPartTest, APartOutsideTheStillIsAFailure) {
    Write(NoiseOf(Large, 8));
    BirdStillFile still(path);
    for (const QRect& part : {QRect(), QRect(-1, 0, 5, 5), QRect(0, 0, 2502, 1), QRect(0, 1603, 1, 1)}) {
        EXPECT_THROW(still.Read(part), BirdStillFailure);
    }
}

TEST_F(BirdStillPartTest, AnotherFilePutInItsPlaceLeavesTheStillThatWasOpened) {
    const QByteArray bytes = NoiseOf(Large, 24);
    const QRect part(700, 700, 756, 756);
    Write(bytes);
    BirdStillFile still(path);
    const QString next = folder.filePath(QStringLiteral("next"));
    ASSERT_TRUE(QFile::rename(path, next));
    Write(QByteArray("BM"));
    ASSERT_TRUE(QFile::remove(next));
    EXPECT_EQ(still.Read(part), DecodeBirdStill(bytes).copy(part));
}

TEST_F(BirdStillPartTest, AFileThatIsWrittenOverIsAFailureFromThenOn) {
    Write(NoiseOf(Large, 24));
    BirdStillFile still(path);
    const QRect part(700, 700, 756, 756);
    EXPECT_NO_THROW(still.Read(part));
    // A camera that saves without another name: the file is short for a moment, then whole again.
    {
        QFile camera(path);
        ASSERT_TRUE(camera.open(QIODevice::ReadWrite));
        ASSERT_TRUE(camera.resize(1'000'000));
        EXPECT_THROW(still.Read(part), BirdStillFailure);
        ASSERT_TRUE(camera.resize(NoiseOf(Large, 24).size()));
        ASSERT_TRUE(camera.setFileTime(QDateTime::currentDateTime().addSecs(5), QFile::FileModificationTime));
    }
    EXPECT_THROW(still.Read(part), BirdStillFailure);
}

TEST_F(BirdStillPartTest, AHeadThatSendsItsPixelsIntoItselfIsAFailure) {
    QByteArray bytes = NoiseOf(Large, 24);
    Put(bytes, 10, std::uint32_t{20});
    Write(bytes);
    EXPECT_EQ(WhyNot(), "the still cannot be decoded");
}

TEST_F(BirdStillPartTest, ALongWayFromTheHeadToThePixelsIsLeftUnread) {
    QByteArray bytes = NoiseOf(Large, 8);
    const QImage whole = DecodeBirdStill(bytes);
    constexpr qsizetype Gap = 30'000'000;
    Put(bytes, 10, static_cast<std::uint32_t>(54 + 1024 + Gap));
    Write(bytes.insert(54 + 1024, QByteArray(Gap, 'x')));
    BirdStillFile still(path);
    const QRect part(100, 100, 756, 756);
    EXPECT_EQ(still.Read(part), whole.copy(part));
}

// Opening a pipe waits for somebody who writes.
TEST_F(BirdStillPartTest, APipeOrADeviceInItsPlaceIsNoStillAndDoesNotHang) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(WhyNot(), "there is no still");
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path));
    EXPECT_EQ(WhyNot(), "there is no still");
}

}  // namespace
}  // namespace travo::test
