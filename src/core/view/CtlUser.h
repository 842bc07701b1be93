// The panel of the operator's settings: offsets, safeguards, way of working, windows.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "controls/NumberBox.h"
#include "controls/NumberLabel.h"
#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/state/clsIniEdit.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsObjectiveUpDown.h"
#include "platform/Folders.h"
#include "platform/PrivateProfile.h"

namespace travo {

// Window buttons, and the keys of the settings that go with them: 0 is the live camera, 1 FormBirdView,
// 2 FormMirrorCtl, 3 FormManiInfo, 4 FormMirrorCtl2. Pressed is open.
class CtlUser : public PanelCanvas,
                public PanelSteps,
                public HearsFormClose,
                public HearsCameraHidden,
                public HearsCameraGone {
    Q_OBJECT

public:
    // What only the owner can do. What these raise at a window button is reported there.
    class Owner {
    public:
        virtual ~Owner() = default;
        // True selects tab mode, false step mode.
        virtual void ModeChange(bool bWizerd) = 0;
        // Window 1 to 4, non-modal.
        virtual void ShowWindow(std::int32_t Index) = 0;
        virtual void HideWindow(std::int32_t Index) = 0;
    };

    struct System {
        SharedState& state;
        LiveLink& live;
        clsNeedleMove& needleMove;
        clsObjectiveUpDown& objective;
        FailureHandler& failures;
        platform::PrivateProfile& profile;
        const platform::Folders& folders;
        Owner& owner;
    };

    // programFolder holds the settings file and the folder skin. Reads which windows were open at the end
    // of the last run; opens none.
    CtlUser(const System& system, const QString& programFolder, QWidget* parent = nullptr);
    // Writes which windows are open, unless SaveWindowsAtEnd(false).
    ~CtlUser() override;

    // Off: the end of this panel leaves the settings file untouched, for a run that never came to load.
    void SaveWindowsAtEnd(bool save) { saveWindowsAtEnd_ = save; }

    // Writes which windows are open. The end of the panel writes them again only where they have changed
    // since.
    void SaveWindows();

    void Shown() override;
    void Hidden() override {}

    // 1 while offsets below their minimum are accepted, else 0. Writing checks no offset.
    std::int32_t OffsetONOff() const { return switches_[OffsetSwitch].Value() ? 1 : 0; }
    void OffsetONOff(std::int32_t ONOff);
    // 1 while a predicted contact does not stop a needle, else 0. Writing tells the needle moves.
    std::int32_t ContactONOff() const { return switches_[ContactSwitch].Value() ? 1 : 0; }
    void ContactONOff(std::int32_t ONOff);

    // A secondary window has been closed by its own button. BoundsFailure unless Index is 0 to 4.
    void FormClose(std::int32_t Index) override;
    // The operator has hidden the camera window from its side.
    void LiveFromHide() override;
    // Raises the camera button (true) or presses it, and nothing else.
    void LiveButtonChange(bool bONOFF);
    // Raises the camera button.
    void CameraGone() override { LiveButtonChange(true); }

private:
    static constexpr std::int32_t CameraWindow = 0;
    static constexpr std::size_t WindowCount = 5;
    static constexpr std::size_t OffsetXY = 0;
    static constexpr std::size_t OffsetZ = 1;
    static constexpr std::size_t OffsetSwitch = 0;
    static constexpr std::size_t ContactSwitch = 1;
    static constexpr std::size_t TabMode = 0;
    static constexpr std::size_t StepMode = 1;
    enum class Minimum { Told, Silent };

    void Place();
    void PlacePaint();
    void PlaceOffsets();
    void PlaceSwitches();
    void PlaceWindows();
    void PlaceVersion();
    void Connect();

    void ReadWindows();
    using OpenWindows = std::array<bool, WindowCount>;
    OpenWindows WindowsNow() const;

    void OffsetTextChanged(NumberBox& box);
    void ShowOffset(NumberBox& box, std::int32_t value);
    // Both offsets from their boxes; OverflowFailure beyond 32 bits.
    void ApplyOffsets(Minimum minimum);
    void ApplyOffset(NumberBox& box, std::int32_t least, std::int32_t& offset, Minimum minimum,
                     const QString& text);
    void SwitchClicked(std::size_t Index);
    void ModeClicked(std::size_t Index);

    // Shows or hides the window as its button stands.
    void WindowToggle(std::int32_t Index);
    void CameraToggle(bool pressed);
    // False: the operator has been told, and the button is raised.
    bool CreateCamera();
    usrKVCheckButton& WindowButton(std::int32_t Index);

    System system_;
    // Works on the same file as the owner's, which has not been set up when this panel reads.
    clsIniEdit cIniEdit_;
    bool saveWindowsAtEnd_ = true;
    std::optional<OpenWindows> saved_;
    // Follows the offset switch: true when it is pressed.
    bool bOffsetOFF_ = false;

    std::array<NumberBox, 2> offsets_;
    NumberLabel minimum_;
    usrKVButton apply_;
    std::array<usrKVCheckButton, 2> switches_;
    std::array<usrKVCheckButton, 2> modes_;
    std::array<usrKVCheckButton, WindowCount> windows_;
    NumberLabel version_;
};

}  // namespace travo
