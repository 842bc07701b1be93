// One pseudo-terminal: the workbench has the one end, whoever opens the port gets the other, raw.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

// The kernel counts who has the far end open, and the near end shows a hang-up exactly while nobody has: so
// the workbench must not keep the far end open itself. It opens it for a moment when it is made and after
// each closing, to set it raw and to empty it. What is set stays with the pair as long as the near end lives.
// Raises std::system_error where there is none to be had.
class PseudoTerminal {
public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // The device of the far end.
    const std::string& Name() const { return name_; }
    // The near end; becomes readable when there is something to read or the far end is closed.
    int Descriptor() const { return near_; }

    // Whether anybody has the far end open.
    bool IsOpen() const;
    // All that has come, also what was written before a closing.
    std::string Read();
    // Writes what there is room for. Like a wire, it keeps nothing for a reader that does not read.
    void Write(std::string_view bytes);
    // To be called after a closing: drops what the last reader left, and sets the far end raw. False where it
    // cannot be opened: a program that claimed it for itself alone was killed, and the claim
    // stays with the pair. A new pair is needed then.
    bool Refresh();

private:
    int near_ = -1;
    std::string name_;
};

}  // namespace workbench
