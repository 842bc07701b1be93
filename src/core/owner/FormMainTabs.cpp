#include "core/owner/FormMainTabs.h"

#include <algorithm>

#include "controls/FocusMark.h"
#include "controls/Pressable.h"
#include "core/ground/Arithmetic.h"

namespace travo {

FormMainTabs::FormMainTabs(const Controls& controls, const Panels& panels, FormMainLayout& layout,
                           LiveLink& live, std::function<void()> resize)
    : controls_(controls), panels_(panels), layout_(layout), live_(live), resize_(std::move(resize)) {}

void FormMainTabs::TabClick(int index) {
    if (index < 6) {
        return;
    }
    const Change change(*this);
    for (SkinTab* const picture : controls_.imgTab) {
        picture->hide();
    }
    // Group A (experiment, calibration, cell position) in the lower row and B in the upper, or the reverse.
    const bool groupA = (index / 3) % 2 == 0;
    for (const int shown : groupA ? std::array{6, 7, 8, 15, 16, 17} : std::array{9, 10, 11, 12, 13, 14}) {
        controls_.imgTab.at(static_cast<std::size_t>(shown))->show();
    }
    const int unselected = index >= 12 ? index - 6 : index;
    controls_.imgTab.at(static_cast<std::size_t>(unselected))->hide();
    controls_.imgTab.at(static_cast<std::size_t>(unselected - 6))->show();
    HideAllPanels();
    live_.AnnouncePanelLeave();
    const Panel& panel = PanelOfTab(unselected - 6);
    if (&panel == &panels_.calibration) {
        live_.AnnounceCalibPoints();
    }
    ShowPanel(panel);
}

void FormMainTabs::ModeChange(bool bWizerd) {
    const Change change(*this);
    for (SkinTab* const picture : controls_.imgTab) {
        picture->setVisible(bWizerd);
    }
    layout_.Select(bWizerd ? FormMainLayout::Mode::Tabs : FormMainLayout::Mode::Steps);
    for (usrKVButton* const button : controls_.usrKVButton2) {
        button->setVisible(!bWizerd);
    }
    controls_.usrKVCheckButton1->setVisible(!bWizerd);
    if (bWizerd) {
        TabClick(6);
    } else {
        controls_.usrKVCheckButton1->SetRaised(true);
        ShowStep(0);
    }
    resize_();
}

void FormMainTabs::StepButtonClick(int index) {
    const int wanted = intWizardStep_ + (index == 1 ? 1 : -1);
    intWizardStep_ = ToInteger16(std::clamp<int>(wanted, 0, LastStep));
    controls_.usrKVCheckButton1->SetRaised(true);
    ShowStep(intWizardStep_);
}

void FormMainTabs::UserButtonClick() {
    ShowStep(controls_.usrKVCheckButton1->Value() ? UserStep : intWizardStep_);
}

void FormMainTabs::ShowStep(std::int16_t step) {
    const Change change(*this);
    HideAllPanels();
    live_.AnnouncePanelLeave();
    controls_.usrKVButton2[0]->Enabled(step != 0 && step < UserStep);
    controls_.usrKVButton2[1]->Enabled(step < LastStep);
    if (step < 0) {
        return;
    }
    shownStep_ = step < UserStep ? step : shownStep_;
    const Panel& panel = PanelOfStep(step);
    if (&panel == &panels_.calibration) {
        live_.AnnounceCalibPoints();
    }
    ShowPanel(panel);
    // The trail is painted by the window itself.
    controls_.usrKVCheckButton1->parentWidget()->update();
}

void FormMainTabs::HideAllPanels() {
    for (const Panel* const panel : {&panels_.calibration, &panels_.cellPosition, &panels_.connection,
                                     &panels_.escape, &panels_.experiment, &panels_.user}) {
        if (panel->widget == nullptr) {
            continue;
        }
        panel->widget->hide();
        // Only the one that was on show has anything to end.
        if (shown_ != nullptr && panel->steps == shown_) {
            shown_ = nullptr;
            panel->steps->Hidden();
        }
    }
}

void FormMainTabs::ShowPanel(const Panel& panel) {
    if (panel.widget == nullptr) {
        return;
    }
    panel.widget->show();
    shown_ = panel.steps;
    panel.steps->Shown();
}

FormMainTabs::Change::~Change() {
    --tabs_.changes_;
    tabs_.KeepFocus();
}

void FormMainTabs::KeepFocus() {
    QWidget* const focused = Window().focusWidget();
    if (changes_ > 0 || focused == nullptr || !HasGoneOff(*focused)) {
        return;
    }
    if (QWidget* const place = FocusPlace()) {
        place->setFocus(FocusMark::ReasonToPassOn(*focused));
    } else {
        focused->clearFocus();
    }
}

QWidget* FormMainTabs::FocusPlace() const {
    for (std::size_t tab = 0; tab < 6; ++tab) {
        if (!controls_.imgTab[tab]->isHidden()) {
            return controls_.imgTab[tab];
        }
    }
    for (SkinButton* const button : std::initializer_list<SkinButton*>{
             controls_.usrKVButton2[1], controls_.usrKVButton2[0], controls_.usrKVCheckButton1}) {
        if (!HasGoneOff(*button)) {
            return button;
        }
    }
    return nullptr;
}

const FormMainTabs::Panel& FormMainTabs::PanelOfTab(int tab) const {
    const std::array<const Panel*, 6> order{&panels_.experiment, &panels_.calibration, &panels_.cellPosition,
                                            &panels_.escape,     &panels_.connection,  &panels_.user};
    return *order.at(static_cast<std::size_t>(tab));
}

const FormMainTabs::Panel& FormMainTabs::PanelOfStep(std::int16_t step) const {
    const std::array<const Panel*, 6> order{&panels_.connection,   &panels_.calibration, &panels_.escape,
                                            &panels_.cellPosition, &panels_.experiment,  &panels_.user};
    return *order.at(static_cast<std::size_t>(std::min<int>(step, UserStep)));
}

}  // namespace travo
