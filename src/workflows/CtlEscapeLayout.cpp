// Where things stand on the escape panel and what they are called.
#include <QString>

#include "controls/ControlNames.h"
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

QString AxisName(std::size_t axis) { return QString(QLatin1Char("XYZ"[axis])); }

double RowTop(std::size_t row) { return RowsTop + RowHeight * static_cast<double>(row); }
double ColumnLeft(std::size_t axis) { return ColumnsLeft + ColumnWidth * static_cast<double>(axis); }

}  // namespace

// The order of placing is the order of the Tab key.
void CtlEscape::Place(const QString& programFolder) {
    inipath(programFolder);
    PlacePaint();
    PlaceNeedles(programFolder);
    PlaceObjective(programFolder);
}

void CtlEscape::PlacePaint() {
    Paint(Plate{QRectF(12, 12, 462, 338)});
    for (std::size_t axis = 0; axis < AxisCount; ++axis) {
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

void CtlEscape::PlaceNeedles(const QString& programFolder) {
    for (std::size_t needle = 0; needle < needleMark_.size(); ++needle) {
        CtlEscapeNeedle& mark = needleMark_[needle];
        mark.setParent(this);
        mark.Number(static_cast<int>(needle) + 1);
        Add(mark, QRectF(QPointF(MarkLeft, RowTop(needle)), MarkSize));
        for (std::size_t axis = 0; axis < AxisCount; ++axis) {
            const std::size_t index = needle * AxisCount + axis;
            NumberLabel& label = lblEscPos_.at(index);
            label.setParent(this);
            Identify(label, Indexed(QStringLiteral("lblEscPos"), static_cast<int>(index)),
                     QStringLiteral("Needle %1 %2").arg(needle + 1).arg(AxisName(axis)));
            Add(label, QRectF(QPointF(ColumnLeft(axis), RowTop(needle)), LabelSize));
        }
        PlaceButton(
            needle, QRectF(QPointF(ButtonsLeft, RowTop(needle)), ButtonSize),
            QStringLiteral("Set needle %1").arg(needle + 1),
            QStringLiteral("Keep the present place of needle %1 as its escape position").arg(needle + 1),
            programFolder);
    }
}

void CtlEscape::PlaceObjective(const QString& programFolder) {
    lblEscZPos_.setParent(this);
    Identify(lblEscZPos_, QStringLiteral("lblEscZPos"), QStringLiteral("Objective Z"));
    Add(lblEscZPos_, QRectF(QPointF(ColumnLeft(2), ObjectiveTop), LabelSize));
    PlaceButton(ObjectiveIndex, QRectF(QPointF(ButtonsLeft, ObjectiveTop), ButtonSize),
                QStringLiteral("Set objective"),
                QStringLiteral("Keep the present height as the objective's escape height"), programFolder);
}

void CtlEscape::PlaceButton(std::size_t index, const QRectF& place, const QString& human,
                            const QString& toolTip, const QString& programFolder) {
    usrKVButton& button = button_.at(index);
    button.setParent(this);
    button.path(QStringLiteral("SET"));
    button.inipath(programFolder);
    Identify(button, Indexed(QStringLiteral("usrKVButton1"), static_cast<int>(index)), human, toolTip);
    Add(button, place);
}

}  // namespace travo
