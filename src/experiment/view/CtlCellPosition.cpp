#include "experiment/view/CtlCellPosition.h"

#include <QString>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

// A mirror-frame value of an axis as the labels show it.
std::int32_t Readout(std::int32_t axis, std::int32_t value) {
    switch (axis) {
        case 0:
            return MirrorXToCommon(value);
        case 1:
            // In the readouts only: up is positive for the operator.
            return Difference(0, MirrorYToCommon(value));
        default:
            return value;
    }
}

}  // namespace

CtlCellPosition::CtlCellPosition(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(QSizeF(486, 520), programFolder, parent), system_(system) {
    setObjectName(QStringLiteral("CtlCellPosition1"));
    Place();
    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        connect(&buttons_.at(index), &usrKVButton::clicked, this, [this, index] { ButtonPressed(index); });
    }
    connect(&pageSwitch_, &usrKVCheckButton::clicked, this, [this] { ShowPage(); });
    ShowPage();
}

void CtlCellPosition::Shown() {
    const bool canStore = system_.communication.MirrorPortOpenCheck();
    for (NumberLabel& label : labels_) {
        label.setEnabled(canStore);
    }
    pageSwitch_.Enabled(canStore);
    for (std::size_t row = 0; row < RowCount; ++row) {
        buttons_.at(row).Enabled(canStore);
    }
}

void CtlCellPosition::ButtonPressed(std::size_t Index) {
    system_.live.LiveActionStart();
    // The replies come later: what is stored now is what was known before.
    system_.communication.RequestMagnescaleData();
    system_.communication.RequestMirrorData();
    if (Index == ResetIndex) {
        system_.owner.ZeroPointReset();
    } else {
        StoreCell(static_cast<std::int32_t>(Index));
    }
    system_.live.LiveActionEnd();
}

void CtlCellPosition::StoreCell(std::int32_t row) {
    const std::int32_t cell = pageSwitch_.Value() ? row + static_cast<std::int32_t>(RowCount) : row;
    PositionXYZ stored{};
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const std::int32_t value = system_.state.CurrentXYZ(axis);
        // An axis that has never been reported keeps what the row had.
        if (value == NoPositionValue) {
            continue;
        }
        CellLabel(cell, axis).setText(QString::number(Readout(axis, value)));
        system_.state.CellPosition(cell, axis, value);
        stored.at(static_cast<std::size_t>(axis)) = value;
    }
    system_.owner.ChangeCellXYZ(ToInteger16(cell), stored);
}

void CtlCellPosition::ShowPage() {
    const bool isSecond = pageSwitch_.Value();
    letters_[0].setVisible(!isSecond);
    letters_[1].setVisible(isSecond);
    for (std::size_t index = 0; index < labels_.size(); ++index) {
        labels_.at(index).setVisible((index >= RowCount * AxisCount) == isSecond);
    }
}

void CtlCellPosition::ChangeZeroPosition() {
    for (std::int32_t cell = 0; cell < CellCount; ++cell) {
        const std::int32_t z = system_.state.CellPosition(cell, 2);
        if (z == NoPositionValue) {
            continue;
        }
        const std::int32_t rebased = Difference(z, system_.state.ZeroXYZ(2));
        system_.state.CellPosition(cell, 2, rebased);
        CellLabel(cell, 2).setText(QString::number(rebased));
    }
}

NumberLabel& CtlCellPosition::CellLabel(std::int32_t cell, std::int32_t axis) {
    return labels_.at(Bounded(cell * AxisCount + axis, labels_.size()));
}

}  // namespace travo
