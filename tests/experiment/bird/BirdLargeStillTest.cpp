// The largest still that is taken, on the window: a program of its own, since it looks at the peak of the
// memory that it has taken.
#include <QElapsedTimer>
#include <QtEndian>

#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

// 64 million pixels of 32 bits.
constexpr QSize Largest(8000, 8000);
constexpr qint64 HeadBytes = 54;

// Ten times the goals of 300 ms; of the memory the goal itself, but under the sanitizer, which keeps what has
// been given back.
constexpr qint64 MostMilliseconds = 3000;
#ifdef __SANITIZE_ADDRESS__
constexpr long MostMegabytes = 600;
#else
constexpr long MostMegabytes = 150;
#endif

// The most memory that the process has had since the last call of StartPeak.
long PeakKilobytes() {
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.mid(6).replace("kB", "").trimmed().toLong();
        }
    }
    ADD_FAILURE() << "the peak is not told";
    return 0;
}

long StartPeak() {
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    EXPECT_TRUE(references.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    EXPECT_EQ(references.write("5"), 1);
    return PeakKilobytes();
}

class BirdLargeStillTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override {
        Show(FullSize);
        Open();
        QFile file(folder.Still());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        QByteArray head("BM");
        head.resize(HeadBytes, '\0');
        const auto put = [&](qsizetype place, auto value) { qToLittleEndian(value, head.data() + place); };
        put(10, static_cast<std::uint32_t>(HeadBytes));
        put(14, std::uint32_t{40});
        put(18, static_cast<std::int32_t>(Largest.width()));
        put(22, -static_cast<std::int32_t>(Largest.height()));
        put(26, std::uint16_t{1});
        put(28, std::uint16_t{32});
        ASSERT_EQ(file.write(head), head.size());
        // Black where nothing is written, which takes no room on the disk.
        ASSERT_TRUE(file.resize(HeadBytes + 4LL * Largest.width() * Largest.height()));
    }
    // Red, and a number in the other two bytes.
    void Mark(int x, int y, QRgb colour) const {
        QFile file(folder.Still());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.seek(HeadBytes + 4 * (qint64{y} * Largest.width() + x)));
        std::array<char, 4> bytes{};
        qToLittleEndian(colour, bytes.data());
        ASSERT_EQ(file.write(bytes.data(), 4), 4);
    }
    void ShiftTo(double x, double y) {
        rig.state.ShiftX = x;
        rig.state.ShiftY = y;
        window.ChangeViewXYZ({0, 0, 0});
    }
    static void StepRight(usrKVXscroll& bar) {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(bar.width() - 5, bar.height() / 2));
    }
};

TEST_F(BirdLargeStillTest, ItsPixelsAreWhereTheyBelongAtEveryShiftAndUnderBothBars) {
    Mark(4000, 4000, qRgb(200, 10, 20));
    Mark(0, 0, qRgb(100, 30, 40));
    Mark(7999, 7999, qRgb(50, 60, 70));
    window.NewPicLoad();
    EXPECT_EQ(At(378, 378), QColor(200, 10, 20));
    EXPECT_EQ(Count(Qt::black), CanvasSize * CanvasSize - 1);
    // The upper left corner goes to the middle, then the lower right.
    ShiftTo(0.5, 0.5);
    EXPECT_EQ(At(378, 378), QColor(100, 30, 40));
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize - 378 * 378);
    StepRight(Brightness());
    EXPECT_EQ(At(378, 378), QColor(101, 101, 101));
    ShiftTo(-0.5, -0.5);
    EXPECT_EQ(At(377, 377), QColor(51, 51, 51));
    EXPECT_EQ(At(0, 0), QColor(1, 1, 1));
    StepRight(Brightness());
    EXPECT_EQ(At(377, 377), QColor(52, 52, 52));
    ShiftTo(0, 0);
    EXPECT_EQ(At(378, 378), QColor(202, 202, 202));
    // Off the canvas and back.
    ShiftTo(7, 7);
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    ShiftTo(0, 0);
    EXPECT_EQ(At(378, 378), QColor(202, 202, 202));
    // The next one stands unprocessed.
    window.NewPicLoad();
    EXPECT_EQ(At(378, 378), QColor(200, 10, 20));
}

TEST_F(BirdLargeStillTest, AShiftAfterTheFileWasReplacedShowsTheStillThatWasLoaded) {
    Mark(0, 0, qRgb(100, 30, 40));
    window.NewPicLoad();
    ASSERT_TRUE(QFile::remove(folder.Still()));
    folder.WriteStill(Qt::green);
    ShiftTo(0.5, 0.5);
    EXPECT_EQ(At(378, 378), QColor(100, 30, 40));
    EXPECT_EQ(Count(Qt::green), 0);
    window.NewPicLoad();
    ShiftTo(0, 0);
    EXPECT_EQ(At(378, 378), Qt::green);
}

TEST_F(BirdLargeStillTest, AShiftAfterTheFileWasWrittenOverShowsWhatIsStillHeldAndGroundBesideIt) {
    window.NewPicLoad();
    Mark(0, 0, qRgb(100, 30, 40));
    QFile file(folder.Still());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFile::FileModificationTime));
    // By a hundred pixels.
    EXPECT_NO_THROW(ShiftTo(0.0125, 0));
    EXPECT_EQ(Count(Qt::black), CanvasSize * (CanvasSize - 100));
    EXPECT_EQ(Count(Ground, QRect(0, 0, 100, CanvasSize)), 100 * CanvasSize);
    EXPECT_TRUE(rig.boxes.shown.empty());
    ShiftTo(0, 0);
    EXPECT_EQ(Count(Qt::black), CanvasSize * CanvasSize);
    window.NewPicLoad();
    ShiftTo(0.5, 0.5);
    EXPECT_EQ(At(378, 378), QColor(100, 30, 40));
}

TEST_F(BirdLargeStillTest, LoadingShiftingAndProcessingItTakesFewOfItsBytesAndLittleTime) {
    const long before = StartPeak();
    QElapsedTimer clock;
    const auto inTime = [&](const char* what) {
        EXPECT_LT(clock.elapsed(), MostMilliseconds) << what;
        clock.restart();
    };
    clock.start();
    window.NewPicLoad();
    inTime("load");
    window.NewPicLoad();
    inTime("load over it");
    ShiftTo(0.3, -0.2);
    inTime("shift");
    StepRight(Brightness());
    inTime("brightness");
    StepRight(Contrast());
    inTime("contrast");
    EXPECT_LT(PeakKilobytes() - before, MostMegabytes * 1000);
}

// All of its pixels are held, those of the next one with them.
TEST_F(BirdLargeStillTest, TheLargestOfWhichAllPixelsAreHeldTakesNoMoreThanThat) {
    folder.WriteStill(Qt::gray, QSize(2000, 2000));
    const long before = StartPeak();
    window.NewPicLoad();
    window.NewPicLoad();
    StepRight(Brightness());
    EXPECT_LT(PeakKilobytes() - before, MostMegabytes * 1000);
}

}  // namespace
}  // namespace travo::test
