// One reading of the world: what all plates show.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace workbench {

// A place in the common frame, X right, Y down, Z up, in common units; or three counts of a manipulator.
struct Place {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    QPointF Plan() const { return {x, y}; }
    bool operator==(const Place&) const = default;
};

struct SceneNeedle {
    bool connected = true;
    Place tip;
    Place rest;    // where the tip will come to rest; the tip itself at rest
    QPointF rear;  // the end of the shaft in plan view: the place at X counts 0
    bool moving = false;

    bool operator==(const SceneNeedle&) const = default;
};

struct SceneCell {
    Place centre;
    double radius = 0.0;  // common units
    // The mirror counts that bring it to the centre of the view.
    int mirrorX = 0;
    int mirrorY = 0;

    bool operator==(const SceneCell&) const = default;
};

struct SceneCrossing {
    int needleA = 0;  // 1 to 4, below needleB
    int needleB = 0;
    double time = 0.0;  // ms since the bench began
    QPointF place;

    bool operator==(const SceneCrossing&) const = default;
};

// The last landing that the bench has measured. Nothing but count is filled while count is 0.
struct SceneLanding {
    int count = 0;          // in all since the last "Forget"
    double worst = 0.0;     // common units
    int needle = 0;         // 1 to 4
    int cell = 0;           // 1 to 6; 0 is the view
    double distance = 0.0;  // in plan
    double height = 0.0;    // of the tip above the centre; below it negative
    double time = 0.0;      // ms since the bench began
    QPointF centre;         // the centre that was meant

    bool operator==(const SceneLanding&) const = default;
};

struct SceneMirror {
    QPointF now;   // counts, between whole ones while it moves
    QPointF rest;  // counts
    bool motorsOn = true;
    bool limitX = false;
    bool limitY = false;

    bool operator==(const SceneMirror&) const = default;
};

struct SceneFocus {
    double z = 0.0;  // of the focal plane
    double rest = 0.0;
    int counts = 0;  // of the motor
    int countsAtRest = 0;

    bool operator==(const SceneFocus&) const = default;
};

struct SceneWire {
    std::string name;  // "mirror", "gauge", "motor"
    std::string port;
    bool cableIn = true;
    bool open = false;

    bool operator==(const SceneWire&) const = default;
};

// One record of what went over wires and to the driver, or happened.
struct TrafficRecord {
    double time = 0.0;   // ms since the bench began
    std::string source;  // "mirror", "gauge", "motor", "driver", "world"
    std::string kind;    // "in", "out", "apart", "whole", "note", "call", "event"
    std::string bytes;   // as in a log, but with blanks and slashes as they are; line ends included
    bool operator==(const TrafficRecord&) const = default;
};

struct Scene {
    // ms since 1970 at which the bench's time was 0: times of the world as times of the day.
    std::int64_t beganAt = 0;
    int picked = 1;    // the needle chosen in this window, 1 to 4
    int selected = 1;  // the one selected at the hardware, 1 to 4
    std::array<SceneNeedle, 4> needles;
    Place counts;  // of the picked needle
    std::vector<SceneCell> cells;
    QPointF view;           // centre of the field of view
    int magnification = 2;  // 1 is 0.35x, 2 is 2x, 3 is 4x; 0 stands between two objectives
    QSizeF field;           // width and height of the view in common units; empty between two objectives
    SceneMirror mirror;
    SceneFocus focus;
    double gauge = 0.0;                    // its reading, in Z units
    double gaugeZero = 0.0;                // the Z at which it shows 0
    bool gaugeKeys = true;                 // its keys are enabled
    int crossingsInAll = 0;                // since the last "Forget"
    std::vector<SceneCrossing> crossings;  // oldest first
    SceneLanding landing;
    std::vector<SceneWire> wires;
    std::vector<std::string> faults;               // as "fault list" names them
    std::map<std::string, int> faultsLeft;         // of the counting ones; -1 for always
    std::map<std::string, std::int64_t> counters;  // driver calls received, by name
    bool cameraRunning = false;
    // What is new since the reading before. A scene is handed on once.
    std::vector<TrafficRecord> traffic;
    std::int64_t trafficNext = 0;  // the serial to ask for next
    std::int64_t trafficLost = 0;  // records that were gone before they were asked for, in this reading

    const SceneNeedle& Needle(int number) const { return needles[static_cast<std::size_t>(number - 1)]; }
    const SceneNeedle& PickedNeedle() const { return Needle(picked); }
};

// All three wires are there and open.
bool AllOpen(const Scene& scene);
// No wire is open.
bool AllShut(const Scene& scene);
// A needle, the mirror or the focus is under way.
bool AnythingMoves(const Scene& scene);
// Distance of two places in plan, in common units.
double PlanDistance(const QPointF& a, const QPointF& b);
// Which way X counts advance a needle in plan view, as a vector of length 1: along its shaft, and where that
// has no length, as the needle of that number (1 to 4) is mounted when nothing else is said.
QPointF DirectionOf(const SceneNeedle& needle, int number);
// Seconds until a needle rests: its longest way in counts at 4000 counts a second. 0 at rest.
double SecondsToGo(const SceneNeedle& needle, int number);
// The needle of the last landing still stands where it landed.
bool LandingStands(const Scene& scene);

}  // namespace workbench
