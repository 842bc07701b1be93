// The workbench's text protocol: one line in, one line out, without any transport.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/commands/CommandWords.h"
#include "workbench/instruments/Manipulators.h"
#include "workbench/world/World.h"

namespace workbench {

// Knows the commands by the table of commands, which says what a line may hold; what each does is added by
// those who can. Needle numbers are 1-based on a line, as on the hardware.
class Commands {
public:
    // The longest line that means anything, without its LF.
    static constexpr std::size_t LongestLine = 4096;

    // Gets the arguments of the line, which the table has let through. What it returns is the answer of a
    // driver call, and what follows "ok" for any other command. What it raises is answered as "error" and the
    // sentence.
    using Handler = std::function<std::string(const Words& words, Time now)>;

    // Adds the commands that belong to no instrument: "ping" and "shutdown".
    Commands(World& world, const Manipulators& manipulators);

    // What is done for the command of this form, as it is shown. travo::BoundsFailure for a form that the
    // table does not hold.
    void Add(std::string_view form, Handler handler);
    // The forms for which nothing has been added yet.
    std::vector<std::string> Missing() const;

    // The answer to a line, both without LF. Raises nothing, whatever the line holds.
    std::string Answer(std::string_view line, Time now);

    // Whether the line must wait: it is a driver call, and the driver hangs at this time.
    bool MustWait(std::string_view line, Time now) const;

    // Whether a shutdown was asked for.
    bool ShutdownWanted() const { return shutdownWanted_; }

private:
    World& world_;
    const Manipulators& manipulators_;
    std::map<std::string, Handler, std::less<>> handlers_;
    bool shutdownWanted_ = false;
};

}  // namespace workbench
