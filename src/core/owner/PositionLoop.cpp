#include "core/owner/PositionLoop.h"

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"

namespace travo {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

PositionLoop::PositionLoop(SharedState& state, FormMainObjects& objects, platform::MessageBoxes& boxes,
                           platform::Timers& timers, Listener& listener)
    : state_(state),
      objects_(objects),
      boxes_(boxes),
      listener_(listener),
      Timer1_(timers.Create([this] { Tick(); })) {}

void PositionLoop::Start() {
    intReloadFailCount_ = 0;
    Timer1_->Interval(Period);
    Timer1_->Enabled(true);
}

void PositionLoop::Stop() {
    stopped_ = true;
    Timer1_->Enabled(false);
}

void PositionLoop::Connect() {
    const std::int16_t highest = objects_.cCommunication->ConnectManipulator();
    state_.intTotalManipulatorNumber =
        highest < 0 || highest > HighestManipulatorNumber ? std::int16_t{-1} : highest;
}

ManipulatorRecord PositionLoop::Request() {
    return ManipulatorRecord(objects_.cCommunication->RequestManipulatorData());
}

void PositionLoop::MapNeedle(const ManipulatorRecord& record) {
    const clsNeedleMove& maps = *objects_.cNeedleMove;
    const std::int16_t index = record.Index();
    PositionXYZ raw = record.Counts();
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        state_.Needle(index, axis, maps.Calibration(index, axis, raw));
    }
    raw[0] = 0;
    PositionXYZ root{};
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        root[static_cast<std::size_t>(axis)] = maps.Calibration(index, axis, raw);
    }
    listener_.ChangeNeedleXYZ(index, root);
}

bool PositionLoop::ManipulatorReload() {
    // A malformed record, or an index beyond the tables, counts as a failed read and no more.
    try {
        const ManipulatorRecord record = Request();
        if (!record.HoldsPosition()) {
            return false;
        }
        if (record.Index() != state_.intManipulatorNumber) {
            state_.intManipulatorNumber = record.Index();
            listener_.ManipulatorChange(record.Index());
        }
        // The place is looked at only after a change of needle has been told.
        MapNeedle(record);
        return true;
    } catch (...) {
        return false;
    }
}

bool PositionLoop::AllManipulatorReload() {
    try {
        return ReadAll();
    } catch (...) {
        return false;
    }
}

bool PositionLoop::ReadAll() {
    for (std::int32_t number = 0; number <= state_.intTotalManipulatorNumber; ++number) {
        objects_.cCommunication->ChangeManipulator(ToInteger16(number + 1));
        const ManipulatorRecord record = Request();
        if (!record.HoldsPosition()) {
            return false;
        }
        MapNeedle(record);
    }
    objects_.cCommunication->ChangeManipulator(1);
    return true;
}

void PositionLoop::Tick() {
    try {
        TickSteps();
    } catch (...) {
        // The next tick comes in the ordinary way; a failing one must not disturb the operator.
        Timer1_->Enabled(!stopped_);
    }
}

void PositionLoop::TickSteps() {
    if (state_.intTotalManipulatorNumber != -1) {
        Timer1_->Enabled(false);
        ReadOrAsk();
        listener_.ChangeCurrentXYZ(state_.CurrentXYZ());
        Timer1_->Enabled(!stopped_);
    }
    // Asked on every tick, also with no needle; the answer comes by the port's own event.
    if (objects_.cCommunication->MagnescalePortOpenCheck()) {
        objects_.cCommunication->RequestMagnescaleData();
    }
}

void PositionLoop::ReadOrAsk() {
    if (intReloadFailCount_ >= FailedReadsBeforeQuestion) {
        AskForReconnection();
    } else if (ManipulatorReload()) {
        intReloadFailCount_ = 0;
    } else {
        ++intReloadFailCount_;
    }
}

void PositionLoop::AskForReconnection() {
    const BoxAnswer answer =
        boxes_.Show(QStringLiteral("Manipulator was disconnected. Reconnect Manipulator?"),
                    BoxButtons::OKCancel, BoxIcon::None);
    state_.intTotalManipulatorNumber = -1;
    state_.intManipulatorNumber = -1;
    intReloadFailCount_ = 0;
    if (answer == BoxAnswer::OK) {
        Reconnect();
    }
    AllManipulatorReload();
    listener_.TotalManipulatorNumber(state_.intTotalManipulatorNumber);
}

void PositionLoop::Reconnect() {
    try {
        objects_.cCommunication->ReConnectManipulator();
        Connect();
    } catch (...) {
        // None is connected then, and that is told on as where none is counted.
    }
}

void PositionLoop::ZeroPointReset() {
    clsCommunication& instruments = *objects_.cCommunication;
    if (!instruments.MagnescalePortOpenCheck() || !HeightHolds()) {
        return;
    }
    state_.StoreZeroXYZ(2, state_.CurrentXYZ(2));
    listener_.ChangeZeroPosition();
    objects_.cNeedleMove->ChangeZeroPosition();
    StoreZeros();
    instruments.MagnescaleZeroReset();
    if (instruments.MotorPortOpenCheck()) {
        instruments.MotorZeroReset();
    }
}

bool PositionLoop::HeightHolds() const {
    return state_.CurrentXYZ(2) != NoPositionValue && objects_.cCommunication->MagnescaleReadingIsFresh();
}

void PositionLoop::StoreZeros() {
    for (std::int32_t needle = 0; needle <= state_.HighestNeedle(); ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            objects_.cIniEdit->WriteString(settings::CalibrationSection(needle), settings::ZeroKey(axis),
                                           QString::number(objects_.cNeedleMove->PosZero(needle, axis)));
        }
    }
}

}  // namespace travo
