// What the diagnostics tell, as values: the window shows them and the report prints them.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "diagnostics/judge/CalibrationJudgement.h"
#include "diagnostics/words/StateTexts.h"

namespace travo::diagnostics {

struct Detail {
    QString label;
    QString value;

    bool operator==(const Detail&) const = default;
};

// In their fixed order.
enum class Link { Mirror, Gauge, Motor, Needles, Camera, Settings };

struct LinkCard {
    Link link = Link::Mirror;
    StateText text;
    std::vector<Detail> details;
};

struct NeedleCard {
    int number = 1;  // as it is shown, from 1
    StateText text;
    QString word;    // as "Poor"
    QString full;    // when it was calibrated, or "none"
    QString centre;  // when its centre was recorded, "not recorded", or with "older" behind it
    // Of a calibrated needle whose points are not flat.
    std::optional<CalibrationFigures> figures;
    CalibrationGrades grades;
};

struct Page {
    std::vector<LinkCard> links;
    std::vector<NeedleCard> needles;
    QStringList log;  // its end, the newest line last
    std::vector<Detail> versions;
    QString lookedAt;            // hh:mm:ss
    bool isTravoRunning = true;  // false on the page of the own program beside no TRAVO
};

// "Mirror" and so on.
QString NameOf(Link link);

}  // namespace travo::diagnostics
