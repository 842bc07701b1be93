#include "controls/ApplicationStyle.h"

#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

class ApplicationStyleTest : public testing::Test {
protected:
    ApplicationStyleTest() { qApp->setStyleSheet(ApplicationStyleSheet()); }
    ~ApplicationStyleTest() override { qApp->setStyleSheet(before_); }

private:
    QString before_ = qApp->styleSheet();
};

TEST_F(ApplicationStyleTest, EveryColourAndFontHasItsValue) {
    EXPECT_FALSE(ApplicationStyleSheet().contains(QLatin1Char('[')));
    EXPECT_TRUE(ApplicationStyleSheet().contains(QStringLiteral("\"Open Sans\"")));
}

TEST_F(ApplicationStyleTest, ABoxHasTheGroundAndButtonsForAGlovedHand) {
    QMessageBox box;
    box.setText(QStringLiteral("WARNING!"));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.show();
    const QImage shot = box.grab().toImage();
    EXPECT_EQ(shot.pixelColor(2, 2), palette::Ground);
    for (const QAbstractButton* const button : box.buttons()) {
        EXPECT_GE(button->width(), 88);
        EXPECT_GE(button->height(), 44);
    }
}

}  // namespace travo
