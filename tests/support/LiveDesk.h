// The system's side of the live camera, as start-up, panels and closing work the link; and the table of
// what comes of each step in each state, for any camera behind the seam.
#pragma once

#include <string>
#include <vector>

#include "core/state/LiveLink.h"
#include "core/state/SharedState.h"

namespace travo::test {

using Texts = std::vector<std::string>;

// What the operator and the panels do, and what the camera tells.
enum class LiveStep {
    StartUp,       // start-up with the camera open at the last closing
    PressButton,   // the camera button
    RaiseButton,   // the camera button
    AttachButton,  // button 8 of the connection panel
    Closing,       // the main window closes
    WindowClose,   // the operator closes the camera
    WindowHide,    // the operator hides the camera
    BirdViewSave,  // the camera has saved its picture
    Lost           // the camera's process has gone
};

enum class LiveSituation { NoCamera, Visible, Hidden, ClosedByItself };

class LiveDesk : private SharedState::Listener, private LiveLink::Listener {
public:
    explicit LiveDesk(platform::LiveCamera& camera) : link(camera, state, *this) {}

    void StartUp();
    // A click on the camera button; pressed is the state that it leaves the button in.
    void Click(bool pressed);
    void AttachButton();
    void Closing() { link.AnnounceHideWindow(); }
    // The steps of the system itself; those of the camera do nothing here.
    void Do(LiveStep step);

    SharedState state{*this};
    LiveLink link;
    bool buttonPressed = false;
    Texts reported;  // by handlers
    Texts told;      // by the link

private:
    template <typename Body>
    void Handle(const std::string& text, Body body);

    void MagnificationChanged(std::int16_t magnification) override {
        link.AnnounceMagnification(magnification);
    }
    void ViewChanged() override {}
    void Live_BirdViewSave() override { told.emplace_back("BirdViewSave"); }
    void Live_WindowHide() override;
    void Live_WindowClose() override;
    void LiveDied() override;
};

// A camera with the means to see and to work its other side.
class LiveStage {
public:
    virtual ~LiveStage() = default;
    virtual platform::LiveCamera& Camera() = 0;
    // The calls that the camera has got, in order, since it was asked last.
    virtual Texts Calls() = 0;
    // Lets the camera do its own side of the step and waits until the desk has heard of it.
    virtual void Tell(LiveStep step, const LiveDesk& desk) = 0;
};

struct LiveRow {
    LiveSituation before;
    LiveStep step;
    LiveSituation after;
    Texts calls;
    Texts told;
};

// The row as a test's name.
std::string LiveRowName(const LiveRow& row);

// Every step in every situation in which it can be taken.
const std::vector<LiveRow>& LiveTable();

// Brings a new desk into the situation, takes the step, and compares.
void CheckLiveRow(const LiveRow& row, LiveStage& stage);

}  // namespace travo::test
