#include "core/owner/FormMainTabs.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "support/FakeLiveCamera.h"

namespace travo::test {

namespace {

// A panel that writes its steps to the journal.
class JournalPanel : public QWidget, public PanelSteps {
public:
    JournalPanel(const std::string& name, Journal& journal, QWidget* parent)
        : QWidget(parent), name_(name), journal_(journal) {
        hide();
    }
    void Shown() override { journal_.push_back("show " + name_); }
    void Hidden() override { journal_.push_back("hide " + name_); }
    FormMainTabs::Panel Panel() { return {this, this}; }

private:
    std::string name_;
    Journal& journal_;
};

class FormMainTabsTest : public testing::Test, private SharedState::Listener, private LiveLink::Listener {
protected:
    FormMainTabsTest() {
        FormMainTabs::Controls controls;
        for (SkinTab*& picture : controls.imgTab) {
            picture = new SkinTab(&window_);
        }
        for (usrKVButton*& button : controls.usrKVButton2) {
            button = new usrKVButton(&window_);
            button->hide();
        }
        controls.usrKVCheckButton1 = user_ = new usrKVCheckButton(&window_);
        user_->hide();
        controls_ = controls;
        tabs_ = std::make_unique<FormMainTabs>(
            controls,
            FormMainTabs::Panels{calibration_.Panel(), cellPosition_.Panel(), connection_.Panel(),
                                 escape_.Panel(), experiment_.Panel(), userPanel_.Panel()},
            layout_, live_, [this] { journal_.push_back("resize"); });
    }

    std::set<int> ShownPictures() const {
        std::set<int> shown;
        for (int index = 0; index < FormMainLayout::TabPictureCount; ++index) {
            if (!controls_.imgTab.at(static_cast<std::size_t>(index))->isHidden()) {
                shown.insert(index);
            }
        }
        return shown;
    }
    void OpenCamera() {
        live_.Create();
        state_.LiveOpen = true;
        journal_.clear();
    }
    // The journal since the last look.
    Journal Seen() { return std::exchange(journal_, {}); }
    bool Enabled(int stepButton) const {
        return controls_.usrKVButton2.at(static_cast<std::size_t>(stepButton))->Enabled();
    }

    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
    void Live_BirdViewSave() override {}
    void Live_WindowHide() override {}
    void Live_WindowClose() override {}
    void LiveDied() override {}

    Journal journal_;
    SharedState state_{*this};
    FakeLiveCamera camera_{journal_};
    LiveLink live_{camera_, state_, *this};
    QWidget window_;
    JournalPanel calibration_{"calibration", journal_, &window_};
    JournalPanel cellPosition_{"cell position", journal_, &window_};
    JournalPanel connection_{"connection", journal_, &window_};
    JournalPanel escape_{"escape", journal_, &window_};
    JournalPanel experiment_{"experiment", journal_, &window_};
    JournalPanel userPanel_{"user", journal_, &window_};
    FormMainTabs::Controls controls_{};
    usrKVCheckButton* user_ = nullptr;
    FormMainLayout layout_{1.0, 1.0};
    std::unique_ptr<FormMainTabs> tabs_;
};

TEST_F(FormMainTabsTest, LoadSelectsExperimentWithGroupAInTheLowerRowAndHidesNothing) {
    tabs_->TabClick(6);
    EXPECT_EQ(ShownPictures(), (std::set{0, 7, 8, 15, 16, 17}));
    EXPECT_EQ(Seen(), Journal{"show experiment"});
    EXPECT_FALSE(experiment_.isHidden());
}

// Every tab from every tab: pictures, panel, and the steps of the panel left and of the one that comes.
TEST_F(FormMainTabsTest, EveryUnselectedPictureSelectsItsTabInTheLowerRow) {
    const std::array<std::string, 6> names{"experiment", "calibration", "cell position",
                                           "escape",     "connection",  "user"};
    tabs_->TabClick(6);
    std::string left = "experiment";
    Seen();
    for (int from = 0; from < 6; ++from) {
        for (int to = 0; to < 6; ++to) {
            tabs_->TabClick(from + 12);
            Seen();
            const bool sameRow = from / 3 == to / 3;
            tabs_->TabClick(sameRow ? to + 6 : to + 12);
            const int row = to / 3 * 3;
            std::set<int> pictures{to};
            for (int index = row; index < row + 3; ++index) {
                if (index != to) {
                    pictures.insert(index + 6);
                }
            }
            for (int index = 3 - row; index < 6 - row; ++index) {
                pictures.insert(index + 12);
            }
            EXPECT_EQ(ShownPictures(), pictures) << from << " to " << to;
            left = names.at(static_cast<std::size_t>(from));
            EXPECT_EQ(Seen(), (Journal{"hide " + left, "show " + names.at(static_cast<std::size_t>(to))}));
        }
    }
}

TEST_F(FormMainTabsTest, AClickOnASelectedTabChangesNothingAndTellsTheCameraNothing) {
    tabs_->TabClick(6);
    OpenCamera();
    const std::set<int> before = ShownPictures();
    for (int index = 0; index < 6; ++index) {
        tabs_->TabClick(index);
    }
    EXPECT_EQ(ShownPictures(), before);
    EXPECT_TRUE(journal_.empty());
}

TEST_F(FormMainTabsTest, EveryChangeOfPanelTellsTheCameraBeforeTheNewPanelShows) {
    tabs_->TabClick(6);
    OpenCamera();
    tabs_->TabClick(8);
    EXPECT_EQ(Seen(), (Journal{"hide experiment", "LivePanelLeave", "show cell position"}));
    tabs_->TabClick(7);
    EXPECT_EQ(Seen(),
              (Journal{"hide cell position", "LivePanelLeave", "LiveCalibPoints", "show calibration"}));
}

TEST_F(FormMainTabsTest, AnIllCameraDoesNotDisturbAChangeOfPanel) {
    tabs_->TabClick(6);
    OpenCamera();
    camera_.failing = {"LivePanelLeave"};
    tabs_->TabClick(7);
    EXPECT_EQ(Seen(), (Journal{"hide experiment", "LivePanelLeave", "show calibration"}));
    camera_.TellFailure();
    EXPECT_FALSE(state_.LiveOpen);
}

TEST_F(FormMainTabsTest, StepModeShowsTheStepsInTheOrderOfTheWork) {
    tabs_->TabClick(6);
    Seen();
    tabs_->ModeChange(false);
    EXPECT_EQ(Seen(), (Journal{"hide experiment", "show connection", "resize"}));
    EXPECT_TRUE(ShownPictures().empty());
    EXPECT_EQ(layout_.Selected(), FormMainLayout::Mode::Steps);
    EXPECT_FALSE(user_->isHidden());
    std::string left = "connection";
    for (const std::string name : {"calibration", "escape", "cell position", "experiment"}) {
        tabs_->StepButtonClick(1);
        EXPECT_EQ(Seen(), (Journal{"hide " + left, "show " + name}));
        left = name;
    }
}

TEST_F(FormMainTabsTest, PreviousIsDisabledAtStepZeroNextAtStepFourAndBothOnTheSideVisit) {
    tabs_->ModeChange(false);
    for (int step = 0; step <= 4; ++step) {
        EXPECT_EQ(Enabled(0), step != 0) << step;
        EXPECT_EQ(Enabled(1), step != 4) << step;
        EXPECT_EQ(tabs_->ShownStep(), step);
        tabs_->StepButtonClick(1);
    }
    user_->SetRaised(false);
    tabs_->UserButtonClick();
    EXPECT_FALSE(Enabled(0));
    EXPECT_FALSE(Enabled(1));
    EXPECT_EQ(tabs_->ShownStep(), 4);
    EXPECT_FALSE(userPanel_.isHidden());
}

TEST_F(FormMainTabsTest, TheStepHasACeilingOfFourAndAFloorOfZero) {
    tabs_->ModeChange(false);
    for (int press = 0; press < 9; ++press) {
        tabs_->StepButtonClick(1);
    }
    EXPECT_FALSE(experiment_.isHidden());
    for (int press = 0; press < 9; ++press) {
        tabs_->StepButtonClick(0);
    }
    EXPECT_FALSE(connection_.isHidden());
}

TEST_F(FormMainTabsTest, TheOperatorComesBackFromTheUserPanelToTheStepThatWasLeft) {
    tabs_->ModeChange(false);
    tabs_->StepButtonClick(1);
    tabs_->StepButtonClick(1);
    user_->SetRaised(false);
    tabs_->UserButtonClick();
    user_->SetRaised(true);
    tabs_->UserButtonClick();
    EXPECT_FALSE(escape_.isHidden());
}

TEST_F(FormMainTabsTest, AStepButtonRaisesTheUserButton) {
    tabs_->ModeChange(false);
    user_->SetRaised(false);
    tabs_->UserButtonClick();
    tabs_->StepButtonClick(1);
    EXPECT_FALSE(user_->Value());
    EXPECT_FALSE(calibration_.isHidden());
}

TEST_F(FormMainTabsTest, AfterAReturnToStepModeStepZeroIsShownAndNextGoesOnFromTheOldStep) {
    tabs_->ModeChange(false);
    tabs_->StepButtonClick(1);
    tabs_->StepButtonClick(1);
    tabs_->ModeChange(true);
    EXPECT_FALSE(experiment_.isHidden());
    tabs_->ModeChange(false);
    EXPECT_FALSE(connection_.isHidden());
    tabs_->StepButtonClick(1);
    EXPECT_FALSE(cellPosition_.isHidden()) << "step 2 and one on";
}

TEST_F(FormMainTabsTest, TabModeHidesTheStepButtonsSelectsExperimentAndResizes) {
    tabs_->ModeChange(false);
    Seen();
    tabs_->ModeChange(true);
    EXPECT_EQ(Seen(), (Journal{"hide connection", "show experiment", "resize"}));
    EXPECT_EQ(ShownPictures(), (std::set{0, 7, 8, 15, 16, 17}));
    EXPECT_TRUE(user_->isHidden());
    EXPECT_TRUE(controls_.usrKVButton2[0]->isHidden());
}

TEST_F(FormMainTabsTest, AStepToTheCalibrationTellsTheCameraFirst) {
    tabs_->ModeChange(false);
    OpenCamera();
    tabs_->StepButtonClick(1);
    EXPECT_EQ(Seen(), (Journal{"hide connection", "LivePanelLeave", "LiveCalibPoints", "show calibration"}));
}

}  // namespace

}  // namespace travo::test
