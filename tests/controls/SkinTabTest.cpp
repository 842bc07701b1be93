#include "controls/SkinTab.h"

#include <QSignalSpy>

#include "controls/ControlRig.h"

namespace travo {

using SkinTabTest = test::ControlRig;

TEST_F(SkinTabTest, AClickAndAPressOnThePictureAreClicksOnTheTab) {
    const auto tab = Made<SkinTab>(QStringLiteral("tab-07"), QSize(162, 36));
    const QSignalSpy clicked(tab.get(), &SkinTab::clicked);
    QTest::mouseClick(tab.get(), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    Press(*tab);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(tab.get())->role(), QAccessible::PageTab);
    EXPECT_EQ(Shot(*tab).pixelColor(20, 20), QColor(0xD0, 0xE0, 0xEB));
}

TEST_F(SkinTabTest, ATabThatWasHiddenUnderThePointerComesBackWithoutItsRing) {
    const auto tab = Made<SkinTab>(QStringLiteral("tab-07"), QSize(162, 36));
    const QImage before = Shot(*tab);
    tab->setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(Shot(*tab), before);
    tab->hide();
    tab->show();
    EXPECT_EQ(Shot(*tab), before);
}

TEST_F(SkinTabTest, EveryPictureIsSelectableAndTheOneOfTheSelectedTabIsSelectedWhileItIsOnShow) {
    const auto stateOf = [](const std::unique_ptr<SkinTab>& tab) {
        return QAccessible::queryAccessibleInterface(tab.get())->state();
    };
    const auto lower = Made<SkinTab>(QStringLiteral("tab-07"), QSize(162, 36));
    const auto selected = Made<SkinTab>(QStringLiteral("tab-01"), QSize(162, 36));
    selected->StandsForSelected(true);
    for (const auto* const tab : {&lower, &selected}) {
        EXPECT_TRUE(stateOf(*tab).selectable);
        EXPECT_FALSE(stateOf(*tab).checkable);
    }
    EXPECT_FALSE(stateOf(lower).selected);
    EXPECT_TRUE(stateOf(selected).selected);
    selected->hide();
    EXPECT_FALSE(stateOf(selected).selected);
    selected->show();
    EXPECT_TRUE(stateOf(selected).selected);
}

}  // namespace travo
