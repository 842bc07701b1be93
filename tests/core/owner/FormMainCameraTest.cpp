// The live camera in the hands of the main window: its start, its loss, its stills.
#include <gmock/gmock.h>

#include <QImage>
#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

class FormMainCameraTest : public OwnerRig {
protected:
    void TearDown() override { window_.reset(); }

    bool Start() {
        WriteSettings("[Window]\r\n0=0\r\n");
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        return window_->Start();
    }
    bool CameraComes() {
        return QTest::qWaitFor([this] { return window_->State().LiveOpen; }, 20000);
    }
    usrKVCheckButton& Button() {
        return *PanelOf<CtlUser>(*window_).findChild<usrKVCheckButton*>(
            QStringLiteral("usrKVCheckButton1(0)"));
    }
    void Close() {
        boxes_.answers = {platform::BoxAnswer::OK};
        EXPECT_TRUE(window_->close());
    }

    QString StillPath() const { return program_.filePath(QStringLiteral("BirdView.bmp")); }
    void SaveStill(int grey) {
        QImage still(640, 480, QImage::Format_RGB32);
        still.fill(qRgb(grey, grey, grey));
        ASSERT_TRUE(still.save(StillPath()));
    }
    // Of the picture's middle.
    int Grey() {
        const QImage picture =
            window_->Windows().BirdView.findChild<QWidget*>(QStringLiteral("picBird"))->grab().toImage();
        return qRed(picture.pixel(picture.width() / 2, picture.height() / 2));
    }
    FakeTimer& StillPeriod() {
        return **std::find_if(timers_.created.begin(), timers_.created.end(),
                              [](const FakeTimer* timer) { return timer->interval == 50; });
    }

    std::unique_ptr<FormMain> window_;
};

TEST_F(FormMainCameraTest, TheCameraComesWhenTheWindowIsOnShow) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(CountOf("live created"), 0);
    EXPECT_TRUE(CameraComes());
    EXPECT_EQ(Last(), "LiveShowWindow");
    EXPECT_TRUE(Button().Value());
}

TEST_F(FormMainCameraTest, TheCameraComesAlsoToAWindowThatIsNotPainted) {
    ASSERT_TRUE(Start());
    window_->hide();
    EXPECT_TRUE(CameraComes());
}

TEST_F(FormMainCameraTest, AWindowThatClosesBeforeWantsNoCamera) {
    ASSERT_TRUE(Start());
    Close();
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return window_->findChild<QObject*>(QStringLiteral("FirstPaint")) == nullptr; }, 20000));
    EXPECT_EQ(CountOf("live created"), 0);
    window_.reset();
    EXPECT_TRUE(ReadSettings().contains("[Window]\r\n0=0\r\n")) << "it is wanted at the next start";
}

TEST_F(FormMainCameraTest, ACameraMissingAtTheStartLeavesItsButtonRaisedSoThatTheNextStartAsksForNone) {
    liveCamera_.absent = true;
    bool raisedBehindTheBox = false;
    boxes_.whileShown = [&] { raisedBehindTheBox = !Button().Value(); };
    ASSERT_TRUE(Start());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !boxes_.shown.empty(); }, 20000));
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Camera Load")});
    EXPECT_TRUE(raisedBehindTheBox);
    boxes_.whileShown = {};
    Close();
    window_.reset();
    EXPECT_TRUE(ReadSettings().contains("[Window]\r\n0=1\r\n"));
}

TEST_F(FormMainCameraTest, ACameraThatDoesNotShowItselfAtTheStartLeavesItsButtonRaised) {
    liveCamera_.failing = {"LiveShowWindow"};
    ASSERT_TRUE(Start());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !boxes_.shown.empty(); }, 20000));
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Camera Load")});
    EXPECT_FALSE(Button().Value());
    EXPECT_FALSE(window_->State().LiveOpen);
}

TEST_F(FormMainCameraTest, ACameraThatDiesRaisesItsButtonWithoutABox) {
    ASSERT_TRUE(Start());
    ASSERT_TRUE(CameraComes());
    EXPECT_TRUE(Button().Value());
    liveCamera_.TellLost();
    EXPECT_FALSE(Button().Value());
    EXPECT_FALSE(window_->State().LiveOpen);
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(FormMainCameraTest, TheCamerasPictureIsLoadedWhenItSaysSoAndABadOneChangesNothing) {
    ASSERT_TRUE(Start());
    ASSERT_TRUE(CameraComes());
    SaveStill(50);
    EXPECT_NE(Grey(), 50);
    liveCamera_.TellBirdViewSave();
    EXPECT_EQ(Grey(), 50);
    StillPeriod().Fire();
    QFile file(StillPath());
    ASSERT_TRUE(file.resize(2000));
    EXPECT_ANY_THROW(liveCamera_.TellBirdViewSave());
    EXPECT_EQ(Grey(), 50);
}

TEST_F(FormMainCameraTest, OfManyPicturesTheFirstIsLoadedAtOnceAndTheLastInAnyCase) {
    ASSERT_TRUE(Start());
    ASSERT_TRUE(CameraComes());
    SaveStill(50);
    liveCamera_.TellBirdViewSave();
    EXPECT_EQ(Grey(), 50);
    for (int grey = 51; grey < 60; ++grey) {
        SaveStill(grey);
        liveCamera_.TellBirdViewSave();
        EXPECT_EQ(Grey(), 50);
    }
    StillPeriod().Fire();
    EXPECT_EQ(Grey(), 59);
    ASSERT_TRUE(QFile::remove(StillPath()));
    EXPECT_NO_THROW(StillPeriod().Fire()) << "it is not loaded again";
}

}  // namespace

}  // namespace travo::test
