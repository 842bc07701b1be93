#include "core/owner/FormMain.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QScreen>
#include <QTest>

#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

// The real window on stand-ins for the machine.
class FormMainTest : public OwnerRig {
protected:
    FormMainTest() : window_(std::make_unique<FormMain>(Seams())) {
        window_->WhenClosed([this] { ++closed_; });
    }

    bool Start() {
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        window_->WhenClosed([this] { ++closed_; });
        return window_->Start();
    }
    void Tab(int index) {
        QTest::mouseClick(window_->findChild<QWidget*>(QStringLiteral("imgTab(%1)").arg(index)),
                          Qt::LeftButton);
    }
    void Answer(platform::BoxAnswer answer) { boxes_.answers = {answer}; }

    std::unique_ptr<FormMain> window_;
    int closed_ = 0;
};

TEST_F(FormMainTest, LoadSelectsTheExperimentPanelWithoutStoppingTheWatchesJustStarted) {
    WriteSettings("[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(PanelOf<CtlExperiment2>(*window_).isVisible());
    int running = 0;
    for (const FakeTimer* const timer : timers_.created) {
        running += timer->Enabled() && timer->interval == 150 ? 1 : 0;
    }
    EXPECT_EQ(running, 3);
}

TEST_F(FormMainTest, TabsAndPanelsAreLaidOutBeforeAnyWindowIsOnShow) {
    QRect panel;
    profile_.whileRead = [&](const QString& place) {
        if (place == QStringLiteral("Window|1")) {
            EXPECT_FALSE(window_->isVisible());
            panel = PanelOf<CtlExperiment2>(*window_).geometry();
        }
    };
    ASSERT_TRUE(Start());
    EXPECT_EQ(panel, QRect(18, 88, 486, 520));
}

TEST_F(FormMainTest, MinimisingIsNoChangeOfPanel) {
    WriteSettings("[COMPort]\r\nMirror=1\r\n");
    ASSERT_TRUE(Start());
    Tab(10);
    PanelOf<CtlConnection>(*window_).TimerONOFF(0, true);
    window_->showMinimized();
    window_->showNormal();
    int running = 0;
    for (const FakeTimer* const timer : timers_.created) {
        running += timer->Enabled() && timer->interval == 150 ? 1 : 0;
    }
    EXPECT_EQ(running, 1);
}

TEST_F(FormMainTest, AClickOnATabPictureShowsItsPanelInTheSharedRectangle) {
    ASSERT_TRUE(Start());
    Tab(16);
    EXPECT_TRUE(PanelOf<CtlConnection>(*window_).isVisible());
    EXPECT_FALSE(PanelOf<CtlExperiment2>(*window_).isVisible());
    EXPECT_EQ(PanelOf<CtlConnection>(*window_).geometry(), QRect(18, 88, 486, 520));
    Tab(11);
    EXPECT_TRUE(PanelOf<CtlUser>(*window_).isVisible());
}

TEST_F(FormMainTest, EveryPanelBearsTheNameOfItsTabAndTheTabOnShowIsSelected) {
    ASSERT_TRUE(Start());
    for (const int picture : {16, 17, 12, 7, 8, 15}) {
        Tab(picture);
        QStringList selected;
        for (SkinTab* const tab : window_->findChildren<SkinTab*>()) {
            if (QAccessible::queryAccessibleInterface(tab)->state().selected) {
                selected << tab->accessibleName();
            }
        }
        QStringList shown;
        for (const PanelCanvas* const panel : window_->findChildren<PanelCanvas*>()) {
            if (panel->isVisible()) {
                shown << panel->accessibleName();
            }
        }
        EXPECT_EQ(selected.size(), 1) << picture;
        EXPECT_EQ(shown, selected) << picture;
        EXPECT_EQ(selected.join(QString()),
                  window_->findChild<QWidget*>(QStringLiteral("imgTab(%1)").arg(picture))->accessibleName());
    }
}

TEST_F(FormMainTest, StepModeSelectsNoTab) {
    ASSERT_TRUE(Start());
    Tab(17);
    QTest::mouseClick(PanelOf<CtlUser>(*window_).findChild<QWidget*>(QStringLiteral("usrKVCheckButton3(1)")),
                      Qt::LeftButton);
    for (SkinTab* const tab : window_->findChildren<SkinTab*>()) {
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(tab)->state().selected);
    }
}

TEST_F(FormMainTest, StepModeIsChosenOnTheUserPanelAndWalkedByItsButtons) {
    ASSERT_TRUE(Start());
    Tab(17);
    QTest::mouseClick(PanelOf<CtlUser>(*window_).findChild<QWidget*>(QStringLiteral("usrKVCheckButton3(1)")),
                      Qt::LeftButton);
    EXPECT_TRUE(PanelOf<CtlConnection>(*window_).isVisible());
    EXPECT_EQ(PanelOf<CtlConnection>(*window_).geometry(), QRect(18, 20, 486, 520));
    QTest::mouseClick(
        window_->findChild<QWidget*>(QStringLiteral("usrKVButton2(1)"), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
    EXPECT_FALSE(PanelOf<CtlConnection>(*window_).isVisible());
    QTest::mouseClick(
        window_->findChild<QWidget*>(QStringLiteral("usrKVCheckButton1"), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
    EXPECT_TRUE(PanelOf<CtlUser>(*window_).isVisible());
}

TEST_F(FormMainTest, TheSizeButtonBringsTheWindowBackToItsDesignSize) {
    ASSERT_TRUE(Start());
    window_->resize(700, 760);
    EXPECT_EQ(PanelOf<CtlExperiment2>(*window_).geometry(), QRect(18, 88, 666, 656));
    QTest::mouseClick(
        window_->findChild<QWidget*>(QStringLiteral("usrKVButton1"), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
    EXPECT_EQ(window_->size(), QSize(520, 624));
}

TEST_F(FormMainTest, TheDesignSizeIsTheSmallest) {
    ASSERT_TRUE(Start());
    window_->resize(300, 200);
    EXPECT_EQ(window_->size(), QSize(520, 624));
}

TEST_F(FormMainTest, OnAScaledDisplayTheSmallestSizeAndThatOfTheSizeButtonAreScaled) {
    display_.vertical = 15.0 * 1.25;
    display_.horizontal = 15.0 * 1.25;
    ASSERT_TRUE(Start());
    const QSize scaled(650, 780);
    EXPECT_EQ(window_->minimumSize(), scaled) << "the window system is told";
    window_->resize(800, 900);
    QTest::mouseClick(
        window_->findChild<QWidget*>(QStringLiteral("usrKVButton1"), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
    EXPECT_EQ(window_->size(), scaled);
}

TEST_F(FormMainTest, AMagnificationIsToldToTheCameraThatIsOpen) {
    ASSERT_TRUE(Start());
    window_->Objects().Live->Create();
    window_->State().LiveOpen = true;
    journal_.clear();
    window_->State().CurrentMagnification(2);
    EXPECT_EQ(journal_, Journal{"LiveChangeMagnification 2"});
}

TEST_F(FormMainTest, ALoadThatFailsLeavesTheSettingsFileUntouched) {
    WriteSettings("[Window]\r\n0=0\r\n[FormMain_Position]\r\nTop=40000\r\n");
    const QByteArray before = ReadSettings();
    EXPECT_FALSE(Start());
    window_.reset();
    EXPECT_EQ(ReadSettings(), before);
}

TEST_F(FormMainTest, StoredSafeguardsReachTheUserPanelAndTheNeedleMoves) {
    WriteSettings("[User_Value]\r\nOffsetOFF=1\r\nContactOFF=1\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(PanelOf<CtlUser>(*window_).OffsetONOff(), 1);
    EXPECT_EQ(PanelOf<CtlUser>(*window_).ContactONOff(), 1);
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(ReadSettings().contains("OffsetOFF=1\r\nContactOFF=1\r\n"));
}

TEST_F(FormMainTest, TheWindowWithTheNeedlesOpensAndClosesWithItsButtonAndIsFoundAgain) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(window_->Windows().ManiInfo.isVisible());
    Tab(17);
    auto* const button =
        PanelOf<CtlUser>(*window_).findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton1(3)"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(window_->Windows().ManiInfo.isVisible());
    QTest::mouseClick(window_->Windows().ManiInfo.findChild<QWidget*>(QStringLiteral("usrKVButton1(0)")),
                      Qt::LeftButton);
    EXPECT_FALSE(window_->Windows().ManiInfo.isVisible());
    EXPECT_FALSE(button->Value());
    QTest::mouseClick(button, Qt::LeftButton);
    window_->Windows().ManiInfo.move(60, 70);
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    window_.reset();
    ASSERT_TRUE(Start());
    EXPECT_TRUE(window_->Windows().ManiInfo.isVisible());
    EXPECT_EQ(window_->Windows().ManiInfo.pos(), QPoint(60, 70));
}

TEST_F(FormMainTest, IsPlacedWhereTheSettingsSay) {
    WriteSettings("[FormMain_Position]\r\nTop=600\r\nLeft=1500\r\nWidth=9000\r\nHeight=9750\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->pos(), QPoint(100, 40));
    EXPECT_EQ(window_->size(), QSize(600, 650));
}

TEST_F(FormMainTest, APlaceOnAScreenThatIsNoLongerThereIsReachable) {
    WriteSettings("[FormMain_Position]\r\nTop=600\r\nLeft=32767\r\n");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(window_->screen()->availableGeometry().contains(window_->pos()));
}

TEST_F(FormMainTest, CancelKeepsTheWindowOpenAndTheLoopRunning) {
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::Cancel);
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(closed_, 0);
    EXPECT_TRUE(timers_.created.at(0)->Enabled());
}

TEST_F(FormMainTest, OkSavesTheWindowsPlaceAndCloses) {
    ASSERT_TRUE(Start());
    window_->move(120, 60);
    window_->resize(530, 640);
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(closed_, 1);
    EXPECT_THAT(ReadSettings().toStdString(),
                testing::HasSubstr("Top=900\r\nLeft=1800\r\nHeight=9600\r\nWidth=7950\r\n"));
}

TEST_F(FormMainTest, TheEndOfTheSessionClosesWithoutTheQuestion) {
    ASSERT_TRUE(Start());
    window_->CloseWithoutQuestion();
    eventLoop_.RunQueued();
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_EQ(closed_, 1);
    EXPECT_TRUE(ReadSettings().contains("XYOffset=100"));
}

TEST_F(FormMainTest, ACloseInsideAWaitIsTakenUpAfterIt) {
    ASSERT_TRUE(Start());
    eventLoop_.waiting = true;
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(boxes_.shown.empty());
    eventLoop_.waiting = false;
    Answer(platform::BoxAnswer::OK);
    eventLoop_.RunQueued();
    EXPECT_EQ(closed_, 1);
}

TEST_F(FormMainTest, ACloseInsideTheQuestionIsNoSecondQuestion) {
    ASSERT_TRUE(Start());
    boxes_.whileShown = [&] {
        window_->close();
        EXPECT_EQ(closed_, 0);
    };
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(boxes_.shown.size(), 1U);
    EXPECT_EQ(closed_, 1);
}

TEST_F(FormMainTest, NothingMovesOrReadsAfterClosing) {
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    journal_.clear();
    timers_.created.at(0)->Fire();
    EXPECT_TRUE(journal_.empty());
}

TEST_F(FormMainTest, WhatNoHandlerTakesIsLoggedAndShown) {
    ASSERT_TRUE(Start());
    window_->ReportUnexpectedFailure();
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Unexpected failure")});
    EXPECT_TRUE(ReadLog().endsWith("14:05:33 - Error : Unexpected failure\r\n"));
}

TEST_F(FormMainTest, AStartThatFailsShowsNoWindow) {
    driver_.failing = {"DriverGetCount"};
    EXPECT_FALSE(Start());
    EXPECT_FALSE(window_->isVisible());
}

TEST_F(FormMainTest, AStartThatFailsBehindTheStartOfTheLoopReadsNoNeedleAnyMore) {
    profile_.whileRead = [](const QString& place) {
        if (place == QStringLiteral("Manipulator Calibration:3|Center,XYZ:2")) {
            throw std::runtime_error("the store is gone");
        }
    };
    EXPECT_FALSE(Start());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Load")});
    journal_.clear();
    timers_.created.at(0)->Fire();
    EXPECT_TRUE(journal_.empty());
}

TEST_F(FormMainTest, TheEscapeKnowsThePresentZAtEachChangeOfTheView) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, NoPositionValue);
    window_->State().CurrentXYZ(2, 77);
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, 77);
}

}  // namespace

}  // namespace travo::test
