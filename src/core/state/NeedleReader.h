// Reading the needle that is selected at the hardware, for whoever must know it before it acts.
#pragma once

namespace travo {

class NeedleReader {
public:
    virtual ~NeedleReader() = default;
    // Reads the selected needle once, as a tick of the position loop does: number and place of the shared
    // state follow, and a change of needle is told. False when nothing could be read, which leaves the shared
    // state as it was; raises and reports nothing.
    virtual bool ManipulatorReload() = 0;
};

}  // namespace travo
