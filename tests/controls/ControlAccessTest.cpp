#include "controls/ControlAccess.h"

#include <QFrame>

#include "controls/ControlRig.h"

namespace travo {

using ControlAccessTest = test::ControlRig;

TEST_F(ControlAccessTest, AWidgetThatIsShownAsAPictureKeepsItsNameAndHelp) {
    QFrame frame(&window_);
    frame.setAccessibleName(QStringLiteral("Picture"));
    EXPECT_NE(QAccessible::queryAccessibleInterface(&frame)->role(), QAccessible::Graphic);
    ShowAsPicture(frame);
    frame.setToolTip(QStringLiteral("What the camera sees"));
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&frame);
    EXPECT_EQ(access->role(), QAccessible::Graphic);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("Picture"));
    EXPECT_EQ(access->text(QAccessible::Description), QStringLiteral("What the camera sees"));
}

TEST_F(ControlAccessTest, ThePictureGoesWithItsWidget) {
    auto picture = std::make_unique<QWidget>(&window_);
    ShowAsPicture(*picture);
    const QAccessible::Id id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(picture.get()));
    ASSERT_NE(QAccessible::accessibleInterface(id), nullptr);
    picture.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace travo
