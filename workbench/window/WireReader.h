// Bytes to meaning: what the records of the traffic say.
#pragma once

#include <QString>

#include "workbench/window/Scene.h"

namespace workbench {

// Which way a line of the traffic went.
enum class Way { ToInstrument, FromInstrument, Event };

struct WireMeaning {
    QString bytes;         // as shown: without line ends, other bytes as in a log
    QString text;          // what they mean; "not known"
    bool bad = false;      // a refusal, a driver status below 0, what a fault touched, a crossing
    bool refusal = false;  // a refusal of an instrument or of the driver
    // What is asked, or told, over and over: its question and answers may share one line while they are of
    // one kind. Empty for all else.
    QString question;
    QString kind;
    bool asks = false;     // the record is the question,
    bool answers = false;  // or its answer; a driver call is both
};

Way WayOf(const TrafficRecord& record);

// Every record has a meaning; what is not known of an instrument's own lines is bad, since an instrument says
// nothing else unless a fault makes it.
WireMeaning MeaningOf(const TrafficRecord& record);

// Of a line from the instrument: a fault touched the next one that goes out on that wire.
bool TouchesNext(const TrafficRecord& record);

}  // namespace workbench
