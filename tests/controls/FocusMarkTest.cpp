#include "controls/FocusMark.h"

#include "controls/ControlRig.h"
#include "controls/Palette.h"
#include "controls/usrKVButton.h"

namespace travo {

class FocusMarkTest : public test::ControlRig {
protected:
    // 3 px above the button: the middle of the line.
    bool IsLineSeen() { return window_.grab().toImage().pixelColor(20 + 43, 20 - 3) == palette::Ink; }

    std::unique_ptr<usrKVButton> button_ = Made<usrKVButton>(QStringLiteral("SET"), QSize(86, 60));
    std::unique_ptr<usrKVButton> other_ = Made<usrKVButton>(QStringLiteral("TEST"), QSize(86, 60));

    void SetUp() override { other_->move(200, 20); }
};

TEST_F(FocusMarkTest, TheKeyboardBringsALineTwoPixelsOutside) {
    button_->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(IsLineSeen());
    const QImage shot = window_.grab().toImage();
    EXPECT_EQ(shot.pixelColor(20 + 43, 20 - 4), palette::Ink);
    EXPECT_NE(shot.pixelColor(20 + 43, 20 - 2), palette::Ink);
    EXPECT_NE(shot.pixelColor(20 + 43, 20 - 5), palette::Ink);
    other_->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(IsLineSeen());
}

TEST_F(FocusMarkTest, AClickOfTheMouseShowsNoLineUntilAKeyIsUsed) {
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    ASSERT_TRUE(button_->hasFocus());
    EXPECT_FALSE(IsLineSeen());
    QTest::keyClick(button_.get(), Qt::Key_Space);
    EXPECT_TRUE(IsLineSeen());
}

TEST_F(FocusMarkTest, TheLineFollowsTheButtonAndGoesWithIt) {
    button_->setFocus(Qt::TabFocusReason);
    button_->move(20, 120);
    EXPECT_FALSE(IsLineSeen());
    EXPECT_EQ(window_.grab().toImage().pixelColor(20 + 43, 120 - 3), palette::Ink);
    button_->hide();
    EXPECT_NE(window_.grab().toImage().pixelColor(20 + 43, 120 - 3), palette::Ink);
}

TEST_F(FocusMarkTest, TheLineTakesNoMouse) {
    button_->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window_.childAt(20 + 43, 20 + 30), button_.get());
    EXPECT_EQ(window_.childAt(20 + 43, 20 - 3), nullptr);
}

TEST_F(FocusMarkTest, AParentThatGoesFirstTakesButtonAndLineAlong) {
    auto parent = std::make_unique<QWidget>(&window_);
    auto* const button = new usrKVButton(parent.get());
    parent->show();
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(parent->children().size(), 2);
    parent.reset();
    EXPECT_EQ(window_.findChildren<QWidget*>().size(), 2);
}

}  // namespace travo
