#include "controls/NumberLabel.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "controls/ControlNames.h"
#include "controls/ControlRig.h"
#include "controls/Palette.h"
#include "controls/ScaledLayout.h"

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
    NumberLabel label(&window_);
    label.Face(type::NumberStrip, QFont::Normal, NumberLabel::Ground::Bare);
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
    NumberLabel label(&window_);
    label.Face(40);
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

TEST_F(NumberLabelTest, NeighboursThatTheirEdgesRoundedApartHaveTextOfOneSize) {
    constexpr double Design = 300;
    ScaledLayout layout(QSizeF(340, Design));
    std::vector<NumberLabel*> rows;
    for (double top = 30; top < 280; top += 26) {
        rows.push_back(new NumberLabel(&window_));
        rows.back()->Face(14);
        rows.back()->setText(QStringLiteral("16:53"));
        layout.Add(*rows.back(), QRectF(100, top, 200, 20));
    }
    for (int height = 200; height <= 400; ++height) {
        layout.Apply(QSizeF(340, height));
        for (const NumberLabel* const row : rows) {
            ASSERT_EQ(row->PaintedFont().pixelSize(), std::lround(14 * std::min(1.0, height / Design)))
                << "in a window " << height << " high, at " << row->y();
        }
    }
}

}  // namespace travo
