#include "controls/usrKVXscroll.h"

#include <QAccessibleValueInterface>
#include <QSignalSpy>

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

class usrKVXscrollTest : public test::ControlRig {
protected:
    static constexpr QPoint LeftArrow{18, 18};
    static constexpr QPoint RightArrow{164, 18};
    // At value 0 of -255 to 255 the thumb of 26 stands in the middle of the bar's 110.
    static constexpr QPoint Middle{91, 18};

    std::unique_ptr<usrKVXscroll> bar_ = Made<usrKVXscroll>(QStringLiteral("xscroll"), QSize(182, 36));
    QSignalSpy change_{bar_.get(), &usrKVXscroll::Change};
    QSignalSpy scroll_{bar_.get(), &usrKVXscroll::Scroll};
};

TEST_F(usrKVXscrollTest, AnArrowStepsByOneAndTellsChange) {
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, RightArrow);
    EXPECT_EQ(bar_->Value(), 1);
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, LeftArrow);
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, LeftArrow);
    EXPECT_EQ(bar_->Value(), -1);
    EXPECT_EQ(change_.count(), 3);
    EXPECT_EQ(scroll_.count(), 0);
}

TEST_F(usrKVXscrollTest, TheBarBesideTheThumbPages) {
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, QPoint(140, 18));
    EXPECT_EQ(bar_->Value(), 16);
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, QPoint(40, 18));
    EXPECT_EQ(bar_->Value(), 0);
}

TEST_F(usrKVXscrollTest, ADragTellsScrollOnTheWayAndChangeAtItsEnd) {
    QTest::mousePress(bar_.get(), Qt::LeftButton, {}, Middle);
    QTest::mouseMove(bar_.get(), Middle + QPoint(21, 0));
    EXPECT_EQ(bar_->Value(), 128);
    EXPECT_EQ(bar_->value(), 0);
    EXPECT_EQ(scroll_.count(), 1);
    EXPECT_EQ(change_.count(), 0);
    QTest::mouseRelease(bar_.get(), Qt::LeftButton, {}, Middle + QPoint(21, 0));
    EXPECT_EQ(bar_->value(), 128);
    EXPECT_EQ(change_.count(), 1);
}

TEST_F(usrKVXscrollTest, ADragEndsAtTheEndsOfTheRange) {
    bar_->setRange(-256, 255);
    QTest::mousePress(bar_.get(), Qt::LeftButton, {}, Middle);
    QTest::mouseMove(bar_.get(), QPoint(400, 18));
    EXPECT_EQ(bar_->Value(), 255);
    QTest::mouseMove(bar_.get(), QPoint(-400, 18));
    EXPECT_EQ(bar_->Value(), -256);
    QTest::mouseRelease(bar_.get(), Qt::LeftButton);
}

TEST_F(usrKVXscrollTest, ADoubleClickReturnsToTheNeutralValue) {
    bar_->setValue(40);
    QTest::mouseDClick(bar_.get(), Qt::LeftButton, {}, QPoint(98, 18));
    EXPECT_EQ(bar_->Value(), usrKVXscroll::Neutral);
}

TEST_F(usrKVXscrollTest, ADoubleClickOnAnArrowIsTwoSteps) {
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, RightArrow);
    QTest::mouseDClick(bar_.get(), Qt::LeftButton, {}, RightArrow);
    QTest::mouseRelease(bar_.get(), Qt::LeftButton, {}, RightArrow);
    EXPECT_EQ(bar_->Value(), 2);
}

TEST_F(usrKVXscrollTest, KeysStepAndPage) {
    bar_->setFocus();
    QTest::keyClick(bar_.get(), Qt::Key_Right);
    QTest::keyClick(bar_.get(), Qt::Key_PageUp);
    EXPECT_EQ(bar_->Value(), 17);
    QTest::keyClick(bar_.get(), Qt::Key_End);
    EXPECT_EQ(bar_->Value(), 255);
}

TEST_F(usrKVXscrollTest, DisabledTakesNothing) {
    bar_->Enabled(false);
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, RightArrow);
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(bar_.get());
    access->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    access->valueInterface()->setCurrentValue(20);
    EXPECT_EQ(bar_->Value(), 0);
}

TEST_F(usrKVXscrollTest, SwitchedOffInADragItKeepsWhereItStands) {
    QTest::mousePress(bar_.get(), Qt::LeftButton, {}, Middle);
    QTest::mouseMove(bar_.get(), Middle + QPoint(21, 0));
    bar_->Enabled(false);
    EXPECT_EQ(bar_->value(), 128);
    QTest::mouseMove(bar_.get(), Middle);
    EXPECT_EQ(bar_->Value(), 128);
}

TEST_F(usrKVXscrollTest, AssistiveProgramsGetRoleValueAndSteps) {
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(bar_.get());
    EXPECT_EQ(access->role(), QAccessible::ScrollBar);
    access->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(access->valueInterface()->currentValue().toInt(), 1);
    access->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(access->valueInterface()->currentValue().toInt(), 0);
    access->valueInterface()->setCurrentValue(-7);
    EXPECT_EQ(bar_->Value(), -7);
    EXPECT_EQ(access->valueInterface()->minimumValue().toInt(), -255);
    EXPECT_EQ(access->valueInterface()->maximumValue().toInt(), 255);
}

TEST_F(usrKVXscrollTest, TheThumbIsTwentySixWideAndCoversTheNotchAtTheNeutralMiddle) {
    const QImage neutral = Shot(*bar_);
    // The thumb's outline, and beside it the bar's own ground.
    EXPECT_EQ(neutral.pixelColor(78, 18), palette::Edge);
    EXPECT_EQ(neutral.pixelColor(103, 18), palette::Edge);
    EXPECT_EQ(neutral.pixelColor(76, 10), palette::Ground);
    bar_->setValue(-255);
    EXPECT_EQ(Shot(*bar_).pixelColor(91, 12), palette::SlotUpEdge) << "the notch";
}

TEST_F(usrKVXscrollTest, TheGivenColourStandsBehindTheBar) {
    bar_->BackColor(Qt::red);
    EXPECT_EQ(Shot(*bar_).pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(usrKVXscrollTest, WithoutPicturesItDrawsAndWorks) {
    bar_->inipath(QStringLiteral("/no/such/folder"));
    const QImage neutral = Shot(*bar_);
    QTest::mouseClick(bar_.get(), Qt::LeftButton, {}, QPoint(140, 18));
    EXPECT_EQ(bar_->Value(), 16);
    EXPECT_NE(Shot(*bar_), neutral);
}

}  // namespace travo
