// Where things stand on the cell position panel and what they are called.
#include "controls/ControlNames.h"
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
constexpr double ZeroTextLeft = 66;

QString AxisName(std::size_t axis) { return QString(QLatin1Char("XYZ"[axis])); }

double RowTop(std::size_t row) { return RowsTop + RowHeight * static_cast<double>(row); }
double ColumnLeft(std::size_t axis) { return ColumnsLeft + ColumnWidth * static_cast<double>(axis); }

}  // namespace

void CtlCellPosition::BuildPaint() {
    Paint(Plate{QRectF(12, 74, 462, 328)});
    for (std::size_t axis = 0; axis < AxisCount; ++axis) {
        Paint(CaptionText(ColumnLeft(axis) + LabelWidth - 6, 82, AxisName(axis), Qt::AlignRight));
    }
    Paint(Plate{QRectF(12, 412, 462, 96)});
    Paint(PaintedIcon{QStringLiteral("icon-zero"), 40, 460, 28});
    Paint(NameText(ZeroTextLeft, 430.5, 20, QStringLiteral("Zero point of Z")));
    Paint(HintText(ZeroTextLeft, 467, QStringLiteral("The present height becomes 0;")));
    Paint(HintText(ZeroTextLeft, 485, QStringLiteral("stored heights are counted from it.")));
}

void CtlCellPosition::BuildButtons(const QString& programFolder) {
    pageSwitch_ = new usrKVCheckButton(this);
    pageSwitch_->path(QStringLiteral("CellPosSelect"));
    pageSwitch_->inipath(programFolder);
    Identify(*pageSwitch_, QStringLiteral("usrKVCheckButton2"), QStringLiteral("Page E to H"),
             QStringLiteral("Raised: cells A to D. Pressed: cells E to H"));
    Add(*pageSwitch_, QRectF(12, 12, 462, 52));

    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        auto* const button = new usrKVButton(this);
        buttons_.at(index) = button;
        const bool isReset = index == ResetIndex;
        button->path(isReset ? QStringLiteral("RESET") : QStringLiteral("SET"));
        button->inipath(programFolder);
        Identify(*button, Indexed(QStringLiteral("usrKVButton1"), static_cast<int>(index)),
                 isReset ? QStringLiteral("Reset zero point") : QStringLiteral("Set row %1").arg(index + 1),
                 isReset ? QStringLiteral("Make the present height the zero point of Z")
                         : QStringLiteral("Store the present view in this row"));
        Add(*button, QRectF(QPointF(ButtonsLeft, isReset ? ResetTop : RowTop(index)), ButtonSize));
    }
}

void CtlCellPosition::BuildReadings(const QString& programFolder) {
    const std::array<QString, PageCount> letterNames{QStringLiteral("Rows A to D"),
                                                     QStringLiteral("Rows E to H")};
    for (std::size_t page = 0; page < letters_.size(); ++page) {
        auto* const letters = new SkinImage(this);
        letters_.at(page) = letters;
        letters->path(QStringLiteral("cellletters-%1").arg(page));
        letters->inipath(programFolder);
        Identify(*letters, Indexed(QStringLiteral("imgCellPos"), static_cast<int>(page)),
                 letterNames.at(page));
        Add(*letters, QRectF(24, RowsTop, 56, 282));
    }
    for (std::size_t index = 0; index < labels_.size(); ++index) {
        auto* const label = new NumberLabel(this);
        labels_.at(index) = label;
        const std::size_t cell = index / AxisCount;
        const std::size_t axis = index % AxisCount;
        label->setText(QStringLiteral("N/A"));
        Identify(*label, Indexed(QStringLiteral("lblCellPos"), static_cast<int>(index)),
                 QStringLiteral("Cell %1 %2").arg(QLatin1Char("ABCDEFGH"[cell])).arg(AxisName(axis)));
        Add(*label, QRectF(ColumnLeft(axis), RowTop(cell % RowCount), LabelWidth, ControlHeight));
    }
    zField_ = new NumberBox(this);
    Identify(*zField_, QStringLiteral("txtCellZPos"), QStringLiteral("Z field"));
    Add(*zField_, QRectF(280, ResetTop, 84, ControlHeight));
    zField_->hide();
}

}  // namespace travo
