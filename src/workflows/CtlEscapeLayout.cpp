// Where things stand on the escape panel and what they are called.
#include <QString>

#include "controls/PanelPlacing.h"
#include "workflows/CtlEscape.h"

namespace travo {

namespace {

// Design pixels. A row is 78 high, a column of numbers 96 wide, as on the cell position panel.
constexpr double RowsTop = 44;
constexpr double RowHeight = 78;
constexpr double ColumnsLeft = 84;
constexpr double ColumnWidth = 96;
constexpr QSizeF LabelSize(92, 60);
constexpr double ButtonsLeft = 376;
constexpr QSizeF ButtonSize(86, 60);
// Centred at 52, with the row.
constexpr double MarkLeft = 24;
constexpr QSizeF MarkSize(56, 60);
constexpr double ObjectiveTop = 372;
constexpr double CaptionsTop = 20;

QString AxisName(int axis) { return QString(QLatin1Char("XYZ"[axis])); }

double RowTop(int row) { return RowsTop + RowHeight * row; }
double ColumnLeft(int axis) { return ColumnsLeft + ColumnWidth * axis; }

}  // namespace

// The order of placing is the order of the Tab key.
void CtlEscape::Place() {
    PlacePaint();
    PlaceNeedles();
    PlaceObjective();
}

void CtlEscape::PlacePaint() {
    Paint(Plate{QRectF(12, 12, 462, 338)});
    for (int axis = 0; axis < AxisCount; ++axis) {
        Paint(CaptionText(ColumnLeft(axis) + LabelSize.width() - 6, CaptionsTop, AxisName(axis),
                          Qt::AlignRight));
    }
    Paint(Plate{QRectF(12, 360, 462, 84)});
    Paint(PaintedIcon{QStringLiteral("icon-objective"), 42, 402, 26});
    Paint(NameText(66, ObjectiveTop, 60, QStringLiteral("Objective")));
    Paint(PaintedIcon{QStringLiteral("icon-info"), 26, 468, 18});
    Paint(HintText(44, 473, QStringLiteral("SET keeps the present position as the escape position.")));
    Paint(HintText(44, 492, QStringLiteral("Escape positions last until the program ends.")));
}

void CtlEscape::PlaceNeedles() {
    for (int needle = 0; needle < NeedleCount; ++needle) {
        needleMark_.at(needle).Number(needle + 1);
        Put(*this, needleMark_.at(needle), {.place = QRectF(QPointF(MarkLeft, RowTop(needle)), MarkSize)});
        for (int axis = 0; axis < AxisCount; ++axis) {
            const int index = needle * AxisCount + axis;
            Put(*this, lblEscPos_.at(index),
                {Indexed("lblEscPos", index), QString("Needle %1 %2").arg(needle + 1).arg(AxisName(axis)),
                 QRectF(QPointF(ColumnLeft(axis), RowTop(needle)), LabelSize)});
        }
        Put(*this, button_.at(needle),
            {Indexed("usrKVButton1", needle), QString("Set needle %1").arg(needle + 1),
             QRectF(QPointF(ButtonsLeft, RowTop(needle)), ButtonSize), "SET",
             QString("Keep the present place of needle %1 as its escape position").arg(needle + 1)});
    }
}

void CtlEscape::PlaceObjective() {
    Put(*this, lblEscZPos_,
        {"lblEscZPos", "Objective Z", QRectF(QPointF(ColumnLeft(2), ObjectiveTop), LabelSize)});
    Put(*this, button_[ObjectiveIndex],
        {"usrKVButton1(4)", "Set objective", QRectF(QPointF(ButtonsLeft, ObjectiveTop), ButtonSize), "SET",
         "Keep the present height as the objective's escape height"});
}

}  // namespace travo
