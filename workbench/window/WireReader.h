// Bytes to meaning: what the records of the traffic say.
#pragma once

#include <QString>
#include <string>

#include "workbench/window/Scene.h"

namespace workbench {

// Which way a line of the traffic went.
enum class Way { ToInstrument, FromInstrument, Event };

struct WireMeaning {
    QString bytes;         // as shown: without line ends, other bytes as in a log
    QString text;          // what they mean; "not known"
    bool bad = false;      // a refusal, a driver status below 0, what a fault touched, a crossing
    bool refusal = false;  // a refusal of an instrument or the driver
    bool folds =
        false;  // a question that is asked over and over, its answer, or the status line of each second
};

Way WayOf(const TrafficRecord& record);
WireMeaning MeaningOf(const TrafficRecord& record);

}  // namespace workbench
