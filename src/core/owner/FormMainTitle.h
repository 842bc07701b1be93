// What the main window's title says: the program's name and behind it what the operator must not forget.
#pragma once

#include <QString>

namespace travo {

struct TitleNotes {
    // By the calibration panel, for the Z point, and not lowered since.
    bool isObjectiveRaised = false;
};

// The name alone where there is nothing to note; else each note behind " - ", in the order of the record.
QString FormMainTitle(const TitleNotes& notes);

}  // namespace travo
