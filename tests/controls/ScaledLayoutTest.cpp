#include "controls/ScaledLayout.h"

#include <QPushButton>

#include "controls/ControlRig.h"
#include "controls/usrKVButton.h"

namespace travo {

TEST(ScaledLayoutTest, PlacesAndSizesScaleWithWidthAndHeightApart) {
    QWidget window;
    QPushButton plain(&window);
    usrKVButton skinned(&window);
    ScaledLayout layout(QSizeF(276, 222));
    layout.Add(plain, QRectF(12, 45, 165, 165));
    layout.Add(skinned, QRectF(191, 45, 73, 36));
    layout.Apply(QSizeF(552, 222));
    EXPECT_EQ(plain.geometry(), QRect(24, 45, 330, 165));
    EXPECT_EQ(skinned.geometry(), QRect(382, 45, 146, 36));
    layout.Apply(QSizeF(276, 222));
    EXPECT_EQ(plain.geometry(), QRect(12, 45, 165, 165));
}

TEST(ScaledLayoutTest, ASkinnedControlLearnsItsDesignSize) {
    QWidget window;
    usrKVButton skinned(&window);
    ScaledLayout layout(QSizeF(276, 222));
    layout.Add(skinned, QRectF(191, 45, 73, 36));
    EXPECT_EQ(skinned.DesignSize(), QSizeF(73, 36));
    layout.Apply(QSizeF(552, 333));
    EXPECT_EQ(skinned.ScaleAt(QSizeF(skinned.size())), 1.5);
    EXPECT_EQ(layout.Scale(QSizeF(552, 333)), 1.5);
}

TEST(ScaledLayoutTest, APanelOfNoSizePutsEverythingAway) {
    QWidget window;
    usrKVButton skinned(&window);
    ScaledLayout layout(QSizeF(276, 222));
    layout.Add(skinned, QRectF(191, 45, 73, 36));
    layout.Apply(QSizeF(0, 0));
    EXPECT_TRUE(skinned.geometry().isEmpty());
}

}  // namespace travo
