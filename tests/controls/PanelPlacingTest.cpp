#include "controls/PanelPlacing.h"

#include <QAccessible>

#include "controls/ControlRig.h"
#include "controls/NumberBox.h"
#include "controls/NumberLabel.h"
#include "controls/SkinImage.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVXscroll.h"

namespace travo {

class PanelPlacingTest : public test::ControlRig {
protected:
    PanelPlacingTest() {
        panel_.setGeometry(0, 0, 972, 520);
        panel_.show();
    }

    QStringList TabOrder() const {
        QStringList names;
        for (const QWidget* next = panel_.nextInFocusChain(); next != &panel_;
             next = next->nextInFocusChain()) {
            if (next->parentWidget() == &panel_ && next->focusPolicy() != Qt::NoFocus) {
                names << next->objectName();
            }
        }
        return names;
    }

    PanelCanvas panel_{QSizeF(486, 520), test::SkinHome(), &window_};
};

TEST_F(PanelPlacingTest, AButtonTakesNamesPictureAndPlaceFromItsRow) {
    usrKVButton button;
    Put(panel_, button, {"usrKVButton1", "Move", QRectF(24, 364, 260, 72), "ExpMove", "Move it there"});
    EXPECT_EQ(button.parentWidget(), &panel_);
    EXPECT_EQ(button.objectName(), QStringLiteral("usrKVButton1"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Move"));
    EXPECT_EQ(button.toolTip(), QStringLiteral("Move it there"));
    EXPECT_EQ(button.path(), QStringLiteral("ExpMove"));
    EXPECT_EQ(button.geometry(), QRect(48, 364, 520, 72));
    EXPECT_EQ(button.DesignSize(), QSizeF(260, 72));
    panel_.resize(486, 520);
    EXPECT_EQ(button.geometry(), QRect(24, 364, 260, 72)) << "it stays in the panel's layout";
}

TEST_F(PanelPlacingTest, APanelHandsItsSkinFolderDownToWhateverShowsPictures) {
    usrKVButton button;
    SkinImage image;
    usrKVXscroll bar;
    Put(panel_, button, {"button", "Button", QRectF(0, 0, 80, 40), "SET"});
    Put(panel_, image, {"image", "Image", QRectF(0, 50, 80, 40), "birdxyz"});
    Put(panel_, bar, {"bar", "Bar", QRectF(0, 100, 180, 36), "xscroll"});
    EXPECT_EQ(button.inipath(), test::SkinHome());
    EXPECT_EQ(image.inipath(), test::SkinHome());
    EXPECT_EQ(bar.inipath(), test::SkinHome());
    EXPECT_EQ(bar.path(), QStringLiteral("xscroll"));
}

TEST_F(PanelPlacingTest, AValueKeepsItsTextAsItsNameAndBearsTheHumanNameAsItsDescription) {
    NumberLabel label;
    label.setText(QStringLiteral("-412"));
    Put(panel_, label, {"lblCellPos(0)", "Cell A X", QRectF(84, 180, 92, 60)});
    EXPECT_EQ(label.accessibleName(), QStringLiteral("-412"));
    EXPECT_EQ(label.accessibleDescription(), QStringLiteral("Cell A X"));
}

TEST_F(PanelPlacingTest, WhatAControlHasNoUseForIsLeftOut) {
    NumberBox box;
    QWidget plain;
    Put(panel_, box, {"txtNo(0)", "Mirror port", QRectF(10, 10, 48, 52)});
    Put(panel_, plain, {.place = QRectF(100, 10, 48, 52)});
    EXPECT_EQ(box.toolTip(), QString());
    EXPECT_EQ(box.geometry(), QRect(20, 10, 96, 52));
    EXPECT_EQ(plain.objectName(), QString());
    EXPECT_EQ(plain.geometry(), QRect(200, 10, 96, 52));
}

TEST_F(PanelPlacingTest, TheOrderOfTheCallsIsTheOrderOfTheTabKey) {
    // Made in another order than they are put.
    usrKVButton last;
    usrKVButton first;
    NumberBox between;
    Put(panel_, first, {"first", "First", QRectF(300, 300, 80, 40), "SET"});
    Put(panel_, between, {"between", "Between", QRectF(10, 10, 80, 40)});
    Put(panel_, last, {"last", "Last", QRectF(100, 10, 80, 40), "SET"});
    EXPECT_EQ(TabOrder(), QStringList({"first", "between", "last"}));
}

TEST_F(PanelPlacingTest, ARowOfControlsAsksForThePlaceOfEachIndexInTurn) {
    std::array<SkinImage, 3> lamps;
    Put(panel_, lamps, [](int lamp) {
        return Placed{Indexed("lamp", lamp), "Lamp " + QString::number(lamp + 1),
                      QRectF(10 + 100.0 * lamp, 20, 82, 12), "lamp-move"};
    });
    EXPECT_EQ(lamps[0].objectName(), QStringLiteral("lamp(0)"));
    EXPECT_EQ(lamps[2].objectName(), QStringLiteral("lamp(2)"));
    EXPECT_EQ(lamps[2].accessibleName(), QStringLiteral("Lamp 3"));
    EXPECT_EQ(lamps[1].geometry(), QRect(220, 20, 164, 12));
    EXPECT_EQ(lamps[1].path(), QStringLiteral("lamp-move"));
}

TEST_F(PanelPlacingTest, AWindowThatMovesItsControlsItselfGivesThemTheirDesignSizeAlone) {
    usrKVButton button;
    button.setGeometry(5, 6, 70, 80);
    Put(window_, test::SkinHome(), button, {"size", "Size", QRectF(1, 2, 24, 24), "size", "Design size"});
    EXPECT_EQ(button.parentWidget(), &window_);
    EXPECT_EQ(button.geometry(), QRect(5, 6, 70, 80));
    EXPECT_EQ(button.DesignSize(), QSizeF(24, 24));
    EXPECT_EQ(button.inipath(), test::SkinHome());
    EXPECT_EQ(button.toolTip(), QStringLiteral("Design size"));
}

TEST_F(PanelPlacingTest, WithoutAPlaceAControlKeepsItsScale) {
    usrKVButton button;
    button.resize(48, 48);
    Put(window_, test::SkinHome(), button, {.object = "close", .human = "Close", .skin = "CLOSE"});
    EXPECT_TRUE(button.DesignSize().isEmpty());
    EXPECT_EQ(button.ScaleAt(QSizeF(48, 48)), 1.0);
}

}  // namespace travo
