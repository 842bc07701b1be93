#include "controls/PanelCanvas.h"

#include <QAccessible>

#include "controls/ControlRig.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"

namespace travo {

class PanelCanvasTest : public test::ControlRig {
protected:
    PanelCanvasTest() {
        panel_.setGeometry(0, 0, 486, 520);
        panel_.show();
    }

    PanelCanvas panel_{QSizeF(486, 520), test::SkinHome(), &window_};
};

TEST_F(PanelCanvasTest, ControlsStandAtTheirDesignRectanglesAndScaleWithThePanel) {
    usrKVButton button(&panel_);
    panel_.Add(button, QRectF(24, 364, 260, 72));
    EXPECT_EQ(button.geometry(), QRect(24, 364, 260, 72));
    EXPECT_EQ(button.DesignSize(), QSizeF(260, 72));
    panel_.resize(972, 520);
    EXPECT_EQ(button.geometry(), QRect(48, 364, 520, 72));
    EXPECT_EQ(panel_.Scale(), 1.0);
    panel_.resize(486, 520);
    EXPECT_EQ(button.geometry(), QRect(24, 364, 260, 72));
}

TEST_F(PanelCanvasTest, AssistiveProgramsGetAPane) {
    const usrKVButton button(&panel_);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&panel_)->role(), QAccessible::Pane);
}

TEST_F(PanelCanvasTest, NeighboursStayNeighboursAtAnySize) {
    usrKVButton left(&panel_);
    usrKVButton right(&panel_);
    panel_.Add(left, QRectF(10, 10, 101, 50));
    panel_.Add(right, QRectF(111, 10, 77, 50));
    for (int width = 100; width < 700; width += 7) {
        panel_.resize(width, 520);
        EXPECT_EQ(left.geometry().right() + 1, right.geometry().left()) << width;
    }
}

TEST_F(PanelCanvasTest, TheScaleIsTheSmallerOfBothRatios) {
    panel_.resize(972, 780);
    EXPECT_EQ(panel_.Scale(), 1.5);
}

TEST_F(PanelCanvasTest, APlateIsPaintedUnderItsText) {
    panel_.Paint(Plate{QRectF(12, 12, 462, 110)});
    EXPECT_EQ(Shot(panel_).pixelColor(300, 60), palette::Well);
    EXPECT_EQ(Shot(panel_).pixelColor(300, 12), palette::Hair);
    const QImage bare = Shot(panel_);
    panel_.Paint(CaptionText(24, 18, QStringLiteral("What moves")));
    EXPECT_NE(Shot(panel_), bare);
    EXPECT_EQ(Shot(panel_).copy(200, 0, 286, 520), bare.copy(200, 0, 286, 520))
        << "it starts at its left end";
}

TEST_F(PanelCanvasTest, AGroundStandsBehindAllElseAlsoUnderAnApplicationStyleSheet) {
    const QString before = qApp->styleSheet();
    qApp->setStyleSheet(QStringLiteral("QToolTip { color: white; }"));
    panel_.Ground(palette::Ground);
    panel_.Paint(Plate{QRectF(12, 12, 462, 110)});
    const QImage shot = Shot(panel_);
    qApp->setStyleSheet(before);
    EXPECT_EQ(shot.pixelColor(4, 4), palette::Ground);
    EXPECT_EQ(shot.pixelColor(300, 60), palette::Well);
}

TEST_F(PanelCanvasTest, TextKeepsToItsAlignment) {
    const auto reach = [this](Qt::AlignmentFlag alignment) {
        const int item = panel_.Paint(CaptionText(200, 100, QStringLiteral("Connect"), alignment));
        const QImage shot = Shot(panel_);
        panel_.Visible(item, false);
        QRect ink;
        for (int x = 0; x < shot.width(); ++x) {
            for (int y = 95; y < 125; ++y) {
                if (Lightness(shot, x, y) < 0.5) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        return ink;
    };
    EXPECT_NEAR(reach(Qt::AlignLeft).left(), 200, 2);
    EXPECT_NEAR(reach(Qt::AlignRight).right(), 200, 2);
    EXPECT_NEAR(reach(Qt::AlignHCenter).center().x(), 200, 2);
    EXPECT_NEAR(reach(Qt::AlignLeft).center().y(), 109, 1);
}

TEST_F(PanelCanvasTest, AnItemIsHiddenReplacedAndShownAgain) {
    const QImage bare = Shot(panel_);
    const int slot = panel_.Paint(DashedSlot{QRectF(381, 201, 80, 140)});
    const QImage shown = Shot(panel_);
    EXPECT_NE(shown, bare);
    panel_.Visible(slot, false);
    EXPECT_EQ(Shot(panel_), bare);
    panel_.Visible(slot, true);
    EXPECT_EQ(Shot(panel_), shown);
    panel_.Replace(slot, Rule{24, 462, 448});
    EXPECT_EQ(Shot(panel_).pixelColor(240, 448), palette::Hair);
    EXPECT_THROW(panel_.Visible(7, true), std::out_of_range);
    EXPECT_THROW(panel_.Replace(-1, Rule{}), std::out_of_range);
}

TEST_F(PanelCanvasTest, AnIconIsPaintedAroundItsMiddleAndAMissingOneNotAtAll) {
    const QImage bare = Shot(panel_);
    panel_.Paint(PaintedIcon{QStringLiteral("icon-nothing"), 36, 50, 22});
    EXPECT_EQ(Shot(panel_), bare);
    panel_.Paint(PaintedIcon{QStringLiteral("icon-plug"), 36, 50, 22});
    EXPECT_NE(Shot(panel_).copy(25, 39, 22, 22), bare.copy(25, 39, 22, 22));
    EXPECT_EQ(Shot(panel_).copy(60, 0, 400, 500), bare.copy(60, 0, 400, 500));
}

TEST_F(PanelCanvasTest, OneSkinNameServesControlsOfSeveralSizesWithoutDistortion) {
    usrKVCheckButton low(&panel_);
    usrKVCheckButton high(&panel_);
    for (usrKVCheckButton* const button : {&low, &high}) {
        button->path(QStringLiteral("ExpView"));
        button->inipath(test::SkinHome());
        button->SetRaised(false);
    }
    panel_.Add(low, QRectF(380, 40, 82, 64));
    panel_.Add(high, QRectF(380, 200, 82, 142));
    const QImage small = Shot(low);
    const QImage large = Shot(high);
    EXPECT_EQ(small.copy(0, 0, 82, 12), large.copy(0, 0, 82, 12));
    EXPECT_EQ(small.copy(0, 52, 82, 12), large.copy(0, 130, 82, 12));
    // Frame and word, on another part of the face's gradient: where one is light so is the other.
    for (int x = 20; x < 78; ++x) {
        for (int y = 14; y < 50; ++y) {
            EXPECT_NEAR(Lightness(small, x, y), Lightness(large, x, y + 39), 0.06) << x << "," << y;
        }
    }
}

}  // namespace travo
