#include "controls/usrKVCheckButton.h"

#include <QSignalSpy>
#include <vector>

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

class usrKVCheckButtonTest : public test::ControlRig {
protected:
    // A place in the slot at the left edge, and one on the face away from glyph and slot.
    static constexpr QPoint Slot{8, 32};
    static constexpr QPoint Face{16, 32};

    std::unique_ptr<usrKVCheckButton> button_ =
        Made<usrKVCheckButton>(QStringLiteral("ExpDirect"), QSize(82, 72));
};

TEST_F(usrKVCheckButtonTest, StartsRaised) { EXPECT_FALSE(button_->Value()); }

TEST_F(usrKVCheckButtonTest, LatchedIsDarkWithTheSlotLitAndRaisedIsLight) {
    const QImage up = Shot(*button_);
    button_->SetRaised(false);
    const QImage down = Shot(*button_);
    EXPECT_GT(Lightness(up, Face.x(), Face.y()), 0.85);
    EXPECT_LT(Lightness(down, Face.x(), Face.y()), 0.35);
    EXPECT_EQ(down.pixelColor(Slot), palette::Coral);
    EXPECT_EQ(up.pixelColor(Slot), palette::SlotUp);
    // The lip is gone when sunk.
    EXPECT_EQ(up.pixelColor(41, 70), palette::Lip);
    EXPECT_NE(down.pixelColor(41, 70), palette::Lip);
}

TEST_F(usrKVCheckButtonTest, LatchedAndDisabledIsDarkerThanDisabledWithAPaleSlot) {
    button_->Enabled(false);
    const QImage disabled = Shot(*button_);
    button_->SetRaised(false);
    const QImage latched = Shot(*button_);
    EXPECT_EQ(disabled.pixelColor(Face), palette::OffFace);
    EXPECT_EQ(disabled.pixelColor(Slot), palette::OffFace);
    EXPECT_EQ(latched.pixelColor(Face), palette::SlateOff);
    EXPECT_EQ(latched.pixelColor(Slot), palette::SlotOff);
}

TEST_F(usrKVCheckButtonTest, AClickTogglesOnceAndThenTells) {
    bool seen = false;
    int clicks = 0;
    QObject::connect(button_.get(), &usrKVCheckButton::clicked, button_.get(), [&] {
        seen = button_->Value();
        ++clicks;
    });
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    EXPECT_TRUE(seen);
    EXPECT_TRUE(button_->Value());
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    EXPECT_FALSE(seen);
    EXPECT_EQ(clicks, 2);
}

TEST_F(usrKVCheckButtonTest, SetRaisedIsSilent) {
    const QSignalSpy clicked(button_.get(), &usrKVCheckButton::clicked);
    const QSignalSpy toggled(button_.get(), &usrKVCheckButton::toggled);
    const QSignalSpy pressed(button_.get(), &usrKVCheckButton::pressed);
    button_->SetRaised(false);
    EXPECT_TRUE(button_->Value());
    button_->SetRaised(true);
    EXPECT_FALSE(button_->Value());
    EXPECT_EQ(clicked.count() + toggled.count() + pressed.count(), 0);
}

TEST_F(usrKVCheckButtonTest, SetRaisedWithinTheHandlingHasTheLastWord) {
    QObject::connect(button_.get(), &usrKVCheckButton::clicked, button_.get(),
                     [&] { button_->SetRaised(false); });
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    EXPECT_TRUE(button_->Value());
}

TEST_F(usrKVCheckButtonTest, ATwoStateButtonDoesNotReleaseItsNeighbours) {
    const auto neighbour = Made<usrKVCheckButton>(QStringLiteral("ExpSynchro"), QSize(82, 72));
    neighbour->move(120, 20);
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    QTest::mouseClick(neighbour.get(), Qt::LeftButton);
    EXPECT_TRUE(button_->Value());
    EXPECT_TRUE(neighbour->Value());
}

TEST_F(usrKVCheckButtonTest, SpaceTogglesOnce) {
    const QSignalSpy clicked(button_.get(), &usrKVCheckButton::clicked);
    button_->setFocus();
    QTest::keyClick(button_.get(), Qt::Key_Space);
    EXPECT_TRUE(button_->Value());
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(usrKVCheckButtonTest, DisabledTakesNoClickAndKeepsItsState) {
    button_->SetRaised(false);
    button_->Enabled(false);
    QTest::mouseClick(button_.get(), Qt::LeftButton);
    QTest::keyClick(button_.get(), Qt::Key_Space);
    Press(*button_);
    EXPECT_TRUE(button_->Value());
}

TEST_F(usrKVCheckButtonTest, TheAccessiblePressTogglesAndRunsTheHandlingAsAClickDoes) {
    const QSignalSpy clicked(button_.get(), &usrKVCheckButton::clicked);
    Press(*button_);
    EXPECT_TRUE(button_->Value());
    EXPECT_EQ(clicked.count(), 1);
    Press(*button_);
    EXPECT_FALSE(button_->Value());
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(usrKVCheckButtonTest, AssistiveProgramsSeeTheStateAlsoAfterSetRaised) {
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(button_.get());
    EXPECT_EQ(access->role(), QAccessible::CheckBox) << "of a plain button no state is told";
    EXPECT_TRUE(access->state().checkable);
    EXPECT_FALSE(access->state().checked);
    button_->SetRaised(false);
    EXPECT_TRUE(access->state().checked);
}

TEST_F(usrKVCheckButtonTest, WithoutPicturesTheFourStatesStillDiffer) {
    button_->inipath(QStringLiteral("/no/such/folder"));
    std::vector<QImage> shots;
    for (const bool enabled : {true, false}) {
        for (const bool raised : {true, false}) {
            button_->Enabled(enabled);
            button_->SetRaised(raised);
            shots.push_back(Shot(*button_));
        }
    }
    for (std::size_t i = 0; i < shots.size(); ++i) {
        for (std::size_t j = i + 1; j < shots.size(); ++j) {
            EXPECT_GT(std::abs(Lightness(shots[i], 12, 36) - Lightness(shots[j], 12, 36)), 0.03) << i << j;
        }
    }
}

}  // namespace travo
