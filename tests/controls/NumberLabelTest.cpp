#include "controls/NumberLabel.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include "controls/ControlNames.h"
#include "controls/ControlRig.h"
#include "controls/NumberBox.h"
#include "controls/Palette.h"

namespace travo {

namespace {

// Every rectangle of a label that shows a number, with its size of type.
struct Rectangle {
    QSize size;
    double pixels;
};
constexpr Rectangle Rectangles[] = {
    {QSize(92, 60), type::Number}, {QSize(84, 48), type::NumberSmall}, {QSize(70, 36), type::NumberStrip}};

QRect InkOf(const QImage& shot) {
    QRect ink;
    for (int y = 1; y < shot.height() - 1; ++y) {
        for (int x = 1; x < shot.width() - 1; ++x) {
            if (shot.pixelColor(x, y).lightnessF() < 0.6) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

}  // namespace

using NumberLabelTest = test::ControlRig;

TEST_F(NumberLabelTest, TheTextIsItsAccessibleNameAndTheHumanNameItsDescription) {
    NumberLabel label;
    Identify(label, Indexed(QStringLiteral("lblCellPos"), 3), QStringLiteral("Cell B X"));
    label.setText(QStringLiteral("-412"));
    EXPECT_EQ(label.objectName(), QStringLiteral("lblCellPos(3)"));
    EXPECT_EQ(label.accessibleName(), QStringLiteral("-412"));
    EXPECT_EQ(label.accessibleDescription(), QStringLiteral("Cell B X"));
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&label);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("-412"));
    EXPECT_EQ(access->text(QAccessible::Description), QStringLiteral("Cell B X"));
}

TEST_F(NumberLabelTest, ANumberStandsFivePixelsFromTheRightEdgeInTheMiddle) {
    NumberLabel label(&window_);
    label.DesignSize(QSizeF(92, 60));
    label.resize(92, 60);
    label.setText(QStringLiteral("1250"));
    const QRect ink = InkOf(Shot(label));
    EXPECT_NEAR(ink.right(), 92 - 5, 2);
    EXPECT_NEAR(ink.center().y(), 30, 1);
}

TEST_F(NumberLabelTest, ABareCaptionStandsAtItsLeftEdgeOrInTheMiddle) {
    NumberLabel label(&window_, type::NumberStrip, QFont::Normal, NumberLabel::Ground::Bare);
    label.Colour(palette::Ink2);
    label.DesignSize(QSizeF(100, 26));
    label.resize(100, 26);
    label.setText(QStringLiteral("Motor"));
    label.setAlignment(Qt::AlignLeft);
    EXPECT_NEAR(InkOf(Shot(label)).left(), 1, 1);
    label.setAlignment(Qt::AlignHCenter);
    EXPECT_NEAR(InkOf(Shot(label)).center().x(), 50, 2);
}

TEST_F(NumberLabelTest, NotAvailableStandsInTheColourOfWhatIsOff) {
    NumberLabel label(&window_, 40);
    label.resize(92, 60);
    label.setText(QStringLiteral("N/A"));
    const QImage off = Shot(label);
    label.setText(QStringLiteral("NNA"));
    const QImage on = Shot(label);
    double darkestOff = 1;
    double darkestOn = 1;
    for (int x = 4; x < 88; ++x) {
        darkestOff = std::min(darkestOff, Lightness(off, x, 30));
        darkestOn = std::min(darkestOn, Lightness(on, x, 30));
    }
    EXPECT_NEAR(darkestOff, palette::Off.lightnessF(), 0.02);
    EXPECT_NEAR(darkestOn, palette::Ink.lightnessF(), 0.02);
}

TEST_F(NumberLabelTest, EveryNumberFitsItsRectangleEvenInTheWidestFace) {
    for (const Rectangle& rectangle : Rectangles) {
        QFont widest(QStringLiteral("DejaVu Sans"));
        widest.setWeight(QFont::Bold);
        widest.setPixelSize(static_cast<int>(rectangle.pixels));
        ASSERT_EQ(QFontInfo(widest).family(), QStringLiteral("DejaVu Sans"));
        const double room = rectangle.size.width() - 10;
        const QFont fitted = Fitted(widest, QStringLiteral("-100000"), room);
        EXPECT_LE(QFontMetricsF(fitted).horizontalAdvance(QStringLiteral("-100000")), room);
        EXPECT_GE(fitted.pixelSize(), 12) << "it stays readable";
    }
}

TEST_F(NumberLabelTest, TextTooWideIsShrunkAtAnyScale) {
    for (const double scale : {0.4, 1.0, 1.7}) {
        NumberLabel label(&window_);
        label.DesignSize(QSizeF(92, 60));
        label.resize((QSizeF(92, 60) * scale).toSize());
        for (const char* const text : {"-100000", "-2147483648", "1.5"}) {
            label.setText(QString::fromLatin1(text));
            EXPECT_LE(QFontMetricsF(label.PaintedFont()).horizontalAdvance(label.text()),
                      label.width() - 9 * scale);
        }
        EXPECT_EQ(label.PaintedFont().pixelSize(), std::lround(18 * scale));
    }
}

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
