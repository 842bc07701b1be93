#include "devices/view/CtlConnection.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "core/ground/Magnification.h"
#include "devices/view/FormPortList.h"

namespace travo {

namespace {

constexpr std::int32_t TestDistance = 1000;  // counts of the focus motor
// Numbers that the arrow of the manipulators reaches stay below this.
constexpr std::int32_t ManipulatorLimit = 5;

// The value of a box's text, as far as its limits care: 0 for what is no number, and the largest value
// for one that has no place in 32 bits.
std::int32_t LimitedValue(const QString& text) {
    try {
        return ReadInteger32(text.toStdString());
    } catch (const OverflowFailure&) {
        return text.startsWith(QLatin1Char('-')) ? 0 : INT32_MAX;
    } catch (const NumberFailure&) {
        return 0;
    }
}

}  // namespace

CtlConnection::CtlConnection(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(QSizeF(486, 520), programFolder, parent),
      system_(system),
      watch_(
          {system.state, system.instruments, system.settings, system.failures, system.pointer, system.timers},
          *this) {
    setObjectName(QStringLiteral("CtlConnection1"));
    Place();
    Connect();
    for (const Button test : {TestMirror, TestMotor, TestMagnescale}) {
        usrKVButton1_[test].Enabled(false);
    }
    StateChange();
}

void CtlConnection::Shown() {
    watch_.TakeStock();
    StateChange();
    // A command whose answer never came would keep it locked for the whole run.
    usrKVButton1_[Motor].Enabled(true);
}

void CtlConnection::Hidden() { watch_.StopAll(); }

void CtlConnection::PortLost(Instrument instrument) { watch_.Lost(instrument); }

void CtlConnection::TimerONOFF(std::int16_t Index, bool bONOFF) {
    const auto instrument = static_cast<Instrument>(Bounded(Index, PortWatch::Count));
    if (bONOFF) {
        watch_.Start(instrument);
    } else {
        watch_.Stop(instrument);
    }
}

void CtlConnection::ControlONOFF(bool bONOFF) {
    usrKVButton1_[Motor].Enabled(bONOFF);
    usrKVButton1_[TestMotor].Enabled(bONOFF);
}

void CtlConnection::txtNoChange(std::int16_t Index, const QString& strNo) {
    Write(static_cast<Row>(Bounded(Index, BoxCount)), strNo);
}

void CtlConnection::StateChange() {
    ShowState(Manipulator,
              system_.state.intTotalManipulatorNumber >= 0 ? RowState::Connected : RowState::AtRest);
    if (system_.state.LiveOpen) {
        ShowState(Camera, RowState::Connected);
    } else if (shownState_[Camera] == RowState::Connected) {
        ShowState(Camera, RowState::AtRest);
    }
}

void CtlConnection::txtNo_Change(Row row) {
    NumberBox& box = txtNo_[static_cast<std::size_t>(row)];
    const std::int32_t value = LimitedValue(box.text());
    const std::int32_t connected = Sum(system_.state.intTotalManipulatorNumber, 1);
    if (value < 1 || (row == Manipulator && (connected < 1 || value > connected))) {
        if (box.text() == QLatin1String("1")) {
            return;
        }
        box.setText(QStringLiteral("1"));
        if (box.hasFocus()) {
            // The next figure replaces it: a box cannot be emptied first.
            box.selectAll();
        }
    }
}

void CtlConnection::PressDown(Row row) {
    if (const std::int32_t next = Difference(BoxValue(row), 1); next >= 1) {
        Write(row, QString::number(next));
    }
}

void CtlConnection::PressUp(Row row) {
    if (const std::int32_t next = Sum(BoxValue(row), 1); row != Manipulator || next < ManipulatorLimit) {
        Write(row, QString::number(next));
    }
}

// A longer number than can be typed keeps all its figures.
void CtlConnection::Write(Row row, const QString& text) {
    NumberBox& box = txtNo_[static_cast<std::size_t>(row)];
    box.setMaxLength(std::max(TypedFigures, static_cast<int>(text.size())));
    box.setText(text);
}

std::int32_t CtlConnection::BoxValue(Row row) const {
    return ReadInteger32(txtNo_[static_cast<std::size_t>(row)].text().toStdString());
}

void CtlConnection::PressButton(int index) {
    switch (index) {
        case Mirror:
        case Magnescale:
        case Motor:
            return watch_.Open(static_cast<Instrument>(index));
        case OpenList:
            return ShowPortList();
        case TestMirror:
            return StepMagnification();
        case TestMotor:
            if (watch_.IsOpen(Instrument::Motor)) {
                system_.instruments.MotorMoveRZ(TestDistance);
            }
            return;
        case TestManipulator:
            return JogManipulator();
        case TestMagnescale:
            return system_.failures.Show(
                QStringLiteral("The value of Magnescal is%1").arg(system_.state.CurrentXYZ(2)));
        default:
            return AttachCamera();
    }
}

std::int32_t CtlConnection::ChosenPort(Instrument instrument) const {
    return BoxValue(static_cast<Row>(instrument));
}

void CtlConnection::PortStateChanged(Instrument instrument, PortState state) {
    ShowState(static_cast<Row>(instrument), state);
}

void CtlConnection::TestAllowed(Instrument instrument, bool isAllowed) {
    static constexpr std::array<Button, PortWatch::Count> tests{TestMirror, TestMagnescale, TestMotor};
    usrKVButton1_[tests[static_cast<std::size_t>(instrument)]].Enabled(isAllowed);
}

void CtlConnection::ShowPortList() {
    if (portList_ == nullptr) {
        portList_ = new FormPortList(system_.serialPortList, system_.timers, this);
    }
    if (!portList_->Open()) {
        system_.failures.Show(QStringLiteral("Device Manager is Not found"));
    }
}

void CtlConnection::StepMagnification() {
    if (watch_.IsOpen(Instrument::Mirror)) {
        const auto next = static_cast<std::int16_t>(system_.state.CurrentMagnification() + 1);
        system_.instruments.SendMirrorMagnificationData(
            next > Magnification4x ? std::int16_t{Magnification035x} : next);
    }
}

// The call changes its argument to the number that the driver reports; the box keeps its text.
void CtlConnection::JogManipulator() {
    std::int16_t number = ToInteger16(BoxValue(Manipulator));
    system_.instruments.TestManipulator(number);
}

void CtlConnection::AttachCamera() {
    system_.failures.Handle(QStringLiteral("Error : Camera Load"), [this] {
        if (system_.state.LiveOpen) {
            system_.live.LiveAttach();
            return;
        }
        system_.live.Clear();
        system_.live.Create();
        system_.live.LiveAttach();
        system_.state.LiveOpen = true;
    });
    ShowState(Camera, system_.state.LiveOpen ? RowState::Connected : RowState::Refused);
}

}  // namespace travo
