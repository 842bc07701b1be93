#include "devices/view/PortWatch.h"

#include <QString>

#include "core/ground/Arithmetic.h"
#include "core/ground/Positions.h"
#include "core/state/SettingsKeys.h"

namespace travo {

using platform::PointerShape;

namespace {

constexpr std::array<Instrument, PortWatch::Count> All{Instrument::Mirror, Instrument::Magnescale,
                                                       Instrument::Motor};

// Of the settings file; the instrument's name in what the operator is told as well.
const QString& Key(Instrument instrument) {
    static const std::array<QString, PortWatch::Count> keys{settings::MirrorKey, settings::MagnescaleKey,
                                                            settings::MotorKey};
    return keys[static_cast<std::size_t>(instrument)];
}

}  // namespace

PortWatch::PortWatch(const System& system, Listener& listener) : system_(system), listener_(listener) {
    for (const Instrument instrument : All) {
        Of(instrument).timer = system_.timers.Create([this, instrument] { Tick(instrument); });
        Of(instrument).timer->Interval(Period);
    }
}

void PortWatch::Say(Instrument instrument, PortState state) {
    Of(instrument).state = state;
    listener_.PortStateChanged(instrument, state);
}

// Opening.

void PortWatch::Open(Instrument instrument) {
    system_.failures.Handle(QStringLiteral("%1 : Connection failed").arg(Key(instrument)), [&] {
        try {
            OpenChosen(instrument);
        } catch (...) {
            // Before the box: what the operator sees behind it is how things stand.
            TakeBack(instrument);
            throw;
        }
    });
}

void PortWatch::OpenChosen(Instrument instrument) {
    Forget(instrument);
    const std::int16_t port = ToInteger16(listener_.ChosenPort(instrument));
    if (port >= 0) {
        OpenPort(instrument, port);
        Start(instrument);
    } else {
        GiveUp(instrument);
    }
}

void PortWatch::OpenPort(Instrument instrument, std::int16_t port) {
    switch (instrument) {
        case Instrument::Mirror:
            return system_.instruments.MirrorPortOpen(port);
        case Instrument::Magnescale:
            // Until its verdict.
            system_.pointer.Screen(PointerShape::Hourglass);
            return system_.instruments.MagnescalePortOpen(port);
        case Instrument::Motor:
            return system_.instruments.MotorPortOpen(port);
    }
}

void PortWatch::ClosePort(Instrument instrument) {
    switch (instrument) {
        case Instrument::Mirror:
            return system_.instruments.MirrorPortClose();
        case Instrument::Magnescale:
            return system_.instruments.MagnescalePortClose();
        case Instrument::Motor:
            return system_.instruments.MotorPortClose();
    }
}

void PortWatch::GiveUp(Instrument instrument) {
    ClosePort(instrument);
    if (instrument == Instrument::Magnescale) {
        system_.instruments.MagnescaleKeyON();
    }
    Of(instrument).ticks = 0;
    Say(instrument, PortState::AtRest);
}

void PortWatch::TakeBack(Instrument instrument) {
    Of(instrument).timer->Enabled(false);
    Say(instrument, PortState::NotOpened);
    ClosePort(instrument);
    switch (instrument) {
        case Instrument::Mirror:
            return Forget(instrument);
        case Instrument::Magnescale:
            system_.pointer.Screen(PointerShape::Default);
            Of(instrument).ticks = 0;
            Forget(instrument);
            return system_.instruments.MagnescaleKeyON();
        case Instrument::Motor:
            Of(instrument).ticks = 0;
            return listener_.MotorUnlocked();
    }
}

void PortWatch::Forget(Instrument instrument) {
    switch (instrument) {
        case Instrument::Mirror:
            system_.state.CurrentXYZ(0, NoPositionValue);
            return system_.state.CurrentXYZ(1, NoPositionValue);
        case Instrument::Magnescale:
            return system_.state.CurrentXYZ(2, NoPositionValue);
        case Instrument::Motor:
            system_.state.bMotorONOFF = false;
    }
}

bool PortWatch::IsOpen(Instrument instrument) const {
    const clsCommunication& instruments = system_.instruments;
    return instrument == Instrument::Mirror       ? instruments.MirrorPortOpenCheck()
           : instrument == Instrument::Magnescale ? instruments.MagnescalePortOpenCheck()
                                                  : instruments.MotorPortOpenCheck();
}

// Starting and stopping.

void PortWatch::Start(Instrument instrument) {
    Of(instrument).timer->Enabled(true);
    Say(instrument, IsOpen(instrument) ? PortState::Watching : PortState::NotOpened);
}

void PortWatch::Stop(Instrument instrument) {
    Of(instrument).timer->Enabled(false);
    if (Of(instrument).state == PortState::Watching) {
        Say(instrument, PortState::AtRest);
    }
}

// The hourglass stands for the gauge's watch, which alone would take it down.
void PortWatch::StopAll() {
    if (Of(Instrument::Magnescale).timer->Enabled()) {
        system_.pointer.Screen(PointerShape::Default);
    }
    for (const Instrument instrument : All) {
        Stop(instrument);
    }
}

void PortWatch::TakeStock() {
    StopAll();
    for (const Instrument instrument : All) {
        Of(instrument).timer->Interval(Period);
        Of(instrument).ticks = 0;
        if (IsOpen(instrument)) {
            listener_.TestAllowed(instrument, true);
        } else {
            Forget(instrument);
        }
    }
}

void PortWatch::Lost(Instrument instrument) {
    Say(instrument, PortState::Lost);
    if (instrument == Instrument::Motor) {
        listener_.MotorUnlocked();
    }
    listener_.TestAllowed(instrument, false);
    if (instrument == Instrument::Mirror) {
        listener_.MirrorAnswers(false);
    }
    Forget(instrument);
}

// Watching.

void PortWatch::Tick(Instrument instrument) {
    switch (instrument) {
        case Instrument::Mirror:
            LookAtMirror();
            break;
        case Instrument::Magnescale:
            LookAtMagnescale();
            break;
        case Instrument::Motor:
            LookAtMotor();
    }
    Of(instrument).ticks = ToInteger16(Sum(Of(instrument).ticks, 1));
}

void PortWatch::LookAtMirror() {
    const bool isX = system_.state.CurrentXYZ(0) != NoPositionValue;
    const bool isY = system_.state.CurrentXYZ(1) != NoPositionValue;
    if ((isX && isY) || InTime(Instrument::Mirror)) {
        if (isX || isY) {
            Accept(Instrument::Mirror);
            listener_.MirrorAnswers(true);
            system_.instruments.SendErgoZ(0);
        }
        return;
    }
    End(Instrument::Mirror, Refusal(Instrument::Mirror));
    Store(Instrument::Mirror, settings::NoPort);
    system_.instruments.MirrorPortClose();
    system_.failures.Show(QStringLiteral("Error : Mirror : Communication connection"));
    listener_.TestAllowed(Instrument::Mirror, false);
    listener_.MirrorAnswers(false);
}

void PortWatch::LookAtMagnescale() {
    const bool isZ = system_.state.CurrentXYZ(2) != NoPositionValue;
    if (isZ) {
        system_.instruments.MagnescaleKeyOFF();
        Accept(Instrument::Magnescale);
    } else if (!InTime(Instrument::Magnescale)) {
        End(Instrument::Magnescale, Refusal(Instrument::Magnescale));
        system_.instruments.MagnescalePortClose();
        system_.pointer.Screen(PointerShape::Default);
        Store(Instrument::Magnescale, settings::NoPort);
        system_.instruments.MagnescaleKeyON();
        system_.failures.Show(QStringLiteral("Error : Magnescale : Communication connection"));
        listener_.TestAllowed(Instrument::Magnescale, false);
    }
    // The gauge speaks only when it is asked.
    system_.instruments.RequestMagnescaleData();
}

void PortWatch::LookAtMotor() {
    if (system_.state.bMotorONOFF) {
        Accept(Instrument::Motor);
    } else if (!InTime(Instrument::Motor)) {
        End(Instrument::Motor, Refusal(Instrument::Motor));
        Store(Instrument::Motor, settings::NoPort);
        system_.instruments.MotorPortClose();
        listener_.MotorUnlocked();
        system_.failures.Show(QStringLiteral("Error : Motor : Communication connection"));
        listener_.TestAllowed(Instrument::Motor, false);
    }
}

void PortWatch::Accept(Instrument instrument) {
    End(instrument, PortState::Connected);
    if (instrument == Instrument::Magnescale) {
        system_.pointer.Screen(PointerShape::Default);
    }
    Store(instrument, listener_.ChosenPort(instrument));
    listener_.TestAllowed(instrument, true);
}

PortState PortWatch::Refusal(Instrument instrument) {
    return IsOpen(instrument) ? PortState::Refused : Of(instrument).state;
}

void PortWatch::End(Instrument instrument, PortState verdict) {
    Of(instrument).timer->Enabled(false);
    Of(instrument).ticks = 0;
    Say(instrument, verdict);
}

void PortWatch::Store(Instrument instrument, std::int32_t port) {
    system_.settings.WriteString(settings::PortSection, Key(instrument), QString::number(port));
}

}  // namespace travo
