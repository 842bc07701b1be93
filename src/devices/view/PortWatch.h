// The ports of the serial instruments: opened, watched until the instrument speaks, kept or given up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/clsIniEdit.h"
#include "devices/links/clsCommunication.h"
#include "platform/Clock.h"
#include "platform/Pointer.h"

namespace travo {

// Refused: no answer in time. Lost: a port that was open has closed by itself. NotOpened: it cannot be
// opened, or its number cannot be had.
enum class PortState { AtRest, Watching, Connected, Refused, Lost, NotOpened };

// The links wait for no answer. Here is the one limit: from the opening of a port a timer of 150 ms looks for
// the first value of the instrument. A value by the seventh tick keeps and stores the port; without one the
// port is closed and forgotten, and the operator is told. All three instruments can be watched at once.
//
// Failures to open are reported here. All else that instruments and listener raise goes to the caller.
class PortWatch {
public:
    static constexpr std::size_t Count = 3;
    // From one look to the next, in milliseconds.
    static constexpr int Period = 150;

    // Who shows the ports. It may be told what it knows already.
    class Listener {
    public:
        virtual ~Listener() = default;
        // The number that the operator has chosen: it is opened, and it is what a success stores. Negative
        // for a port that is to be closed. Raises where it cannot be had.
        virtual std::int32_t ChosenPort(Instrument instrument) const = 0;
        virtual void PortStateChanged(Instrument instrument, PortState state) = 0;
        // Whether there is an instrument behind the port that can be put to the test.
        virtual void TestAllowed(Instrument instrument, bool isAllowed) = 0;
        // No answer of the motor is to come any more that would unlock its buttons.
        virtual void MotorUnlocked() = 0;
        // The mirror has answered, or has not.
        virtual void MirrorAnswers(bool doesAnswer) = 0;
    };

    // Each outlives this object.
    struct System {
        SharedState& state;
        clsCommunication& instruments;
        clsIniEdit& settings;
        FailureHandler& failures;
        platform::Pointer& pointer;
        platform::Timers& timers;
    };

    // All three at rest. The listener is told nothing yet.
    PortWatch(const System& system, Listener& listener);

    // Forgets what the instrument told, opens the chosen port and starts to watch it; closes it where the
    // number is negative. What that raises takes all back and is reported.
    void Open(Instrument instrument);
    // Watches a port that is open already. Does nothing where it is watched.
    void Start(Instrument instrument);
    // Ends a watch without a verdict, the port left as it is.
    void Stop(Instrument instrument);
    void StopAll();
    // Stops all, counts from nothing again, allows the tests of the instruments whose ports are open, and
    // forgets what those told whose ports are not.
    void TakeStock();
    // The port has closed by itself: what its instrument told is forgotten. A watch that runs goes on to its
    // verdict.
    void Lost(Instrument instrument);

    bool IsOpen(Instrument instrument) const;

private:
    struct Watched {
        std::unique_ptr<platform::Timer> timer;
        // Ticks since the watch was started. A verdict leaves it at 1, since its own tick is counted too.
        std::int16_t ticks = 0;
        PortState state = PortState::AtRest;
    };

    Watched& Of(Instrument instrument) { return watched_[static_cast<std::size_t>(instrument)]; }
    void Say(Instrument instrument, PortState state);

    void OpenChosen(Instrument instrument);
    void OpenPort(Instrument instrument, std::int16_t port);
    void ClosePort(Instrument instrument);
    // A number below 0 was chosen.
    void GiveUp(Instrument instrument);
    void TakeBack(Instrument instrument);
    // What that instrument last said.
    void Forget(Instrument instrument);

    void Tick(Instrument instrument);
    void LookAtMirror();
    void LookAtMagnescale();
    void LookAtMotor();
    bool InTime(Instrument instrument) { return Of(instrument).ticks < TicksBeforeVerdict; }
    void Accept(Instrument instrument);
    // Why a watch fails: the instrument is silent, or its state has said already what became of the port.
    PortState Refusal(Instrument instrument);
    void End(Instrument instrument, PortState verdict);
    void Store(Instrument instrument, std::int32_t port);

    // A tick that finds so many behind it is the last one.
    static constexpr std::int16_t TicksBeforeVerdict = 6;

    const System system_;
    Listener& listener_;
    std::array<Watched, Count> watched_;
};

}  // namespace travo
