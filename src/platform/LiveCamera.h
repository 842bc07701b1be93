// The live camera program: a process of its own, reached as one object with calls and events.
#pragma once

#include <QLatin1String>
#include <cstdint>
#include <stdexcept>

namespace travo::platform {

// The object could not be created, or a call on it failed or was not answered in time. The text says
// what was asked and why it failed.
class LiveCameraFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class LiveCamera {
public:
    // What the object tells of itself: always from the event loop, never from within a call.
    class Listener {
    public:
        virtual ~Listener() = default;
        // The picture file is complete in the program folder.
        virtual void BirdViewSave() = 0;
        // The operator has hidden the camera window from its side.
        virtual void WindowHide() = 0;
        // The operator has closed the camera program.
        virtual void WindowClose() = 0;
        // The process behind the object has gone, or an announcement failed. May follow a WindowClose;
        // comes once at most.
        virtual void Lost() = 0;
    };

    virtual ~LiveCamera() = default;
    // Creates the object, which starts the camera program where it does not run, and replaces the
    // object that was there. From now on the listener is told of the new object, and nothing of an
    // earlier one; it must live until Release. A program that has just told WindowClose counts as gone:
    // its end is waited for, 2 s at most. Blocks up to 10 s for the start. Raises LiveCameraFailure;
    // there is no object then.
    virtual void Create(Listener& listener) = 0;
    // Gives up the object and everything that keeps the camera program running for our sake. The
    // listener is not told of anything any more. Raises nothing; harmless without an object.
    virtual void Release() = 0;

    // Calls an operation of the object and blocks until it is answered, 2 s at most from its sending; it
    // is sent when all that was announced before has been answered. Never starts the program. Raises
    // LiveCameraFailure where there is no object, where the other side refuses or has gone, where the
    // time is over, and where an announcement before it failed.
    virtual void Call(QLatin1String operation) = 0;

    // Calls an operation of the object without waiting for the answer. Announcements go out in their
    // order, each when the one before has been answered; one with an argument takes the place of one
    // of the same operation that has not gone out yet. One that is refused or not answered within 2 s
    // of its sending, or that finds 64 waiting, ends all: nothing more goes out, and Lost is told.
    // Raises nothing; nothing happens without an object.
    virtual void Announce(QLatin1String operation) = 0;
    virtual void Announce(QLatin1String operation, std::int16_t argument) = 0;
};

}  // namespace travo::platform
