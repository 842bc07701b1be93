// The workbench's text protocol: one line in, one line out, without any transport.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/Manipulators.h"
#include "workbench/World.h"

namespace workbench {

// All commands are told in docs/workbench.md. Needle numbers are 1-based here, as on the hardware.
class Commands {
public:
    // The longest line that means anything, without its LF.
    static constexpr std::size_t LongestLine = 4096;

    // The folder is the program folder of the control program, or empty: where write-settings writes
    // if it is told no file.
    Commands(World& world, Manipulators& manipulators, std::string programFolder);

    // The answer to a line, both without LF. Driver calls answer "status" and numbers; the others "ok",
    // with values, or "error" and a sentence. Raises nothing, whatever the line holds.
    std::string Answer(std::string_view line, Time now);

    // Whether the line must wait: it is a driver call, and the driver hangs at this time.
    bool MustWait(std::string_view line, Time now) const;

    // Whether a shutdown was asked for.
    bool ShutdownWanted() const { return shutdownWanted_; }

private:
    using Words = std::vector<std::string_view>;
    // A command gets the words after its name, and answers what follows "ok" (or all, for a driver call).
    using Command = std::function<std::string(const Words& words, Time now)>;

    void AddDriverCommands();
    void AddWorldCommands();
    void AddFaultCommands();
    void AddOtherCommands();

    std::string FailCalls(const Words& words);
    std::string Hang(const Words& words, Time now);
    std::string Stray(const Words& words);
    std::string Remount(const Words& words, Time now);
    std::string Crossings() const;
    std::string Counters() const;
    std::string Write(const Words& words);

    World& world_;
    Manipulators& manipulators_;
    std::string programFolder_;
    // Under one word, or two with a blank between.
    std::map<std::string, Command, std::less<>> commands_;
    bool shutdownWanted_ = false;
};

}  // namespace workbench
