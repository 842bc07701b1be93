// The panel that leads the operator through the calibration of one needle at a time.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/SkinImage.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/NeedleReader.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/state/clsIniEdit.h"
#include "devices/links/clsCommunication.h"
#include "needle/clsNeedleMove.h"
#include "platform/Clock.h"
#include "workflows/CtlCalibrationRaise.h"
#include "workflows/CtlCalibrationRecording.h"
#include "workflows/CtlCalibrationValues.h"
#include "workflows/CtlCalibrationWarning.h"

namespace travo {

// A full calibration records four positions of a needle: its tip on three marks of the image (points 0 to
// 2) and in focus under the raised objective (point 3). A re-calibration records one, the tip on the
// centre, and moves the reference point only. What has been captured stays here until SET.
//
// The needle that is lit is the one that acts: where another was read last, a capture, SET and RESET read
// once before they act, and record, keep and clear nothing where the lit one is not selected even then.
//
// Presses of a capture button and of SET, RESET and ALLRESET report their failures themselves. A camera
// that does not answer disturbs nothing: it is told without waiting. All else goes to the caller.
class CtlCalibration : public PanelCanvas,
                       public PanelSteps,
                       public HearsMagnification,
                       public HearsTotalManipulatorNumber,
                       public HearsManipulatorChange {
    Q_OBJECT

public:
    static constexpr std::int16_t NoNeedle = -1;
    // From one change of the blinking warning to the next, in milliseconds.
    static constexpr int BlinkPeriod = 1000;

    // What only the owner can do.
    class Owner : public CtlCalibrationRaise::Listener {
    public:
        // The time of a needle's calibration (CalibOrRe 0) or re-calibration (1), as it is to be read; "-1"
        // for none. ManiNo is 0 to 3.
        virtual void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) = 0;
    };

    // Each outlives the panel.
    struct System {
        SharedState& state;
        clsCommunication& communication;
        clsNeedleMove& needleMove;
        clsIniEdit& iniEdit;
        LiveLink& live;
        FailureHandler& failures;
        const platform::Clock& clock;
        platform::Timers& timers;
        Owner& owner;
        NeedleReader& needle;
    };

    // programFolder holds the folder skin. Full calibration is chosen.
    CtlCalibration(const System& system, const QString& programFolder, QWidget* parent = nullptr);

    // The highest connected needle index, -1 for none. A fifth manipulator has no button.
    void TotalManipulatorNumber(std::int16_t ManipulatorNumber) override;
    // Another needle, index 0 to 3, is selected at the hardware. BoundsFailure for any other.
    void ManipulatorChange(std::int16_t ManipulatorNumber) override;
    // Likewise, without asking gauge and mirror.
    void ShowNeedle(std::int16_t ManipulatorNumber);
    // The needle whose button is down, index 0 to 3; NoNeedle until one has been chosen or read.
    std::int16_t LitNeedle() const;
    // The magnification has been written. Positions are recorded at 2x alone.
    void ChangeMagnification(std::int16_t Magnification) override;

    void Shown() override;
    void Hidden() override;

private:
    static constexpr std::size_t MarkCount = CtlCalibrationRecording::MarkCount;
    static constexpr std::size_t PointZ = CtlCalibrationRecording::PointZ;
    static constexpr std::size_t PointCenter = CtlCalibrationRecording::PointCenter;
    static constexpr std::size_t CaptureCount = CtlCalibrationRecording::PointCount;
    static constexpr std::size_t FullCalibration = 0;
    static constexpr std::size_t SetButton = 0;
    static constexpr std::size_t ResetButton = 1;
    static constexpr std::size_t AllResetButton = 2;
    static constexpr std::size_t PictureCount = 3;

    enum class Step { Marks = 0, RaisedFocus = 1, Center = 2, AfterFullCalibration = 3 };

    void Place();
    void PlaceModeAndNeedle();
    void PlaceRecord();
    void PlaceConfirm();
    void Connect();

    // Index is 0 to 4: the marks, Z, the centre.
    void CapturePressed(std::size_t Index);
    // False where the tip that was read is another needle's than the one that is lit: nothing is recorded.
    bool Capture(std::size_t Index);
    // Nothing has been captured: the next press captures.
    void Free(std::size_t Index);
    // Reads once where the lit needle is not the one that was read last; false where it is not even then,
    // with the lamp at the one that is.
    bool LitNeedleIsSelected();
    void GoOnAfter(std::size_t Index);

    void ConfirmPressed(std::size_t Index);
    void Confirm(std::int16_t needle);
    void Clear(std::int16_t needle);
    void ModePressed(std::size_t Index);
    void NeedlePressed(std::int16_t Index);

    void ChangeCalibrationStep(Step step);
    void EnterStepOfMode();
    // All of a step but the camera.
    void ShowStep(Step step);
    Step StepOfMode() const;

    bool At2x() const;
    // What needs the gauge, besides the needle buttons.
    void EnableRecording(bool enabled);
    void EnableNeedles(std::int16_t highest, bool enabled);
    // Shows one of a group as pressed and the others as raised.
    template <std::size_t Count>
    static void PressOnly(std::array<usrKVCheckButton, Count>& group, std::size_t pressed);

    const System system_;

    CtlCalibrationValues values_;
    CtlCalibrationRecording recording_;
    CtlCalibrationRaise raise_;

    std::array<usrKVCheckButton, 2> modeButton_;
    std::array<usrKVCheckButton, NeedleCount> needleButton_;
    std::array<SkinImage, PictureCount> imgCalibPos_;
    std::array<usrKVCheckButton, CaptureCount> captureButton_;
    CtlCalibrationWarning lblWaring_;
    std::array<usrKVButton, 3> confirmButton_;
    std::unique_ptr<platform::Timer> Timer1_;
};

}  // namespace travo
