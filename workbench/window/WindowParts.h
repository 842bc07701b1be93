// The parts that the window consists of, each a plate of its own.
#pragma once

namespace workbench {

class BenchTab;
class DarkFrame;
class DepthStrip;
class FaultPlate;
class FocusLine;
class FocusPlate;
class HeaderStrip;
class JoystickPlate;
class LessonCard;
class MirrorPlate;
class ScorePlate;
class TrafficPlate;
class TruthLine;
class TruthTools;
class TruthView;

// All are children of the window, which owns them.
struct WindowParts {
    HeaderStrip* header = nullptr;
    LessonCard* card = nullptr;
    TruthTools* tools = nullptr;
    TruthView* plan = nullptr;
    DepthStrip* heights = nullptr;
    TruthLine* line = nullptr;
    DarkFrame* frame = nullptr;
    ScorePlate* score = nullptr;
    BenchTab* joystickTab = nullptr;
    BenchTab* mirrorTab = nullptr;
    JoystickPlate* joystick = nullptr;
    MirrorPlate* mirror = nullptr;
    FocusPlate* focus = nullptr;
    TrafficPlate* traffic = nullptr;
    FaultPlate* faults = nullptr;
    FocusLine* focusLine = nullptr;
};

}  // namespace workbench
