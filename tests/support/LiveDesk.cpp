#include "support/LiveDesk.h"

#include <gtest/gtest.h>

#include <map>

namespace travo::test {

namespace {

using Step = LiveStep;
using Now = LiveSituation;

const Texts AttachAndShow{"LiveAttach", "LiveShowWindow"};
const Texts Show{"LiveShowWindow"};
const Texts Hide{"LiveHideWindow"};
const Texts Attach{"LiveAttach"};
const Texts Nothing{};

void Bring(LiveDesk& desk, LiveStage& stage, Now situation) {
    if (situation == Now::NoCamera) {
        return;
    }
    desk.Do(Step::PressButton);
    if (situation == Now::Hidden) {
        desk.Do(Step::RaiseButton);
    }
    if (situation == Now::ClosedByItself) {
        stage.Tell(Step::WindowClose, desk);
    }
}

void CheckSituation(const LiveDesk& desk, Now situation) {
    const bool open = situation == Now::Visible || situation == Now::Hidden;
    const auto object = open                         ? LiveLink::Object::Living
                        : situation == Now::NoCamera ? LiveLink::Object::None
                                                     : LiveLink::Object::Stale;
    EXPECT_EQ(desk.link.State(), object);
    EXPECT_EQ(desk.state.LiveOpen, open);
    EXPECT_EQ(desk.buttonPressed, situation == Now::Visible);
}

}  // namespace

template <typename Body>
void LiveDesk::Handle(const std::string& text, Body body) {
    try {
        body();
    } catch (const std::exception&) {
        reported.push_back(text);
    }
}

void LiveDesk::StartUp() {
    buttonPressed = true;
    Handle("Error : Camera Load", [this] {
        link.Create();
        link.LiveShowWindow();
        state.LiveOpen = true;
    });
}

void LiveDesk::Click(bool pressed) {
    buttonPressed = pressed;
    Handle("Error : Window Load", [this] {
        if (!state.LiveOpen) {
            link.Clear();
            bool created = false;
            Handle("Error : Camera Load", [&] {
                link.Create();
                created = true;
            });
            if (!created) {
                buttonPressed = false;
                return;
            }
            link.LiveAttach();
            state.LiveOpen = true;
        }
        if (buttonPressed) {
            link.LiveShowWindow();
        } else {
            link.LiveHideWindow();
        }
    });
}

void LiveDesk::AttachButton() {
    Handle("Error : Camera Load", [this] {
        if (!state.LiveOpen) {
            link.Clear();
            link.Create();
        }
        link.LiveAttach();
        state.LiveOpen = true;
    });
}

void LiveDesk::Do(LiveStep step) {
    switch (step) {
        case Step::StartUp:
            return StartUp();
        case Step::PressButton:
            return Click(true);
        case Step::RaiseButton:
            return Click(false);
        case Step::AttachButton:
            return AttachButton();
        case Step::Closing:
            return Closing();
        default:
            return;
    }
}

void LiveDesk::Live_WindowHide() {
    told.emplace_back("WindowHide");
    buttonPressed = false;
    link.AnnounceHideWindow();
}

void LiveDesk::Live_WindowClose() {
    told.emplace_back("WindowClose");
    EXPECT_FALSE(state.LiveOpen);
    buttonPressed = false;
}

void LiveDesk::LiveDied() {
    told.emplace_back("Died");
    EXPECT_FALSE(state.LiveOpen);
    buttonPressed = false;
}

std::string LiveRowName(const LiveRow& row) {
    static const std::map<Now, std::string> situations{{Now::NoCamera, "NoCamera"},
                                                       {Now::Visible, "Visible"},
                                                       {Now::Hidden, "Hidden"},
                                                       {Now::ClosedByItself, "ClosedByItself"}};
    static const std::map<Step, std::string> steps{{Step::StartUp, "StartUp"},
                                                   {Step::PressButton, "PressButton"},
                                                   {Step::RaiseButton, "RaiseButton"},
                                                   {Step::AttachButton, "AttachButton"},
                                                   {Step::Closing, "Closing"},
                                                   {Step::WindowClose, "WindowClose"},
                                                   {Step::WindowHide, "WindowHide"},
                                                   {Step::BirdViewSave, "BirdViewSave"},
                                                   {Step::Lost, "Lost"}};
    return situations.at(row.before) + "_" + steps.at(row.step);
}

const std::vector<LiveRow>& LiveTable() {
    static const std::vector<LiveRow> table{
        {Now::NoCamera, Step::StartUp, Now::Visible, Show, {}},
        {Now::NoCamera, Step::PressButton, Now::Visible, AttachAndShow, {}},
        {Now::NoCamera, Step::RaiseButton, Now::Hidden, {"LiveAttach", "LiveHideWindow"}, {}},
        {Now::NoCamera, Step::AttachButton, Now::Hidden, Attach, {}},
        {Now::NoCamera, Step::Closing, Now::NoCamera, Nothing, {}},
        {Now::Visible, Step::PressButton, Now::Visible, Show, {}},
        {Now::Visible, Step::RaiseButton, Now::Hidden, Hide, {}},
        {Now::Visible, Step::AttachButton, Now::Visible, Attach, {}},
        {Now::Visible, Step::Closing, Now::Visible, Hide, {}},
        {Now::Visible, Step::WindowClose, Now::ClosedByItself, Nothing, {"WindowClose"}},
        {Now::Visible, Step::WindowHide, Now::Hidden, Hide, {"WindowHide"}},
        {Now::Visible, Step::BirdViewSave, Now::Visible, Nothing, {"BirdViewSave"}},
        {Now::Visible, Step::Lost, Now::ClosedByItself, Nothing, {"Died"}},
        {Now::Hidden, Step::PressButton, Now::Visible, Show, {}},
        {Now::Hidden, Step::RaiseButton, Now::Hidden, Hide, {}},
        {Now::Hidden, Step::AttachButton, Now::Hidden, Attach, {}},
        {Now::Hidden, Step::Closing, Now::Hidden, Hide, {}},
        {Now::Hidden, Step::WindowClose, Now::ClosedByItself, Nothing, {"WindowClose"}},
        {Now::Hidden, Step::WindowHide, Now::Hidden, Hide, {"WindowHide"}},
        {Now::Hidden, Step::BirdViewSave, Now::Hidden, Nothing, {"BirdViewSave"}},
        {Now::Hidden, Step::Lost, Now::ClosedByItself, Nothing, {"Died"}},
        {Now::ClosedByItself, Step::PressButton, Now::Visible, AttachAndShow, {}},
        {Now::ClosedByItself, Step::RaiseButton, Now::Hidden, {"LiveAttach", "LiveHideWindow"}, {}},
        {Now::ClosedByItself, Step::AttachButton, Now::Hidden, Attach, {}},
        {Now::ClosedByItself, Step::Closing, Now::ClosedByItself, Nothing, {}},
    };
    return table;
}

void CheckLiveRow(const LiveRow& row, LiveStage& stage) {
    LiveDesk desk(stage.Camera());
    Bring(desk, stage, row.before);
    CheckSituation(desk, row.before);
    stage.Calls();
    desk.told.clear();
    desk.Do(row.step);
    stage.Tell(row.step, desk);
    CheckSituation(desk, row.after);
    EXPECT_EQ(stage.Calls(), row.calls);
    EXPECT_EQ(desk.told, row.told);
    EXPECT_EQ(desk.reported, Texts{});
}

}  // namespace travo::test
