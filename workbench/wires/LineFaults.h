// What can befall a line between an instrument and the port.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include "workbench/instruments/Instrument.h"

namespace workbench {

// Chance comes from a generator with a fixed seed, so that a run can be repeated.
class LineFaults {
public:
    // The line as it goes out, or none. Counting faults count down by it.
    std::optional<WireLine> Befall(WireLine line);
    // Bytes of any value that belong to no line.
    WireLine Noise(std::size_t bytes);

    // The instrument hears and acts, but nothing comes back.
    void Silence(bool silent) { silent_ = silent; }
    // One byte of each of the next lines becomes another one.
    void Garble(std::int32_t lines) { garbledLines_ = lines; }
    // Of the next line only so many bytes come, its line end lost with the rest.
    void CutNext(std::size_t bytes) { cut_ = bytes; }
    // The line that waits to be cut comes whole.
    void EndCut() { cut_.reset(); }
    void Clear();

    bool Silent() const { return silent_; }
    bool Garbles() const { return garbledLines_ > 0; }
    std::int32_t GarbledLeft() const { return garbledLines_; }
    bool Cuts() const { return cut_.has_value(); }

private:
    char AnyByteBut(char byte);

    bool silent_ = false;
    std::int32_t garbledLines_ = 0;
    std::optional<std::size_t> cut_;
    std::minstd_rand chance_;
};

}  // namespace workbench
