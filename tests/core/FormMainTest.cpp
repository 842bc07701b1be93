#include "core/FormMain.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QScreen>

#include "core/OwnerFixture.h"

namespace travo::test {

namespace {

// The real window on stand-ins for the machine.
class FormMainTest : public OwnerFixture {
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
    QString LabelText(const QString& name) const { return window_->findChild<QLabel*>(name)->text(); }
    void Answer(platform::BoxAnswer answer) { boxes_.answers = {answer}; }

    std::unique_ptr<FormMain> window_;
    int closed_ = 0;
};

TEST_F(FormMainTest, ShowsTheLivePositionsOfTheNeedles) {
    WriteSettings(CalibrationText(0));
    ASSERT_TRUE(Start());
    EXPECT_EQ(LabelText(QStringLiteral("lblNeedle(0)")), QStringLiteral("-9800"));
    driver_.position[0] = {11000, 21000, 5100};
    timers_.created.at(0)->Fire();
    EXPECT_EQ(LabelText(QStringLiteral("lblNeedle(0)")), QStringLiteral("1100"));
    EXPECT_EQ(LabelText(QStringLiteral("lblNeedle(1)")), QStringLiteral("-1200"));
    EXPECT_EQ(LabelText(QStringLiteral("lblNeedle(2)")), QStringLiteral("100"));
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

TEST_F(FormMainTest, TheEscapeKnowsThePresentZAtEachChangeOfTheView) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, NoPositionValue);
    window_->State().CurrentXYZ(2, 77);
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, 77);
}

TEST_F(FormMainTest, EveryLabelBearsItsNameAndItsDescription) {
    ASSERT_TRUE(Start());
    for (int index = 0; index < 12; ++index) {
        const auto* const label = window_->findChild<QLabel*>(QStringLiteral("lblNeedle(%1)").arg(index));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->accessibleDescription(),
                  QStringLiteral("Needle %1 %2").arg(index / 3 + 1).arg(QLatin1Char("XYZ"[index % 3])));
    }
}

}  // namespace

}  // namespace travo::test
