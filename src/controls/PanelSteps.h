// What every panel of the main window does when it comes and goes.
#pragma once

namespace travo {

// Called by the owner at a change of panel, and at nothing else: Qt's own show and hide events come also
// when the window is minimised, and a failure that is raised in one of them reaches no handler.
class PanelSteps {
public:
    virtual ~PanelSteps() = default;
    virtual void Shown() = 0;
    virtual void Hidden() = 0;
};

}  // namespace travo
