// What panels and small windows ask of their owner.
#pragma once

#include <functional>
#include <memory>

#include "core/owner/Announcements.h"
#include "core/owner/FormMainPanels.h"
#include "core/owner/FormMainTabs.h"
#include "core/owner/FormMainWindows.h"
#include "core/owner/PositionLoop.h"
#include "core/state/SharedState.h"

namespace travo {

// Each request goes to the one that can do it; what is news for others goes to the announcements. Handed out
// before there are panels and windows: they ask once all of them are there, but for the bird's-eye view,
// which asks for the experiment's cell when it comes into being, behind the panels.
class FormMainRequests : public CtlUser::Owner,
                         public CtlCellPosition::Owner,
                         public CtlCalibration::Owner,
                         public CtlEscape::Owner,
                         public CtlConnection::Owner,
                         public FormBirdView::Owner,
                         public FormSkinned::Owner {
public:
    // Where panels, tabs and windows are once they have come into being.
    struct Rooms {
        const std::unique_ptr<FormMainPanels>& panels;
        const std::unique_ptr<FormMainTabs>& tabs;
        const std::unique_ptr<FormMainWindows>& windows;
    };

    // objectiveRaised: the objective stands raised for the Z point, or no longer.
    FormMainRequests(const SharedState& state, Announcements& news, PositionLoop& loop, const Rooms& rooms,
                     std::function<void(bool)> objectiveRaised);

    // CtlUser::Owner
    void ModeChange(bool bWizerd) override;
    void ShowWindow(std::int32_t Index) override;
    void HideWindow(std::int32_t Index) override;
    // CtlCellPosition::Owner
    void ZeroPointReset() override;
    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) override;
    // CtlCalibration::Owner
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override;
    void ObjectiveRaised(bool isRaised) override;
    // CtlEscape::Owner
    bool IsLit(std::int16_t needle) const override;
    void TakeLampsFrom(std::int16_t needle) override;
    // CtlConnection::Owner
    void chkMirror(bool isConnected) override;
    // FormBirdView::Owner
    std::int16_t ExperimentCellNo() const override;
    // FormSkinned::Owner
    void FormClose(std::int32_t Index) override;

private:
    const SharedState& state_;
    Announcements& news_;
    PositionLoop& loop_;
    const Rooms rooms_;
    std::function<void(bool)> objectiveRaised_;
};

}  // namespace travo
