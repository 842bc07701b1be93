// The running program before a live camera, whichever stands behind the seam: its window is worked with the
// mouse as the operator works it. All else of the machine is made of stand-ins.
#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include "core/owner/FormMain.h"
#include "platform/qt/QtPrivateProfile.h"
#include "support/CameraEar.h"
#include "support/FakeMachine.h"

namespace travo::test {

using Texts = std::vector<std::string>;

class LiveRig {
public:
    // What the settings file says of the camera. Where it was open, it comes with StartUp below.
    enum class AtLastEnd { CameraClosed, CameraOpen };

    // The program has started, and its window is on show but not painted.
    explicit LiveRig(platform::LiveCamera& camera, AtLastEnd atLastEnd = AtLastEnd::CameraClosed);

    // The window is painted, and what waits for that is done.
    void StartUp();
    // A click on the camera button, which then stands as said; fails the test where it does not.
    void Click(bool pressed);
    // A click on it, wherever it stands then.
    void Click();
    // Button 8 of the connection panel.
    void AttachButton();
    // The operator closes the window and answers the question with OK.
    void Closing();

    // Brings the panel with button 8 to the front. Each click above brings its panel there itself; a camera
    // that is open is told of a change.
    void ShowConnectionPanel();

    // How things stand, as the program has it.
    SharedState& State() { return window_->State(); }
    LiveLink& Link() { return *window_->Objects().Live; }
    bool ButtonPressed() const;
    // The texts of the boxes but the question of the close.
    Texts Boxes() const;
    // What the camera has told and the program has taken up.
    const Texts& Told() const { return ear_.told; }
    void ForgetTold() { ear_.told.clear(); }

private:
    void OpenTab(int tab);
    static void ClickOn(QWidget& control);
    template <class Control>
    Control& Find(const QString& panel, const QString& name) const;

    QTemporaryDir program_;
    QTemporaryDir data_;
    FakeMachine machine_;
    platform::QtPrivateProfile profile_;
    CameraEar ear_;
    std::unique_ptr<FormMain> window_;
};

}  // namespace travo::test
