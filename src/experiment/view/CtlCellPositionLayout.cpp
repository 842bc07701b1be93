// Where things stand on the cell position panel and what they are called.
#include "controls/PanelPlacing.h"
#include "experiment/view/CtlCellPosition.h"

namespace travo {

namespace {

// Design pixels. A row is 74 high, a column of numbers 96 wide.
constexpr double RowsTop = 108;
constexpr double RowHeight = 74;
constexpr double ColumnsLeft = 84;
constexpr double ColumnWidth = 96;
constexpr double LabelWidth = 92;
constexpr double ControlHeight = 60;
constexpr QSizeF ButtonSize(86, ControlHeight);
constexpr double ButtonsLeft = 376;
constexpr double ResetTop = 430;
constexpr QRectF LettersPlace(24, RowsTop, 56, 282);
constexpr double ZeroTextLeft = 66;

QString AxisName(int axis) { return QString(QLatin1Char("XYZ"[axis])); }

double RowTop(int row) { return RowsTop + RowHeight * row; }
double ColumnLeft(int axis) { return ColumnsLeft + ColumnWidth * axis; }

}  // namespace

// The order of placing is the order of the Tab key.
void CtlCellPosition::Place() {
    PlacePaint();
    PlaceButtons();
    PlaceReadings();
}

void CtlCellPosition::PlacePaint() {
    Paint(Plate{QRectF(12, 74, 462, 328)});
    for (int axis = 0; axis < AxisCount; ++axis) {
        Paint(CaptionText(ColumnLeft(axis) + LabelWidth - 6, 82, AxisName(axis), Qt::AlignRight));
    }
    Paint(Plate{QRectF(12, 412, 462, 96)});
    Paint(PaintedIcon{QStringLiteral("icon-zero"), 40, 460, 28});
    Paint(NameText(ZeroTextLeft, 430.5, 20, QStringLiteral("Zero point of Z")));
    Paint(HintText(ZeroTextLeft, 467, QStringLiteral("The present height becomes 0;")));
    Paint(HintText(ZeroTextLeft, 485, QStringLiteral("stored heights are counted from it.")));
}

void CtlCellPosition::PlaceButtons() {
    Put(*this, pageSwitch_,
        {"usrKVCheckButton2", "Page E to H", QRectF(12, 12, 462, 52), "CellPosSelect",
         "Raised: cells A to D. Pressed: cells E to H"});
    for (int row = 0; row < static_cast<int>(RowCount); ++row) {
        Put(*this, buttons_.at(row),
            {Indexed("usrKVButton1", row), QString("Set row %1").arg(row + 1),
             QRectF(QPointF(ButtonsLeft, RowTop(row)), ButtonSize), "SET",
             "Store the present view in this row"});
    }
    Put(*this, buttons_[ResetIndex],
        {"usrKVButton1(4)", "Reset zero point", QRectF(QPointF(ButtonsLeft, ResetTop), ButtonSize), "RESET",
         "Make the present height the zero point of Z"});
}

void CtlCellPosition::PlaceReadings() {
    Put(*this, letters_[0], {"imgCellPos(0)", "Rows A to D", LettersPlace, "cellletters-0"});
    Put(*this, letters_[1], {"imgCellPos(1)", "Rows E to H", LettersPlace, "cellletters-1"});
    Put(*this, labels_, [](int index) {
        const int cell = index / AxisCount;
        const int axis = index % AxisCount;
        return Placed{
            Indexed("lblCellPos", index), QString("Cell %1 %2").arg(QChar(u'A' + cell)).arg(AxisName(axis)),
            QRectF(ColumnLeft(axis), RowTop(cell % static_cast<int>(RowCount)), LabelWidth, ControlHeight)};
    });
    for (NumberLabel& label : labels_) {
        label.setText(QStringLiteral("N/A"));
    }
    Put(*this, zField_, {"txtCellZPos", "Z field", QRectF(280, ResetTop, 84, ControlHeight)});
    zField_.hide();
}

}  // namespace travo
