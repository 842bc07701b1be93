// The link to the needle manipulators: serialises the driver's calls, keeps every position inside
// the range, and gives a move its time.
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/ManipulatorDriver.h"
#include "platform/Pointer.h"

namespace travo {

class clsManipulator {
public:
    // What the link needs of the machine.
    struct Machine {
        platform::ManipulatorDriverLibrary& driverLibrary;
        platform::Clock& clock;
        platform::EventLoop& eventLoop;
        platform::Pointer& pointer;
    };

    // What becomes of what the operator presses while the program stands still for a move: dropped where a
    // press began the move, kept where a tick did.
    enum class Presses { Dropped, Kept };

    // Creates the driver object; without a library all operations behave as told below.
    clsManipulator(const Machine& machine, FailureHandler& failures);

    // Jogs a manipulator by +50 counts in X and back after 501 ms, serving the event loop meanwhile.
    // ManipulatorNumber is 1-based; on return it holds the 0-based number that the driver reports, if
    // it reported one. Reports its failures itself. Nothing without a driver object.
    void ConnectTest(std::int16_t& ManipulatorNumber);

    // Selects a manipulator, 1-based. The driver's answer; -1 when the driver was not reached: no
    // driver object, another call under way, or a failure, which is reported.
    std::int32_t ConnectChange(std::int16_t ManipulatorNumber);

    // Moves the manipulator selected at the hardware, whatever number is given, to the target counts.
    // Blocks, serving no event, for 0.25 ms for each count of the longest distance between target and
    // present counts. 1 when the move was made, 0 when not; failures are reported.
    std::int16_t SendData(std::int16_t ManipulatorNumber, const PositionXYZ& lngInXYZ,
                          const PositionXYZ& lngNowXYZ, Presses presses = Presses::Dropped);

    // "index,X,Y,Z" of the selected manipulator, index 0-based, counts in the manipulator frame. "-1"
    // without a driver object, at a position out of range, or after a failure, which is reported. The
    // empty text when another call was under way.
    std::string RequestData();

    // Highest connected 0-based index, -1 for none and without a driver object. Unguarded and without
    // a handler: a failing driver and a count beyond 16 bits go to the caller.
    std::int16_t ConnectedNumber();

    // Connects to the manipulators anew; always 0. Unguarded and without a handler.
    std::int16_t ReConnect();

    // Puts a manipulator number in a slot of the number table. Every slot that held the number takes
    // the slot of the number SettingManipulator instead, 4 where no slot holds that. BoundsFailure for
    // a slot outside 0 to 3, with the other slots already written.
    void NumberSetting(std::int16_t SettingManipulator, std::int16_t ManipulatorUSBNumber);
    // The first slot that holds the number, 4 if none does.
    std::int16_t CheckNumberSetting(std::int16_t ManipulatorUSBNumber) const;

private:
    // Makes the driver call where the guard is free; the guard is free afterwards in either case.
    template <typename Call>
    void UnderGuard(Call&& call);
    // Runs the body; what it raises frees the guard and is reported with the text.
    template <typename Body>
    void Handled(const QString& text, Body&& body);
    void ReportFreed(const QString& text);
    void Jog(const PositionXYZ& position);
    void ServeEventsForTest();
    void MoveAndWait(const PositionXYZ& target, std::int32_t distance, Presses presses);

    Machine machine_;
    FailureHandler& failures_;
    std::unique_ptr<platform::ManipulatorDriver> ManipulatorDriver_;
    std::array<std::int16_t, 4> NumberTable_{0, 1, 2, 3};
    // -1 while no driver call is under way, 0 while one is.
    std::int16_t ManipulatorFree_ = -1;
};

}  // namespace travo
