// The small windows in the hands of the main window: when they are told what, and what is kept of them.
#include <gmock/gmock.h>

#include <QImage>
#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

class FormMainWindowsTest : public OwnerRig {
protected:
    void TearDown() override { window_.reset(); }

    bool Start(const QByteArray& settings = {}) {
        if (!settings.isEmpty()) {
            WriteSettings(settings);
        }
        window_.reset();
        QFile::link(QStringLiteral(SKIN_HOME "/skin"), program_.filePath(QStringLiteral("skin")));
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        return window_->Start();
    }
    void Close() {
        boxes_.answers = {platform::BoxAnswer::OK};
        EXPECT_TRUE(window_->close());
        window_.reset();
    }
    FormMainWindows& Windows() { return window_->Windows(); }
    std::vector<QWidget*> All() {
        return {&Windows().BirdView, &Windows().MirrorCtl, &Windows().ManiInfo, &Windows().MirrorCtl2};
    }
    usrKVCheckButton& WindowButton(int index) {
        return *PanelOf<CtlUser>(*window_).findChild<usrKVCheckButton*>(
            QStringLiteral("usrKVCheckButton1(%1)").arg(index));
    }
    static void Click(QWidget& parent, const char* name) {
        QTest::mouseClick(parent.findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    QImage Picture() {
        return Windows().BirdView.findChild<QWidget*>(QStringLiteral("picBird"))->grab().toImage();
    }
    QString Readout(int axis) {
        return Windows().BirdView.findChild<NumberLabel*>(QStringLiteral("lblXYZPos(%1)").arg(axis))->text();
    }
    bool Magnification(int index) {
        return Windows()
            .MirrorCtl2.findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton1(%1)").arg(index))
            ->Value();
    }
    bool PadFree() { return Windows().MirrorCtl.CtlController1.PictureShown() != 18; }

    std::unique_ptr<FormMain> window_;
};

TEST_F(FormMainWindowsTest, EachWindowButtonShowsAndHidesItsWindow) {
    ASSERT_TRUE(Start());
    QTest::mouseClick(window_->findChild<QWidget*>(QStringLiteral("imgTab(17)")), Qt::LeftButton);
    for (int index = 1; index <= 4; ++index) {
        QWidget* const small = All().at(static_cast<std::size_t>(index - 1));
        EXPECT_FALSE(small->isVisible()) << index;
        QTest::mouseClick(&WindowButton(index), Qt::LeftButton);
        EXPECT_TRUE(small->isVisible()) << index;
        Click(*small, "usrKVButton1(0)");
        EXPECT_FALSE(small->isVisible()) << index;
        EXPECT_FALSE(WindowButton(index).Value()) << index;
        QTest::mouseClick(&WindowButton(index), Qt::LeftButton);
        QTest::mouseClick(&WindowButton(index), Qt::LeftButton);
        EXPECT_FALSE(small->isVisible()) << index;
    }
}

TEST_F(FormMainWindowsTest, WindowsThatWereOpenComeBackWhereTheyStoodAndTheirKeysComeFromTheButtons) {
    ASSERT_TRUE(Start("[Window]\r\n1=0\r\n2=0\r\n3=0\r\n4=0\r\n"));
    int place = 30;
    for (QWidget* const small : All()) {
        EXPECT_TRUE(small->isVisible());
        small->move(place, 2 * place);
        place += 10;
    }
    Close();
    EXPECT_TRUE(ReadSettings().contains("[Window]\r\n1=0\r\n2=0\r\n3=0\r\n4=0\r\n"))
        << ReadSettings().toStdString();
    ASSERT_TRUE(Start());
    place = 30;
    for (QWidget* const small : All()) {
        EXPECT_TRUE(small->isVisible());
        EXPECT_EQ(small->pos(), QPoint(place, 2 * place));
        place += 10;
    }
}

TEST_F(FormMainWindowsTest, TheBirdsEyeViewComesBackAtItsHeightWithPanelAndLinesAsTheyWere) {
    ASSERT_TRUE(Start("[Window]\r\n1=0\r\n"));
    FormBirdView& first = Windows().BirdView;
    Click(first, "usrKVCheckButton1");
    Click(first, "usrKVCheckButton2(0)");
    EXPECT_EQ(first.size(), QSize(410, 578));
    Close();
    EXPECT_TRUE(ReadSettings().contains("LineOFF=1\r\nBirdOPEN=1\r\n"));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Windows().BirdView.size(), QSize(410, 578));
    EXPECT_TRUE(Windows().BirdView.BirdOPEN());
    EXPECT_TRUE(Windows().BirdView.LineONOff());
}

TEST_F(FormMainWindowsTest, TheSmallWindowsCloseWithTheMainWindow) {
    ASSERT_TRUE(Start("[Window]\r\n1=0\r\n2=0\r\n3=0\r\n4=0\r\n"));
    boxes_.answers = {platform::BoxAnswer::OK};
    EXPECT_TRUE(window_->close());
    for (const QWidget* const small : All()) {
        EXPECT_FALSE(small->isVisible()) << small->objectName().toStdString();
    }
}

TEST_F(FormMainWindowsTest, TheShiftOfTheStillComesBack) {
    ASSERT_TRUE(Start());
    window_->State().ShiftX = 0.125;
    window_->State().ShiftY = -0.25;
    Close();
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->State().ShiftX, 0.125);
    EXPECT_EQ(window_->State().ShiftY, -0.25);
}

TEST_F(FormMainWindowsTest, CreatedBeforeThePortsAreOpenTheMagnificationWindowSwitchesNoMotorsOn) {
    ASSERT_TRUE(Start("[COMPort]\r\nMirror=1\r\n"));
    // The questions of an opened port and the magnification of a start, and nothing else.
    EXPECT_EQ(MirrorPort().TakeOutput(), "cSAS1\rrWER\rrPMR\rrD2R\rrD1R\rrMGR\rcMAG1\r");
}

TEST_F(FormMainWindowsTest, AReportOfTheMagnificationReachesPadAndButtonsAtOnce) {
    ASSERT_TRUE(Start());
    window_->State().bMirrorMotorONOFF = true;
    window_->State().CurrentMagnification(1);
    EXPECT_FALSE(PadFree());
    EXPECT_TRUE(Magnification(0));
    window_->State().CurrentMagnification(2);
    EXPECT_TRUE(PadFree());
    EXPECT_TRUE(Magnification(1));
    EXPECT_FALSE(Magnification(0));
}

TEST_F(FormMainWindowsTest, AReportOfTheMotorsReachesBothMirrorWindows) {
    ASSERT_TRUE(Start("[COMPort]\r\nMirror=1\r\n"));
    window_->State().CurrentMagnification(2);
    MirrorPort().Receive("aPMR0\r\n");
    EXPECT_FALSE(PadFree());
    EXPECT_TRUE(Magnification(4));
    MirrorPort().Receive("aPMR1\r\n");
    EXPECT_TRUE(PadFree());
    EXPECT_TRUE(Magnification(3));
}

TEST_F(FormMainWindowsTest, TheViewGoesIntoTheReadoutAndTheEscapeKnowsItsZ) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(Readout(0), QStringLiteral("N/A"));
    window_->State().CurrentXY(10, 20);
    window_->State().CurrentXYZ(2, 77);
    EXPECT_EQ(Readout(0), QString::number(MirrorXToCommon(10)));
    EXPECT_EQ(Readout(1), QString::number(-MirrorYToCommon(20)));
    EXPECT_EQ(Readout(2), QStringLiteral("77"));
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, 77);
}

TEST_F(FormMainWindowsTest, AMirrorWhoseWatchEndsWellGivesTheViewItsMark) {
    ASSERT_TRUE(Start("[COMPort]\r\nMirror=1\r\n"));
    MirrorPort().Receive("aD2R5\r\naD1R7\r\n");
    EXPECT_FALSE(Windows().BirdView.chkMirror());
    for (const auto& timer : timers_.created) {
        if (timer->interval == 150 && timer->Enabled()) {
            timer->Fire();
        }
    }
    EXPECT_TRUE(Windows().BirdView.chkMirror());
}

TEST_F(FormMainWindowsTest, ANeedleReadAndACellStoredAreDrawn) {
    ASSERT_TRUE(Start(CalibrationText(0) + CalibrationText(1) + "[COMPort]\r\nMirror=1\r\n"));
    const QImage before = Picture();
    driver_.position[0] = {10050, 22000, 5000};
    timers_.created.at(0)->Fire();
    const QImage moved = Picture();
    EXPECT_NE(moved, before);
    window_->State().CurrentXY(20, 20);
    const QImage viewed = Picture();
    PanelOf<CtlCellPosition>(*window_).Shown();
    Click(PanelOf<CtlCellPosition>(*window_), "usrKVButton1(1)");
    EXPECT_NE(Picture(), viewed);
}

}  // namespace

}  // namespace travo::test
