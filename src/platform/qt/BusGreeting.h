// A newcomer's first words to a message bus, on a plain socket and with an end to the waiting.
#pragma once

#include <QByteArray>
#include <chrono>

namespace travo::platform::qt {

enum class Greeting {
    NotThere,     // no connection
    Answered,     // whatever it said, a refusal and a hang-up included
    NotAnswered,  // nothing until the time was over
};

// Connects to a local socket, proves who we are, says hello and leaves. A name that begins with NUL is
// an abstract one. Blocks until the bus has answered or the time is over.
Greeting Greet(const QByteArray& socketName, std::chrono::milliseconds limit);

}  // namespace travo::platform::qt
