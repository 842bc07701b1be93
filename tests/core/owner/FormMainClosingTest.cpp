// The end of the main window: what it writes, when, and what is no longer sent.
#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

class FormMainClosingTest : public OwnerRig {
protected:
    bool Start() {
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        window_->WhenClosed([this] { ++closed_; });
        return window_->Start();
    }
    void TearDown() override { window_.reset(); }
    void Answer(platform::BoxAnswer answer) { boxes_.answers = {answer}; }

    std::unique_ptr<FormMain> window_;
    int closed_ = 0;
};

TEST_F(FormMainClosingTest, AWindowsButtonThatChangesAfterTheClosingIsSavedWhenThePanelsGo) {
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    PanelOf<CtlUser>(*window_).LiveButtonChange(false);
    window_.reset();
    EXPECT_TRUE(ReadSettings().contains("[Window]\r\n0=0\r\n"));
}

TEST_F(FormMainClosingTest, AClosingReplacesTheSettingsFileOnce) {
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::OK);
    journal_.clear();
    EXPECT_TRUE(window_->close());
    window_.reset();
    EXPECT_EQ(CountOf("written together"), 1);
    EXPECT_EQ(profile_.writtenAlone, 0);
    EXPECT_LT(PlaceOf("write Window|4"), PlaceOf("written together"));
}

TEST_F(FormMainClosingTest, TheSessionsWordToSaveWritesWhatClosingWritesAndGoesOn) {
    ASSERT_TRUE(Start());
    window_->State().ShiftX = 0.25;
    window_->SaveForSession();
    EXPECT_TRUE(ReadSettings().startsWith("[FormBirdView_Shift]\r\nX=0.25\r\n"));
    EXPECT_TRUE(ReadSettings().endsWith("[Window]\r\n0=1\r\n1=1\r\n2=1\r\n3=1\r\n4=1\r\n"));
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(timers_.created.at(0)->Enabled());
    EXPECT_EQ(closed_, 0);
}

TEST_F(FormMainClosingTest, AWordToSaveBeforeTheLoadOrAfterTheClosingWritesNothing) {
    driver_.failing = {"DriverGetCount"};
    EXPECT_FALSE(Start());
    window_->SaveForSession();
    EXPECT_TRUE(ReadSettings().isEmpty());
}

TEST_F(FormMainClosingTest, ASaveForTheSessionThatFailsIsToldOnceTheSessionHasItsAnswer) {
    ASSERT_TRUE(Start());
    profile_.failWrite = true;
    window_->SaveForSession();
    EXPECT_TRUE(boxes_.shown.empty());
    eventLoop_.RunQueued();
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Unload")});
    profile_.failWrite = false;
}

TEST_F(FormMainClosingTest, ClosesInsideAWaitAreOneQuestion) {
    ASSERT_TRUE(Start());
    eventLoop_.waiting = true;
    window_->close();
    window_->CloseAfterWaits();
    window_->close();
    eventLoop_.waiting = false;
    Answer(platform::BoxAnswer::Cancel);
    eventLoop_.RunQueued();
    EXPECT_EQ(boxes_.shown.size(), 1U);
    EXPECT_EQ(closed_, 0);
    window_->CloseAfterWaits();
    Answer(platform::BoxAnswer::OK);
    eventLoop_.RunQueued();
    EXPECT_EQ(closed_, 1);
}

TEST_F(FormMainClosingTest, TheWishToCloseChangesNothingBeforeItIsAnswered) {
    ASSERT_TRUE(Start());
    bool moved = false;
    boxes_.whileShown = [&] {
        moved = window_->Objects().cCommunication->SendManipulatorData(0, {1, 2, 3}, {1, 2, 3}) == 1;
    };
    Answer(platform::BoxAnswer::Cancel);
    window_->close();
    EXPECT_TRUE(moved);
}

TEST_F(FormMainClosingTest, NothingMovesFromTheOkOfTheQuestionOrTheEndOfTheSessionOn) {
    ASSERT_TRUE(Start());
    window_->CloseWithoutQuestion();
    EXPECT_EQ(window_->Objects().cCommunication->SendManipulatorData(0, {1, 2, 3}, {1, 2, 3}), 0);
    EXPECT_EQ(closed_, 0) << "the rest waits its turn";
    window_.reset();
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(window_->Objects().cCommunication->SendManipulatorData(0, {1, 2, 3}, {1, 2, 3}), 0);
    EXPECT_TRUE(driver_.moves.empty());
}

TEST_F(FormMainClosingTest, AGoodEndSavesWhichWindowsAreOpenAndOnlyOnce) {
    ASSERT_TRUE(Start());
    Answer(platform::BoxAnswer::OK);
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(ReadSettings().endsWith("[Window]\r\n0=1\r\n1=1\r\n2=1\r\n3=1\r\n4=1\r\n"));
    journal_.clear();
    window_.reset();
    EXPECT_EQ(CountOf("write Window|0"), 0);
}

}  // namespace

}  // namespace travo::test
