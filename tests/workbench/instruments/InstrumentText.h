// What an instrument says, as one text.
#pragma once

#include <string>

#include "workbench/instruments/Instrument.h"

namespace workbench {

inline std::string SaidBy(Instrument& instrument) {
    std::string text;
    for (const WireLine& line : instrument.TakeLines()) {
        text += line.bytes;
    }
    return text;
}

inline std::string AnswerOf(Instrument& instrument, std::string_view bytes, Time now) {
    instrument.Receive(bytes, now);
    return SaidBy(instrument);
}

inline std::string SaidAt(Instrument& instrument, Time now) {
    instrument.Advance(now);
    return SaidBy(instrument);
}

}  // namespace workbench
