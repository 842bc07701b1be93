// The connection panel: the watches, and ports that are lost.
#include <array>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"
#include "devices/view/CtlConnection.h"

namespace travo {

using platform::PointerShape;

namespace {

// A tick that finds so many behind it is the last one.
constexpr std::int16_t TicksBeforeVerdict = 6;

}  // namespace

const QString& CtlConnection::Key(Row row) {
    static const std::array<QString, WatchCount> keys{settings::MirrorKey, settings::MagnescaleKey,
                                                      settings::MotorKey};
    return keys[Bounded(row, keys.size())];
}

void CtlConnection::TimerONOFF(std::int16_t Index, bool bONOFF) {
    const Row row = static_cast<Row>(Bounded(Index, WatchCount));
    if (bONOFF) {
        StartWatch(row);
        return;
    }
    ConnectTimer(row).Enabled(false);
    if (shownState_[static_cast<std::size_t>(row)] == RowState::Watching) {
        ShowState(row, RowState::AtRest);
    }
}

// The hourglass stands for the gauge's watch, which alone would take it down.
void CtlConnection::StopWatches() {
    if (ConnectTimer(Magnescale).Enabled()) {
        system_.pointer.Screen(PointerShape::Default);
    }
    for (const Row row : {Mirror, Magnescale, Motor}) {
        TimerONOFF(row, false);
    }
}

void CtlConnection::PortLost(Instrument instrument) {
    const Row row = static_cast<Row>(Bounded(static_cast<std::int16_t>(instrument), WatchCount));
    ShowState(row, RowState::Lost);
    switch (row) {
        case Mirror:
            usrKVButton1_[TestMirror]->Enabled(false);
            system_.owner.chkMirror(false);
            return ForgetView(Mirror);
        case Magnescale:
            usrKVButton1_[TestMagnescale]->Enabled(false);
            return ForgetView(Magnescale);
        default:
            usrKVButton1_[TestMotor]->Enabled(false);
            system_.state.bMotorONOFF = false;
            // The answer that would unlock it cannot come any more.
            usrKVButton1_[Motor]->Enabled(true);
    }
}

void CtlConnection::ConnectTimer_Timer(Row row) {
    if (row == Mirror) {
        WatchMirror();
    } else if (row == Magnescale) {
        WatchMagnescale();
    } else {
        WatchMotor();
    }
    ConnectRetryCount(row) = ToInteger16(Sum(ConnectRetryCount(row), 1));
}

void CtlConnection::WatchMirror() {
    const bool isX = system_.state.CurrentXYZ(0) != NoPositionValue;
    const bool isY = system_.state.CurrentXYZ(1) != NoPositionValue;
    if ((isX && isY) || InTime(Mirror)) {
        if (isX || isY) {
            EndWatch(Mirror, RowState::Connected);
            Store(Mirror, BoxValue(Mirror));
            usrKVButton1_[TestMirror]->Enabled(true);
            system_.owner.chkMirror(true);
            system_.instruments.SendErgoZ(0);
        }
        return;
    }
    EndWatch(Mirror, Refusal(Mirror));
    Store(Mirror, settings::NoPort);
    system_.instruments.MirrorPortClose();
    system_.failures.Show(QStringLiteral("Error : Mirror : Communication connection"));
    usrKVButton1_[TestMirror]->Enabled(false);
    system_.owner.chkMirror(false);
}

void CtlConnection::WatchMagnescale() {
    const bool isZ = system_.state.CurrentXYZ(2) != NoPositionValue;
    if (isZ) {
        system_.instruments.MagnescaleKeyOFF();
        EndWatch(Magnescale, RowState::Connected);
        system_.pointer.Screen(PointerShape::Default);
        Store(Magnescale, BoxValue(Magnescale));
        usrKVButton1_[TestMagnescale]->Enabled(true);
    } else if (!InTime(Magnescale)) {
        EndWatch(Magnescale, Refusal(Magnescale));
        system_.instruments.MagnescalePortClose();
        system_.pointer.Screen(PointerShape::Default);
        Store(Magnescale, settings::NoPort);
        system_.instruments.MagnescaleKeyON();
        system_.failures.Show(QStringLiteral("Error : Magnescale : Communication connection"));
        usrKVButton1_[TestMagnescale]->Enabled(false);
    }
    // The gauge speaks only when it is asked.
    system_.instruments.RequestMagnescaleData();
}

void CtlConnection::WatchMotor() {
    if (system_.state.bMotorONOFF) {
        EndWatch(Motor, RowState::Connected);
        Store(Motor, BoxValue(Motor));
        usrKVButton1_[TestMotor]->Enabled(true);
    } else if (!InTime(Motor)) {
        EndWatch(Motor, Refusal(Motor));
        Store(Motor, settings::NoPort);
        system_.instruments.MotorPortClose();
        ControlONOFF(true);
        system_.failures.Show(QStringLiteral("Error : Motor : Communication connection"));
        usrKVButton1_[TestMotor]->Enabled(false);
    }
}

bool CtlConnection::InTime(Row row) const {
    return ConnectRetryCount_[static_cast<std::size_t>(row)] < TicksBeforeVerdict;
}

void CtlConnection::StartWatch(Row row) {
    ConnectTimer(row).Enabled(true);
    ShowState(row, PortIsOpen(row) ? RowState::Watching : RowState::NotOpened);
}

// Why a watch fails: the instrument is silent, or its row has said already what became of the port.
CtlConnection::RowState CtlConnection::Refusal(Row row) const {
    return PortIsOpen(row) ? RowState::Refused : shownState_[static_cast<std::size_t>(row)];
}

void CtlConnection::EndWatch(Row row, RowState verdict) {
    ConnectTimer(row).Enabled(false);
    ConnectRetryCount(row) = 0;
    ShowState(row, verdict);
}

void CtlConnection::Store(Row row, std::int32_t port) {
    system_.settings.WriteString(settings::PortSection, Key(row), QString::number(port));
}

}  // namespace travo
