// The position loop: every 200 ms it reads the selected needle, drives the synchronised step and
// notices a lost manipulator.
#pragma once

#include <cstdint>
#include <memory>

#include "core/ground/Positions.h"
#include "core/owner/FormMainObjects.h"
#include "core/state/NeedleReader.h"
#include "core/state/SharedState.h"
#include "devices/links/ManipulatorRecord.h"
#include "platform/Clock.h"
#include "platform/MessageBoxes.h"

namespace travo {

class PositionLoop : public NeedleReader {
public:
    // Period of the loop in milliseconds.
    static constexpr int Period = 200;
    // Failed reads in a row after which the next tick asks the operator.
    static constexpr std::int16_t FailedReadsBeforeQuestion = 10;

    // Whom the owner tells, each in the order of the owner's list.
    class Listener {
    public:
        virtual ~Listener() = default;
        // Highest connected index, -1 for none, after a connection or the loss of it.
        virtual void TotalManipulatorNumber(std::int16_t number) = 0;
        // Another needle than the one known is selected at the hardware.
        virtual void ManipulatorChange(std::int16_t number) = 0;
        // A needle has been read. Root is the place of its tip with the manipulator's X at 0, in the
        // common frame.
        virtual void ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) = 0;
        // The common Z origin has moved by ZeroXYZ(2): stored heights follow it.
        virtual void ChangeZeroPosition() = 0;
        // The view as it stands after a tick's read, also after a failed one.
        virtual void ChangeCurrentXYZ(const PositionXYZ& currentXYZ) = 0;
    };

    PositionLoop(SharedState& state, FormMainObjects& objects, platform::MessageBoxes& boxes,
                 platform::Timers& timers, Listener& listener);
    PositionLoop(const PositionLoop&) = delete;
    PositionLoop& operator=(const PositionLoop&) = delete;

    // Clears the count of failed reads and starts the ticks.
    void Start();
    // Ends the ticks for good.
    void Stop();

    // Connects, and stores the highest index; below 0 and above 4 count as none.
    void Connect();

    // False also for a record that is malformed, or whose index lies beyond the tables.
    bool ManipulatorReload() override;
    // Reads every connected needle in turn and selects the first. Stops at the first that cannot be
    // read and leaves it selected. Raises and reports nothing.
    bool AllManipulatorReload();

    // Takes the present Z as the new origin, for stored heights, needles, settings, gauge and motor.
    // Nothing happens while the gauge's port is closed, while it has given no reading, and after a zero point
    // until it has answered a request that was sent after it: a height that does not hold would go into every
    // stored zero. Raises OverflowFailure where a stored height leaves 32 bits.
    void ZeroPointReset();

    // One tick; what it raises ends in it.
    void Tick();

private:
    void TickSteps();
    void ReadOrAsk();
    bool HeightHolds() const;
    void StoreZeros();
    void AskForReconnection();
    // A failure, which is not told, leaves no needle connected.
    void Reconnect();
    ManipulatorRecord Request();
    bool ReadAll();
    // The record holds a position; raises for one that is malformed.
    void MapNeedle(const ManipulatorRecord& record);

    SharedState& state_;
    FormMainObjects& objects_;
    platform::MessageBoxes& boxes_;
    Listener& listener_;
    std::unique_ptr<platform::Timer> Timer1_;
    std::int16_t intReloadFailCount_ = 0;
    bool stopped_ = false;
};

}  // namespace travo
