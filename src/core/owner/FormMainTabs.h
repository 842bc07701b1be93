// Which panel is on show: chosen by the tab strip, or step by step.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>

#include "controls/PanelSteps.h"
#include "controls/SkinTab.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/owner/FormMainLayout.h"
#include "core/state/LiveLink.h"

namespace travo {

class FormMainTabs {
public:
    // A panel of the main window and its steps; both null for a place without a panel.
    struct Panel {
        QWidget* widget = nullptr;
        PanelSteps* steps = nullptr;
    };
    struct Panels {
        Panel calibration;
        Panel cellPosition;
        Panel connection;
        Panel escape;
        Panel experiment;
        Panel user;
    };
    struct Controls {
        std::array<SkinTab*, FormMainLayout::TabPictureCount> imgTab;
        std::array<usrKVButton*, 2> usrKVButton2;
        usrKVCheckButton* usrKVCheckButton1;
    };
    // The last step, and the side visit to the user panel.
    static constexpr std::int16_t LastStep = 4;
    static constexpr std::int16_t UserStep = 5;

    // `resize` is the window's resize step.
    FormMainTabs(const Controls& controls, const Panels& panels, FormMainLayout& layout, LiveLink& live,
                 std::function<void()> resize);

    // A click on a tab picture, 0 to 17; that of the tab selected already does nothing.
    void TabClick(int index);
    // True selects tab mode, false step mode.
    void ModeChange(bool bWizerd);
    // Previous (0) or Next (1).
    void StepButtonClick(int index);
    // The user button, which has its new state.
    void UserButtonClick();

    // Takes the focus from a control of the window that has gone off: to the tab of the panel on show, in
    // step mode to a step button that is enabled. Nothing happens during a change of panel, whose end does
    // the same.
    void KeepFocus();

    // The step on show, 0 to 4; on a side visit to the user panel the one that was left. For the trail.
    std::int16_t ShownStep() const { return shownStep_; }

private:
    // A change of panel: pictures and panels come and go in it, and the focus waits for its end.
    class Change {
    public:
        explicit Change(FormMainTabs& tabs) : tabs_(tabs) { ++tabs_.changes_; }
        ~Change();
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;

    private:
        FormMainTabs& tabs_;
    };

    // The control that is safe to have the focus; none where all are off.
    QWidget* FocusPlace() const;
    QWidget& Window() const { return *controls_.usrKVCheckButton1->window(); }
    void ShowStep(std::int16_t step);
    void HideAllPanels();
    void ShowPanel(const Panel& panel);
    const Panel& PanelOfTab(int tab) const;
    const Panel& PanelOfStep(std::int16_t step) const;

    Controls controls_;
    Panels panels_;
    FormMainLayout& layout_;
    LiveLink& live_;
    std::function<void()> resize_;
    PanelSteps* shown_ = nullptr;
    int changes_ = 0;
    std::int16_t intWizardStep_ = 0;
    std::int16_t shownStep_ = 0;
};

}  // namespace travo
