// Where the controls of the experiment panel stand, and how its lamps and arrow are shown.
#include <QString>

#include "controls/ControlNames.h"
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
void CtlExperiment2::Place(const QString& programFolder) {
    inipath(programFolder);
    Paint(Plate{QRectF(12, 12, 462, 110)});
    Paint(CaptionText(24, 18, QStringLiteral("What moves")));
    Paint(Plate{QRectF(12, 160, 462, 192)});
    Paint(CaptionText(24, 166, QStringLiteral("Where to")));
    presentViewSlot_ = Paint(DashedSlot{PresentViewSlotPlace});
    Paint(Rule{24, 462, 448});
    PlaceWhatMoves(programFolder);
    PlaceArrow(programFolder);
    PlaceWhereTo(programFolder);
    PlaceActions(programFolder);
}

void CtlExperiment2::PlaceWhatMoves(const QString& programFolder) {
    for (int needle = 0; needle < NeedleCount; ++needle) {
        const QString number = QString::number(needle + 1);
        Put(*this, needleButton_[static_cast<std::size_t>(needle)], InColumn(needle, MoveRowTop, ButtonSize),
            programFolder,
            {Indexed(QStringLiteral("usrKVCheckButton1"), needle), QStringLiteral("Needle ") + number,
             QStringLiteral("Move needle ") + number, QStringLiteral("ExpManiSelect") + number});
    }
    Put(*this, viewButton_, InColumn(View, MoveRowTop, ButtonSize), programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton4"), 0), QStringLiteral("View"),
         QStringLiteral("Move the view (the tilting mirror)"), QStringLiteral("ExpView")});
    for (int lamp = 0; lamp <= View; ++lamp) {
        const QString what =
            lamp == View ? QStringLiteral("View") : QStringLiteral("Needle %1").arg(lamp + 1);
        Put(*this, imgMManiNo_[static_cast<std::size_t>(lamp)], InColumn(lamp, MoveLampTop, LampSize),
            programFolder,
            {Indexed(QStringLiteral("imgMManiNo"), lamp), what + QStringLiteral(" lamp"), QString(),
             QStringLiteral("lamp-move")});
    }
}

void CtlExperiment2::PlaceArrow(const QString& programFolder) {
    for (int frame = 0; frame < static_cast<int>(Image2_.size()); ++frame) {
        QString human = QStringLiteral("Arrow %1").arg(frame);
        if (frame == 0) {
            human = QStringLiteral("Arrow track");
        } else if (frame == static_cast<int>(DoubleArrow)) {
            human = QStringLiteral("Synchro arrow");
        }
        Put(*this, Image2_[static_cast<std::size_t>(frame)], ArrowPlace, programFolder,
            {Indexed(QStringLiteral("Image2"), frame), human, QString(),
             QStringLiteral("exparrow-%1").arg(frame)});
    }
}

void CtlExperiment2::PlaceWhereTo(const QString& programFolder) {
    for (int cell = 0; cell < CellCount; ++cell) {
        const QChar letter = CellLetter(cell);
        Put(*this, cellButton_[static_cast<std::size_t>(cell)], InCell(cell, CellRowTop, ButtonSize),
            programFolder,
            {Indexed(QStringLiteral("usrKVCheckButton2"), cell), QStringLiteral("Cell ") + letter,
             QStringLiteral("Go to cell ") + letter, QStringLiteral("ExpPosSelect") + letter});
        Put(*this, imgMCellNo_[static_cast<std::size_t>(cell)], InCell(cell, TargetLampTop, LampSize),
            programFolder,
            {Indexed(QStringLiteral("imgMCellNo"), cell), QStringLiteral("Cell %1 lamp").arg(letter),
             QString(), QStringLiteral("lamp-target")});
    }
    Put(*this, presentViewButton_, PresentViewPlace, programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton4"), 1), QStringLiteral("Present view"),
         QStringLiteral("Go to the centre of the present view"), QStringLiteral("ExpView")});
    Put(*this, imgMCellNo_[PresentView], InColumn(View, TargetLampTop, LampSize), programFolder,
        {Indexed(QStringLiteral("imgMCellNo"), PresentView), QStringLiteral("Present view lamp"), QString(),
         QStringLiteral("lamp-target")});
}

void CtlExperiment2::PlaceActions(const QString& programFolder) {
    Put(*this, moveButton_, QRectF(24, 364, 260, 72), programFolder,
        {QStringLiteral("usrKVButton1"), QStringLiteral("Move"),
         QStringLiteral("Move the chosen needle or the view to the chosen place"),
         QStringLiteral("ExpMove")});
    Put(*this, synchroButton_, QRectF(291, 364, 82, 72), programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton3"), 0), QStringLiteral("Synchro"),
         QStringLiteral("The chosen needle follows the view"), QStringLiteral("ExpSynchro")});
    Put(*this, directButton_, QRectF(380, 364, 82, 72), programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton3"), 1), QStringLiteral("Direct"),
         QStringLiteral("The view goes to a cell as soon as it is chosen"), QStringLiteral("ExpDirect")});
    Put(*this, objectiveEscapeButton_, QRectF(24, 458, 215, 50), programFolder,
        {Indexed(QStringLiteral("usrKVButton2"), 0), QStringLiteral("Objective escape"),
         QStringLiteral("Raise the objective to its escape height"), QStringLiteral("ExpEscape1")});
    Put(*this, needleEscapeButton_, QRectF(247, 458, 215, 50), programFolder,
        {Indexed(QStringLiteral("usrKVButton2"), 1), QStringLiteral("Needle escape"),
         QStringLiteral("Take the chosen needle to its escape position"), QStringLiteral("ExpEscape2")});
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
