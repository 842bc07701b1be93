// Where the controls of the experiment panel stand, and how its lamps and arrow are shown.
#include <QString>

#include "controls/PanelPlacing.h"
#include "core/ground/Arithmetic.h"
#include "experiment/view/CtlExperiment2.h"

namespace travo {

namespace {

// Five columns; the cells stand in four of them, in two rows.
constexpr double ColumnLeft = 24;
constexpr double ColumnStep = 89;
constexpr double RowStep = 78;
constexpr QSizeF ButtonSize(82, 64);
constexpr QSizeF LampSize(82, 12);
constexpr double MoveRowTop = 40;
constexpr double MoveLampTop = 107;
constexpr double TargetLampTop = 186;
constexpr double CellRowTop = 200;
constexpr QRectF ArrowPlace(193, 124, 100, 34);
constexpr QRectF PresentViewPlace(380, 200, 82, 142);
constexpr QRectF PresentViewSlotPlace(381, 201, 80, 140);

QRectF InColumn(int column, double top, const QSizeF& size) {
    return {QPointF(ColumnLeft + ColumnStep * column, top), size};
}

QRectF InCell(int cell, double top, const QSizeF& size) {
    const int row = cell / 4;
    return InColumn(cell % 4, top + RowStep * row, size);
}

QChar CellLetter(int cell) { return QChar(u'A' + cell); }

}  // namespace

// The order of placing is the order of the Tab key.
void CtlExperiment2::Place() {
    Paint(Plate{QRectF(12, 12, 462, 110)});
    Paint(CaptionText(24, 18, QStringLiteral("What moves")));
    Paint(Plate{QRectF(12, 160, 462, 192)});
    Paint(CaptionText(24, 166, QStringLiteral("Where to")));
    presentViewSlot_ = Paint(DashedSlot{PresentViewSlotPlace});
    Paint(Rule{24, 462, 448});
    PlaceWhatMoves();
    PlaceArrow();
    PlaceWhereTo();
    PlaceActions();
}

void CtlExperiment2::PlaceWhatMoves() {
    Put(*this, needleButton_, [](int needle) {
        const QString number = QString::number(needle + 1);
        return Placed{Indexed("usrKVCheckButton1", needle), "Needle " + number,
                      InColumn(needle, MoveRowTop, ButtonSize), "ExpManiSelect" + number,
                      "Move needle " + number};
    });
    Put(*this, viewButton_,
        {"usrKVCheckButton4(0)", "View", InColumn(View, MoveRowTop, ButtonSize), "ExpView",
         "Move the view (the tilting mirror)"});
    Put(*this, imgMManiNo_, [](int lamp) {
        const QString what = lamp == View ? QString("View") : QString("Needle %1").arg(lamp + 1);
        return Placed{Indexed("imgMManiNo", lamp), what + " lamp", InColumn(lamp, MoveLampTop, LampSize),
                      "lamp-move"};
    });
}

void CtlExperiment2::PlaceArrow() {
    Put(*this, Image2_[0], {"Image2(0)", "Arrow track", ArrowPlace, "exparrow-0"});
    Put(*this, Image2_[1], {"Image2(1)", "Arrow 1", ArrowPlace, "exparrow-1"});
    Put(*this, Image2_[2], {"Image2(2)", "Arrow 2", ArrowPlace, "exparrow-2"});
    Put(*this, Image2_[3], {"Image2(3)", "Arrow 3", ArrowPlace, "exparrow-3"});
    Put(*this, Image2_[DoubleArrow], {"Image2(4)", "Synchro arrow", ArrowPlace, "exparrow-4"});
}

void CtlExperiment2::PlaceWhereTo() {
    for (int cell = 0; cell < CellCount; ++cell) {
        const QChar letter = CellLetter(cell);
        Put(*this, cellButton_.at(cell),
            {Indexed("usrKVCheckButton2", cell), QString("Cell ") + letter,
             InCell(cell, CellRowTop, ButtonSize), QString("ExpPosSelect") + letter,
             QString("Go to cell ") + letter});
        Put(*this, imgMCellNo_.at(cell),
            {Indexed("imgMCellNo", cell), QString("Cell %1 lamp").arg(letter),
             InCell(cell, TargetLampTop, LampSize), "lamp-target"});
    }
    Put(*this, presentViewButton_,
        {"usrKVCheckButton4(1)", "Present view", PresentViewPlace, "ExpView",
         "Go to the centre of the present view"});
    Put(*this, imgMCellNo_[PresentView],
        {Indexed("imgMCellNo", PresentView), "Present view lamp", InColumn(View, TargetLampTop, LampSize),
         "lamp-target"});
}

void CtlExperiment2::PlaceActions() {
    Put(*this, moveButton_,
        {"usrKVButton1", "Move", QRectF(24, 364, 260, 72), "ExpMove",
         "Move the chosen needle or the view to the chosen place"});
    Put(*this, synchroButton_,
        {"usrKVCheckButton3(0)", "Synchro", QRectF(291, 364, 82, 72), "ExpSynchro",
         "The chosen needle follows the view"});
    Put(*this, directButton_,
        {"usrKVCheckButton3(1)", "Direct", QRectF(380, 364, 82, 72), "ExpDirect",
         "The view goes to a cell as soon as it is chosen"});
    Put(*this, objectiveEscapeButton_,
        {"usrKVButton2(0)", "Objective escape", QRectF(24, 458, 215, 50), "ExpEscape1",
         "Raise the objective to its escape height"});
    Put(*this, needleEscapeButton_,
        {"usrKVButton2(1)", "Needle escape", QRectF(247, 458, 215, 50), "ExpEscape2",
         "Take the chosen needle to its escape position"});
}

void CtlExperiment2::ArrowTick() {
    intArrowFrame_ = intArrowFrame_ == LastFrame ? FirstFrame : static_cast<std::int16_t>(intArrowFrame_ + 1);
    ShowArrow(true);
}

void CtlExperiment2::ShowArrow(bool visible) {
    for (std::int16_t frame = FirstFrame; frame <= LastFrame; ++frame) {
        Image2_[static_cast<std::size_t>(frame)].setVisible(visible && frame == intArrowFrame_);
    }
}

void CtlExperiment2::ShowPresentView(bool visible) {
    presentViewButton_.setVisible(visible);
    Visible(presentViewSlot_, !visible);
}

void CtlExperiment2::ShowMoveLamp() {
    for (SkinImage& lamp : imgMManiNo_) {
        lamp.setVisible(false);
    }
    imgMManiNo_[Bounded(intMoveTarget_, imgMManiNo_.size())].setVisible(true);
}

void CtlExperiment2::ShowTargetLamp(std::int16_t target) {
    for (SkinImage& lamp : imgMCellNo_) {
        lamp.setVisible(false);
    }
    imgMCellNo_[Bounded(target, imgMCellNo_.size())].setVisible(true);
}

}  // namespace travo
