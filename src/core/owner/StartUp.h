// Start-up: from the refusal of a second program to the running position loop, in a fixed order.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "core/owner/FormMainObjects.h"
#include "core/owner/PositionLoop.h"
#include "core/state/SharedState.h"
#include "core/state/WindowPlace.h"
#include "platform/Machine.h"

namespace travo {

class StartUp {
public:
    enum class Outcome { GoOn, End };

    // A small window: its number among the operator's window buttons, its section in the settings, and
    // its design size in logical units.
    struct SmallWindow {
        std::int32_t Index;
        QString section;
        WindowSize design;
    };

    // What of the start-up only the window itself can do.
    class Window {
    public:
        virtual ~Window() = default;
        // Design size of the main window in logical units at a display scale of 1.
        virtual WindowSize DesignSize() const = 0;
        // The design size at the display's scale; the size to which the window can be brought back.
        virtual void DefaultSize(const WindowSize& size) = 0;
        // The panels come into being, when all objects are there.
        virtual void ConstructPanels() = 0;
        virtual void Place(const WindowPlace& place) = 0;
        // The small windows, in the order in which they come into being, hidden.
        virtual std::vector<SmallWindow> SmallWindows() = 0;
        virtual void PlaceSmallWindow(std::int32_t Index, const WindowPlace& place) = 0;
        // The time of needle's calibration (0) or re-calibration (1), as it is to be read; "-1" for none.
        virtual void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) = 0;
        // 1: the offsets' minimum, or the contact check, was switched off at the end of the last run.
        virtual void RestoreSafeguards(std::int32_t offsetOFF, std::int32_t contactOFF) = 0;
        // 1: the bird's-eye view hid the needles' shafts, or stood open, at the end of the last run.
        virtual void RestoreBirdView(std::int32_t lineOFF, std::int32_t birdOPEN) = 0;
        // The port of mirror (0), gauge (1) or motor (2) has been opened: shows its number and starts
        // its watch.
        virtual void WatchPort(std::int16_t device, std::int16_t number) = 0;
        // Tells all that show it the highest connected index.
        virtual void TellTotalManipulatorNumber() = 0;
        // Lays out tabs and panels and selects the first tab.
        virtual void SelectFirstTab() = 0;
        // Window 1 to 4 was open at the end of the last run.
        virtual void ShowWindow(std::int32_t Index) = 0;
        // The camera that was open cannot be created or shown: its button goes up.
        virtual void RaiseCameraButton() = 0;
    };

    StartUp(const platform::Machine& machine, SharedState& state, FormMainObjects& objects,
            PositionLoop& loop, Window& window);

    // Refuses a second instance, creates the objects, finds the data folder, empties the log. End: the
    // operator has been told why, everything is released, and the process must end.
    Outcome Initialize();
    // Connects the manipulators, restores all that is kept between runs, starts the position loop.
    // End: the operator has been told why; the process must end with nothing saved.
    Outcome Load();
    // Creates and shows the camera if it was open at the end of the last run. The last step of the load,
    // to be called once the main window is on show: a camera program that does not come up blocks for
    // 10 s. Tells the operator of failures. Does nothing where the camera has been opened meanwhile.
    void OpenCamera();

private:
    Outcome InitializeSteps();
    Outcome LoadSteps();
    void ReportInitializeFailure();
    QString MakeDataFolder();
    void MeasureDisplay();
    WindowSize AtDisplayScale(const WindowSize& design) const;
    void RestoreWindowPlaces();
    void RestoreCalibrationTimes(std::int32_t needle);
    void OpenWindows();
    void ClearPositions();
    Outcome ConnectManipulators();
    struct PortNumbers {
        std::int16_t mirror = -1;
        std::int16_t magnescale = -1;
        std::int16_t motor = -1;
    };

    void RestoreValues();
    PortNumbers ReadPortNumbers() const;
    void OpenPorts(const PortNumbers& ports);
    void RestoreCalibration(std::int32_t needle);
    bool RestoreCalibrationAxis(std::int32_t needle, std::int32_t axis);

    const platform::Machine& machine_;
    SharedState& state_;
    FormMainObjects& objects_;
    PositionLoop& loop_;
    Window& window_;
    WindowSize defaultSize_;
};

}  // namespace travo
