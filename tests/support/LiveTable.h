// What comes of each step of operator, program and camera in each state of the camera: one table for every
// camera behind the seam, taken through the running program.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/LiveRig.h"

namespace travo::test {

enum class LiveStep {
    StartUp,       // the start's last step, with the camera open at the last closing
    PressButton,   // the camera button
    RaiseButton,   // the camera button
    AttachButton,  // button 8 of the connection panel
    Closing,       // the main window closes
    WindowClose,   // the operator closes the camera
    WindowHide,    // the operator hides the camera
    BirdViewSave,  // the camera has saved its picture
    Lost           // the camera's process has gone
};

// Wanted: the camera was open at the last end, and the start's last step is still to come.
enum class LiveSituation { NoCamera, Wanted, Visible, Hidden, ClosedByItself };

// A camera with the means to see and to work its other side.
class LiveStage {
public:
    virtual ~LiveStage() = default;
    virtual platform::LiveCamera& Camera() = 0;
    // The calls that the camera has got, in order, since it was asked last.
    virtual Texts Calls() = 0;
    // Lets the camera do its own side of the step; the desk hears of it by the event loop or at once. Those
    // of the system itself are nothing here.
    virtual void Tell(LiveStep step) = 0;
};

struct LiveRow {
    LiveSituation before;
    LiveStep step;
    LiveSituation after;
    Texts calls;
    Texts told;  // by the camera
};

// The row as a test's name.
std::string LiveRowName(const LiveRow& row);

// Every step in every situation in which it can be taken.
const std::vector<LiveRow>& LiveTable();

// Brings a new desk into the situation, takes the step, and compares.
void CheckLiveRow(const LiveRow& row, LiveStage& stage);

}  // namespace travo::test
