// Where the main window stands: what closing writes of it, and where a start puts it.
#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"

namespace travo::test {

namespace {

class FormMainPlaceTest : public OwnerRig {
protected:
    void TearDown() override { window_.reset(); }

    void Start(const QByteArray& place) {
        WriteSettings("[FormMain_Position]\r\n" + place);
        window_ = std::make_unique<FormMain>(Seams());
        ASSERT_TRUE(window_->Start());
        QApplication::processEvents();
    }
    std::string Closed() {
        boxes_.answers = {platform::BoxAnswer::OK};
        EXPECT_TRUE(window_->close());
        const QByteArray settings = ReadSettings();
        const qsizetype from = settings.indexOf("[FormMain_Position]\r\n") + 21;
        return settings.sliced(from, settings.indexOf('[', from) - from).replace("\r\n", " ").toStdString();
    }
    static QRect Screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    std::unique_ptr<FormMain> window_;
};

constexpr const char* Normal = "Top=600 Left=1500 Height=9750 Width=9000 ";
constexpr const char* Stored = "Top=600\r\nLeft=1500\r\nHeight=9750\r\nWidth=9000\r\n";

TEST_F(FormMainPlaceTest, AMaximisedWindowStoresThePlaceOfItsNormalState) {
    Start(Stored);
    const QPoint frame = window_->geometry().topLeft() - window_->pos();
    ASSERT_NE(frame, QPoint(0, 0));
    window_->showMaximized();
    QApplication::processEvents();
    ASSERT_NE(window_->size(), QSize(600, 650));
    EXPECT_EQ(Closed(), Normal);
}

TEST_F(FormMainPlaceTest, AWindowThatFillsTheScreenStoresThePlaceOfItsNormalState) {
    Start(Stored);
    window_->showFullScreen();
    QApplication::processEvents();
    ASSERT_NE(window_->size(), QSize(600, 650));
    EXPECT_EQ(Closed(), Normal);
}

TEST_F(FormMainPlaceTest, AWindowThatIsMinimisedStoresThePlaceOfItsNormalState) {
    Start(Stored);
    window_->showMinimized();
    QApplication::processEvents();
    EXPECT_EQ(Closed(), Normal);
}

TEST_F(FormMainPlaceTest, AWindowThatWasMovedBeforeItWasMaximisedStoresThatPlace) {
    Start(Stored);
    window_->move(30, 20);
    window_->resize(560, 640);
    QApplication::processEvents();
    window_->showMaximized();
    QApplication::processEvents();
    EXPECT_EQ(Closed(), "Top=300 Left=450 Height=9600 Width=8400 ");
}

TEST_F(FormMainPlaceTest, APlaceOffEveryScreenIsShiftedOntoOneWithItsFrame) {
    for (const char* const place :
         {"Top=600\r\nLeft=32767\r\n", "Top=32767\r\nLeft=300\r\n", "Top=32767\r\nLeft=32767\r\n"}) {
        Start(place);
        EXPECT_TRUE(Screen().contains(window_->frameGeometry())) << place;
        EXPECT_TRUE(window_->frameGeometry().right() == Screen().right() ||
                    window_->frameGeometry().bottom() == Screen().bottom());
        window_.reset();
    }
}

TEST_F(FormMainPlaceTest, APlaceThatCanBeReachedStaysAlsoWhereTheFrameReachesOutOfTheScreen) {
    Start("Top=3000\r\nLeft=7500\r\n");
    EXPECT_EQ(window_->pos(), QPoint(500, 200));
    ASSERT_FALSE(Screen().contains(window_->frameGeometry()));
}

TEST_F(FormMainPlaceTest, AWindowThatWasShiftedOntoTheScreenMayBeMovedOffItAgain) {
    Start("Top=600\r\nLeft=32767\r\n");
    window_->move(Screen().right() - 100, 50);
    QApplication::processEvents();
    EXPECT_EQ(window_->pos(), QPoint(Screen().right() - 100, 50));
}

}  // namespace

}  // namespace travo::test
