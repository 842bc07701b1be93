#include "controls/NumberBox.h"

#include <QFontMetricsF>

#include "controls/ControlRig.h"
#include "controls/Palette.h"

namespace travo {

using NumberBoxTest = test::ControlRig;

TEST_F(NumberBoxTest, OnlyDigitsAndBackspacePassTheKeyboard) {
    NumberBox box(&window_);
    box.show();
    box.setFocus();
    QTest::keyClicks(&box, QStringLiteral("1a2-3. +4e"));
    EXPECT_EQ(box.text(), QStringLiteral("1234"));
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), QStringLiteral("123"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(box.text(), QStringLiteral("123"));
    QTest::keyClick(&box, Qt::Key_Left);
    QTest::keyClicks(&box, QStringLiteral("9"));
    EXPECT_EQ(box.text(), QStringLiteral("1293"));
}

TEST_F(NumberBoxTest, FiguresAreTwentyPixelsAndShrinkToFit) {
    NumberBox box(&window_);
    box.DesignSize(QSizeF(48, 52));
    box.resize(48, 52);
    box.show();
    box.setText(QStringLiteral("12"));
    EXPECT_EQ(box.font().pixelSize(), 20);
    box.setText(QStringLiteral("100000"));
    EXPECT_LT(box.font().pixelSize(), 20);
    EXPECT_LE(QFontMetricsF(box.font()).horizontalAdvance(box.text()), 48 - 12);
    box.setText(QStringLiteral("1"));
    EXPECT_EQ(box.font().pixelSize(), 20);
    box.resize(96, 104);
    EXPECT_EQ(box.font().pixelSize(), 40);
}

TEST_F(NumberBoxTest, KeepsItsOwnGroundUnderAnApplicationStyleSheet) {
    const QString before = qApp->styleSheet();
    qApp->setStyleSheet(QStringLiteral("QToolTip { color: white; }"));
    NumberBox box(&window_);
    box.resize(84, 48);
    box.show();
    const QImage shot = Shot(box);
    qApp->setStyleSheet(before);
    EXPECT_EQ(shot.pixelColor(42, 46), palette::Slate) << "the line at its foot";
    EXPECT_EQ(shot.pixelColor(20, 24), palette::Field);
}

}  // namespace travo
