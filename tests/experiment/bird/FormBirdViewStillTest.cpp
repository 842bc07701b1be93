// The still below the markers: loading it, and its contrast and brightness.
#include <QDir>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/BirdStillFile.h"
#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

constexpr QColor Still{100, 30, 200};
constexpr QPoint Middle{378, 378};

QColor Grey(int value) { return {value, value, value}; }

class FormBirdViewStillTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override {
        Show(FullSize);
        Open();
    }
    QColor InTheMiddle() const { return At(Middle.x(), Middle.y()); }
    void Load(const QColor& colour = Still, const QSize& size = QSize(640, 480)) {
        folder.WriteStill(colour, size);
        window.NewPicLoad();
    }
    static void ClickAt(QWidget& bar, int x) {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(x, bar.height() / 2));
    }
    static void StepRight(usrKVXscroll& bar) { ClickAt(bar, bar.width() - 5); }
    static int ThumbMiddle(const usrKVXscroll& bar) { return bar.width() / 2; }
    static void DragMove(QWidget& bar, int x) {
        const QPointF at(x, bar.height() / 2.0);
        QMouseEvent event(QEvent::MouseMove, at, bar.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&bar, &event);
    }
    static QImage Gradient() {
        QImage picture(256, 1, QImage::Format_RGB32);
        for (int x = 0; x < 256; ++x) {
            picture.setPixel(x, 0, qRgb(x, 7, 9));
        }
        return picture;
    }
    int RedAt(int p) const {
        const QColor colour = At((756 - 256) / 2 + p, 378);
        EXPECT_EQ(colour, Grey(colour.red()));
        return colour.red();
    }
};

TEST_F(FormBirdViewStillTest, WithBothShiftsZeroTheStillIsCentredAt58And138) {
    Load();
    EXPECT_EQ(Count(Still), 640 * 480);
    EXPECT_EQ(Count(Still, QRect(58, 138, 640, 480)), 640 * 480);
}

TEST_F(FormBirdViewStillTest, AStillIsShownAsItIsUntilABarMovesAndThenGreyFromItsRedChannel) {
    Load();
    EXPECT_EQ(InTheMiddle(), Still);
    StepRight(Brightness());
    EXPECT_EQ(InTheMiddle(), Grey(101));
    // The next still stands unprocessed again.
    Load(QColor(50, 60, 70));
    EXPECT_EQ(InTheMiddle(), QColor(50, 60, 70));
    StepRight(Brightness());
    EXPECT_EQ(InTheMiddle(), Grey(52));
}

TEST_F(FormBirdViewStillTest, ChangesOfTheBarsDoNotBuildUp) {
    Load();
    for (int step = 1; step <= 20; ++step) {
        StepRight(Brightness());
        EXPECT_EQ(InTheMiddle(), Grey(100 + step));
    }
    QTest::keyClick(&Brightness(), Qt::Key_End);
    EXPECT_EQ(InTheMiddle(), Grey(255));
    QTest::keyClick(&Brightness(), Qt::Key_Home);
    EXPECT_EQ(InTheMiddle(), Grey(0));
    Brightness().setValue(usrKVXscroll::Neutral);
    EXPECT_EQ(InTheMiddle(), Grey(100));
}

TEST_F(FormBirdViewStillTest, TheBarsReachFromTheirEndsToTheirEndsAndContrastNever256) {
    EXPECT_EQ(Brightness().minimum(), -255);
    EXPECT_EQ(Brightness().maximum(), 255);
    EXPECT_EQ(Contrast().minimum(), -256);
    EXPECT_EQ(Contrast().maximum(), 255);
    for (const usrKVXscroll* const bar : {&Brightness(), &Contrast()}) {
        EXPECT_EQ(bar->Value(), 0);
        EXPECT_EQ(bar->singleStep(), 1);
        EXPECT_EQ(bar->pageStep(), 16);
        EXPECT_EQ(bar->BackColor(), QColor(0xF0, 0xF7, 0xFC));
    }
}

TEST_F(FormBirdViewStillTest, CAtMinus256GivesKZeroEveryPixelBecomes128PlusBClampedWithNoWrapAround) {
    folder.WriteStill(Gradient());
    window.NewPicLoad();
    QTest::keyClick(&Contrast(), Qt::Key_Home);
    ASSERT_EQ(Contrast().Value(), -256);
    for (const int p : {0, 1, 127, 128, 200, 255}) {
        EXPECT_EQ(RedAt(p), 128) << p;
    }
    StepRight(Brightness());
    EXPECT_EQ(RedAt(3), 129);
    QTest::keyClick(&Brightness(), Qt::Key_End);
    EXPECT_EQ(RedAt(3), 255);
    QTest::keyClick(&Brightness(), Qt::Key_Home);
    EXPECT_EQ(RedAt(3), 0);
}

TEST_F(FormBirdViewStillTest, TheGreatestContrastLeavesOnlyBlackAndWhiteApartFrom128) {
    folder.WriteStill(Gradient());
    window.NewPicLoad();
    QTest::keyClick(&Contrast(), Qt::Key_End);
    for (int p = 0; p < 256; ++p) {
        EXPECT_EQ(RedAt(p), p < 128 ? 0 : p == 128 ? 128 : 255) << p;
    }
}

TEST_F(FormBirdViewStillTest, BrightnessFollowsTheReleaseOfADragContrastTheDragItself) {
    Load();
    for (usrKVXscroll* const bar : {&Brightness(), &Contrast()}) {
        const bool isContrast = bar == &Contrast();
        Brightness().setValue(1);
        Brightness().setValue(0);
        Contrast().setValue(0);
        ASSERT_EQ(InTheMiddle(), Grey(100));
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(ThumbMiddle(*bar), bar->height() / 2));
        DragMove(*bar, ThumbMiddle(*bar) - 20);
        EXPECT_LT(bar->Value(), -10);
        EXPECT_EQ(InTheMiddle() != Grey(100), isContrast);
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(ThumbMiddle(*bar) - 20, bar->height() / 2));
        EXPECT_NE(InTheMiddle(), Grey(100));
    }
}

TEST_F(FormBirdViewStillTest, UntilTheFirstStillThePictureShowsTheBackgroundColourWhateverTheBarsSay) {
    StepRight(Brightness());
    StepRight(Contrast());
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    Load();
    EXPECT_EQ(InTheMiddle(), Still);
}

TEST_F(FormBirdViewStillTest, TheFileIsNotReadAtAnyOtherTime) {
    Load();
    folder.WriteStill(Qt::green);
    window.ChangeViewXYZ({0, 0, 0});
    window.resize(600, 600);
    window.resize(FullSize + QSize(0, 95));
    EXPECT_EQ(InTheMiddle(), Still);
    window.NewPicLoad();
    EXPECT_EQ(InTheMiddle(), Qt::green);
}

TEST_F(FormBirdViewStillTest, AStillThatCannotBeReadReachesTheCallerAndTheFormerOneStays) {
    EXPECT_THROW(window.NewPicLoad(), BirdStillFailure);
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    Load();
    StepRight(Brightness());
    const QImage before = Picture();
    const QSize size = picBird().size();
    QFile file(folder.Still());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    for (const QByteArray& torn : {QByteArray(), whole.first(30), whole.first(1000),
                                   whole.first(whole.size() - 1), QByteArray(5000, 'x')}) {
        folder.WriteStill(torn);
        EXPECT_THROW(window.NewPicLoad(), BirdStillFailure);
        window.ChangeViewXYZ({0, 0, 0});
        EXPECT_EQ(Picture(), before);
        EXPECT_EQ(picBird().size(), size);
    }
    ASSERT_TRUE(QFile::remove(folder.Still()));
    EXPECT_THROW(window.NewPicLoad(), BirdStillFailure);
    // And is still worked from as it was loaded.
    StepRight(Brightness());
    EXPECT_EQ(InTheMiddle(), Grey(102));
    EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST_F(FormBirdViewStillTest, AStillOfOnePixelStandsInTheMiddleAndTakesContrastAndBrightness) {
    Load(Still, QSize(1, 1));
    EXPECT_EQ(Count(Still), 1);
    // (756 - 1) / 2 is 377.5, which goes to 378.
    EXPECT_EQ(InTheMiddle(), Still);
    StepRight(Brightness());
    EXPECT_EQ(InTheMiddle(), Grey(101));
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize - 1);
}

TEST_F(FormBirdViewStillTest, AStillOf8BitsIsTakenByItsPalette) {
    QImage picture(640, 480, QImage::Format_Indexed8);
    QList<QRgb> palette(256, qRgb(1, 2, 3));
    palette[200] = Still.rgb();
    picture.setColorTable(palette);
    picture.fill(200);
    folder.WriteStill(picture);
    window.NewPicLoad();
    EXPECT_EQ(Count(Still), 640 * 480);
    StepRight(Brightness());
    EXPECT_EQ(InTheMiddle(), Grey(101));
}

TEST_F(FormBirdViewStillTest, AStillLargerThanTheCanvasShowsItsMiddle) {
    QImage picture(8000, 6000, QImage::Format_RGB888);
    picture.fill(Still);
    picture.setPixelColor(4000, 3000, Qt::white);
    folder.WriteStill(picture);
    window.NewPicLoad();
    EXPECT_EQ(Count(Still), CanvasSize * CanvasSize - 1);
    EXPECT_EQ(InTheMiddle(), Qt::white);
    StepRight(Brightness());
    EXPECT_EQ(Count(Grey(101)), CanvasSize * CanvasSize - 1);
    EXPECT_EQ(InTheMiddle(), Qt::white);
    // The shift counts in parts of the still.
    rig.state.ShiftX = 0.01;
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(At(378 + 80, 378), Qt::white);
}

}  // namespace
}  // namespace travo::test
