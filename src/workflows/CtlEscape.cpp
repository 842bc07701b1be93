#include "workflows/CtlEscape.h"

#include <QString>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr QSizeF Design(486, 520);
constexpr std::int32_t Y = 1;
constexpr std::int32_t Z = 2;
const QString NotAvailable = QStringLiteral("N/A");

// A position that is not known is recorded as 0, and counts as set from then on.
std::int32_t Known(std::int32_t position) { return position == NoPositionValue ? 0 : position; }

}  // namespace

CtlEscape::CtlEscape(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(Design, programFolder, parent), system_(system) {
    setObjectName(QStringLiteral("CtlEscape1"));
    Place();
    for (NumberLabel& label : lblEscPos_) {
        label.setText(NotAvailable);
        label.hide();
    }
    lblEscZPos_.setText(NotAvailable);
    for (std::size_t needle = 0; needle < needleMark_.size(); ++needle) {
        needleMark_[needle].setEnabled(false);
        button_.at(needle).Enabled(false);
    }
    for (std::size_t index = 0; index < button_.size(); ++index) {
        connect(&button_[index], &usrKVButton::clicked, this, [this, index] { ButtonPressed(index); });
    }
}

void CtlEscape::Shown() {
    for (std::int32_t needle = 0; needle <= system_.state.HighestNeedle(); ++needle) {
        const std::size_t index = Bounded(needle, needleMark_.size());
        button_.at(index).Enabled(true);
        needleMark_[index].setEnabled(true);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            NeedleLabel(needle, axis).show();
        }
    }
}

void CtlEscape::ButtonPressed(std::size_t Index) {
    if (Index != ObjectiveIndex && !IsKnown(static_cast<std::int16_t>(Index))) {
        return;
    }
    system_.live.LiveActionStart();
    // The replies come later: what is recorded now is what was known before.
    system_.communication.RequestMagnescaleData();
    system_.communication.RequestMirrorData();
    if (Index == ObjectiveIndex) {
        RecordObjective();
    } else {
        RecordNeedle(static_cast<std::int32_t>(Index));
    }
    system_.live.LiveActionEnd();
}

bool CtlEscape::IsKnown(std::int16_t needle) {
    const std::int16_t& selected = system_.state.intManipulatorNumber;
    if (needle == selected || !system_.owner.IsLit(needle)) {
        return true;
    }
    system_.needle.ManipulatorReload();
    if (needle != selected) {
        system_.owner.TakeLampsFrom(needle);
    }
    return needle == selected;
}

void CtlEscape::RecordNeedle(std::int32_t needle) {
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const std::int32_t position = Known(system_.state.Needle(needle, axis));
        system_.escape.NeedleEscape(needle, axis, position);
        // On the label only: up is positive for the operator.
        NeedleLabel(needle, axis).setText(QString::number(axis == Y ? Difference(0, position) : position));
    }
}

void CtlEscape::RecordObjective() {
    const std::int32_t height = Known(system_.state.CurrentXYZ(Z));
    system_.escape.ZEscapePosition(height);
    lblEscZPos_.setText(QString::number(height));
}

void CtlEscape::ChangeZeroPosition() {
    const std::int32_t zero = system_.state.ZeroXYZ(Z);
    for (std::int32_t needle = 0; needle <= system_.state.HighestNeedle(); ++needle) {
        const std::int32_t height = system_.escape.NeedleEscape(needle, Z);
        // The label's own flag counts: zeroing is done on another panel, while this one is not on show.
        if (height == NoPositionValue || NeedleLabel(needle, Z).isHidden()) {
            continue;
        }
        const std::int32_t rebased = Difference(height, zero);
        system_.escape.NeedleEscape(needle, Z, rebased);
        NeedleLabel(needle, Z).setText(QString::number(rebased));
    }
    if (system_.escape.ZEscapePosition() != NoPositionValue) {
        const std::int32_t rebased = Difference(system_.escape.ZEscapePosition(), zero);
        system_.escape.ZEscapePosition(rebased);
        lblEscZPos_.setText(QString::number(rebased));
    }
}

NumberLabel& CtlEscape::NeedleLabel(std::int32_t needle, std::int32_t axis) {
    return lblEscPos_[Bounded(needle * AxisCount + axis, lblEscPos_.size())];
}

}  // namespace travo
