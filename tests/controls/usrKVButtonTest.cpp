#include "controls/usrKVButton.h"

#include <QDialog>
#include <QSignalSpy>

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

using test::OwnSkin;
using test::SkinHome;

class usrKVButtonTest : public test::ControlRig {
protected:
    std::unique_ptr<usrKVButton> button_ = Made<usrKVButton>(QStringLiteral("SET"), QSize(86, 60));
};

TEST_F(usrKVButtonTest, RaisedPressedAndDisabledAreToldApartWithoutColour) {
    const QImage up = Shot(*button_);
    button_->setDown(true);
    const QImage down = Shot(*button_);
    button_->setDown(false);
    button_->Enabled(false);
    const QImage disabled = Shot(*button_);
    // The lip: dark line 2 px above the outline at the bottom, on the raised face only.
    EXPECT_LT(Lightness(up, 43, 57), 0.75);
    EXPECT_GT(Lightness(disabled, 43, 57), 0.85);
    // Sunk: a dark top edge, and a darker face.
    EXPECT_LT(Lightness(down, 43, 2), Lightness(up, 43, 2) - 0.15);
    EXPECT_LT(Lightness(down, 10, 20), Lightness(up, 10, 20) - 0.08);
    EXPECT_NE(up, disabled);
}

TEST_F(usrKVButtonTest, AClickOfTheLeftButtonEmitsClickedOnce) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    QTest::mouseClick(button_.get(), Qt::RightButton);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(usrKVButtonTest, AReleaseOutsideTheButtonIsNoClick) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    QTest::mousePress(button_.get(), Qt::LeftButton);
    QTest::mouseMove(button_.get(), QPoint(200, 20));
    QTest::mouseRelease(button_.get(), Qt::LeftButton, {}, QPoint(200, 20));
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(usrKVButtonTest, SpacePresses) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    button_->setFocus();
    QTest::keyClick(button_.get(), Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(usrKVButtonTest, ADisabledButtonTakesNoClickFromAnywhere) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    button_->Enabled(false);
    EXPECT_FALSE(button_->Enabled());
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    QTest::keyClick(button_.get(), Qt::Key_Space);
    Press(*button_);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(usrKVButtonTest, AButtonSwitchedOffWhileItIsHeldDoesNotGoOff) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    QTest::mousePress(button_.get(), Qt::LeftButton);
    button_->Enabled(false);
    button_->Enabled(true);
    QTest::mouseRelease(button_.get(), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(usrKVButtonTest, TheAccessiblePressIsAClick) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    Press(*button_);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(button_->hasFocus());
}

TEST_F(usrKVButtonTest, TheAccessiblePressDoesNothingBehindAModalBoxOrWhenHidden) {
    const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
    {
        QDialog box(&window_);
        box.setModal(true);
        box.show();
        Press(*button_);
        EXPECT_EQ(clicked.count(), 0);
    }
    button_->hide();
    Press(*button_);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(usrKVButtonTest, AssistiveProgramsGetRoleNameAndState) {
    button_->setAccessibleName(QStringLiteral("Set row 1"));
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(button_.get());
    EXPECT_EQ(access->role(), QAccessible::Button);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("Set row 1"));
    EXPECT_FALSE(access->state().checkable);
    EXPECT_FALSE(access->state().disabled);
    button_->Enabled(false);
    EXPECT_TRUE(access->state().disabled);
    button_->setAccessibleName(QString());
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("SET"));
}

TEST_F(usrKVButtonTest, ARingIsLaidOnUnderThePointer) {
    button_->setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(Shot(*button_).pixelColor(1, 30), palette::Ring);
    button_->Enabled(false);
    EXPECT_NE(Shot(*button_).pixelColor(1, 30), palette::Ring);
}

TEST_F(usrKVButtonTest, ABadPictureLeavesAPlainButtonWithACaptionThatWorks) {
    const OwnSkin skin;
    const QByteArray whole = OwnSkin::Shipped(QStringLiteral("SET-up"));
    for (const QByteArray& bytes : {whole.left(whole.size() / 2), QByteArray("\x89PNG"), QByteArray()}) {
        skin.Write(QStringLiteral("SET-up"), bytes);
        button_->inipath(skin.Home());
        const QImage plain = Shot(*button_);
        button_->setText(QStringLiteral("Keep"));
        EXPECT_NE(Shot(*button_), plain) << "the caption shows";
        button_->setText(QString());
        EXPECT_LT(Lightness(plain, 43, 57), 0.75) << "it is raised";
        const QSignalSpy clicked(button_.get(), &usrKVButton::clicked);
        QTest::mouseClick(button_.get(), Qt::LeftButton);
        EXPECT_EQ(clicked.count(), 1);
    }
}

TEST_F(usrKVButtonTest, AFolderThatDoesNotExistLeavesPlainButtons) {
    button_->inipath(QStringLiteral("/no/such/folder"));
    EXPECT_FALSE(Shot(*button_).isNull());
    button_->inipath(SkinHome());
    EXPECT_LT(Lightness(Shot(*button_), 43, 57), 0.75);
}

TEST_F(usrKVButtonTest, TheSmallestSizeButtonDraws) {
    const auto size = Made<usrKVButton>(QStringLiteral("size"), QSize(13, 13));
    EXPECT_EQ(Shot(*size).pixelColor(2, 6), QColor(0x3D, 0x67, 0x80));
    size->resize(1, 1);
    EXPECT_EQ(Shot(*size).size(), QSize(1, 1));
}

}  // namespace travo
