#include "support/LiveTable.h"

#include <gtest/gtest.h>

#include <QTest>
#include <map>

namespace travo::test {

namespace {

using Step = LiveStep;
using Now = LiveSituation;

constexpr int HearLimit = 20000;  // milliseconds

const Texts AttachAndShow{"LiveAttach", "LiveShowWindow"};
const Texts Show{"LiveShowWindow"};
const Texts Hide{"LiveHideWindow"};
const Texts Attach{"LiveAttach"};
// From the user panel, where the camera button is, over to button 8.
const Texts LeaveAndAttach{"LivePanelLeave", "LiveAttach"};
const Texts Nothing{};

void Tell(const LiveRig& desk, LiveStage& stage, Step step) {
    const std::size_t before = desk.Told().size();
    stage.Tell(step);
    EXPECT_TRUE(QTest::qWaitFor([&] { return desk.Told().size() > before; }, HearLimit));
}

void Bring(LiveRig& desk, LiveStage& stage, Now situation) {
    if (situation == Now::NoCamera || situation == Now::Wanted) {
        return;
    }
    desk.Click(true);
    if (situation == Now::Hidden) {
        desk.Click(false);
    }
    if (situation == Now::ClosedByItself) {
        Tell(desk, stage, Step::WindowClose);
    }
}

void Take(LiveRig& desk, LiveStage& stage, Step step) {
    switch (step) {
        case Step::StartUp:
            return desk.StartUp();
        case Step::PressButton:
            return desk.Click(true);
        case Step::RaiseButton:
            return desk.Click(false);
        case Step::AttachButton:
            return desk.AttachButton();
        case Step::Closing:
            return desk.Closing();
        default:
            return Tell(desk, stage, step);
    }
}

void CheckSituation(LiveRig& desk, Now situation) {
    const bool open = situation == Now::Visible || situation == Now::Hidden;
    const bool none = situation == Now::NoCamera || situation == Now::Wanted;
    const auto object = open   ? LiveLink::Object::Living
                        : none ? LiveLink::Object::None
                               : LiveLink::Object::Stale;
    EXPECT_EQ(desk.Link().State(), object);
    EXPECT_EQ(desk.State().LiveOpen, open);
    EXPECT_EQ(desk.ButtonPressed(), situation == Now::Visible || situation == Now::Wanted);
}

}  // namespace

std::string LiveRowName(const LiveRow& row) {
    static const std::map<Now, std::string> situations{{Now::NoCamera, "NoCamera"},
                                                       {Now::Wanted, "Wanted"},
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
        {Now::NoCamera, Step::StartUp, Now::NoCamera, Nothing, {}},
        {Now::NoCamera, Step::PressButton, Now::Visible, AttachAndShow, {}},
        {Now::NoCamera, Step::AttachButton, Now::Hidden, Attach, {}},
        {Now::NoCamera, Step::Closing, Now::NoCamera, Nothing, {}},
        {Now::Wanted, Step::StartUp, Now::Visible, Show, {}},
        {Now::Wanted, Step::RaiseButton, Now::Hidden, {"LiveAttach", "LiveHideWindow"}, {}},
        {Now::Wanted, Step::AttachButton, Now::Visible, Attach, {}},
        {Now::Wanted, Step::Closing, Now::Wanted, Nothing, {}},
        {Now::Visible, Step::StartUp, Now::Visible, Nothing, {}},
        {Now::Visible, Step::RaiseButton, Now::Hidden, Hide, {}},
        {Now::Visible, Step::AttachButton, Now::Visible, LeaveAndAttach, {}},
        {Now::Visible, Step::Closing, Now::Visible, Hide, {}},
        {Now::Visible, Step::WindowClose, Now::ClosedByItself, Nothing, {"WindowClose"}},
        {Now::Visible, Step::WindowHide, Now::Hidden, Hide, {"WindowHide"}},
        {Now::Visible, Step::BirdViewSave, Now::Visible, Nothing, {"BirdViewSave"}},
        {Now::Visible, Step::Lost, Now::ClosedByItself, Nothing, {"Lost"}},
        {Now::Hidden, Step::PressButton, Now::Visible, Show, {}},
        {Now::Hidden, Step::AttachButton, Now::Hidden, LeaveAndAttach, {}},
        {Now::Hidden, Step::Closing, Now::Hidden, Hide, {}},
        {Now::Hidden, Step::WindowClose, Now::ClosedByItself, Nothing, {"WindowClose"}},
        {Now::Hidden, Step::WindowHide, Now::Hidden, Hide, {"WindowHide"}},
        {Now::Hidden, Step::BirdViewSave, Now::Hidden, Nothing, {"BirdViewSave"}},
        {Now::Hidden, Step::Lost, Now::ClosedByItself, Nothing, {"Lost"}},
        {Now::ClosedByItself, Step::PressButton, Now::Visible, AttachAndShow, {}},
        {Now::ClosedByItself, Step::AttachButton, Now::Hidden, Attach, {}},
        {Now::ClosedByItself, Step::Closing, Now::ClosedByItself, Nothing, {}},
    };
    return table;
}

void CheckLiveRow(const LiveRow& row, LiveStage& stage) {
    const bool wanted = row.before == Now::Wanted;
    LiveRig desk(stage.Camera(), wanted ? LiveRig::AtLastEnd::CameraOpen : LiveRig::AtLastEnd::CameraClosed);
    Bring(desk, stage, row.before);
    CheckSituation(desk, row.before);
    stage.Calls();
    desk.ForgetTold();
    Take(desk, stage, row.step);
    CheckSituation(desk, row.after);
    EXPECT_EQ(stage.Calls(), row.calls);
    EXPECT_EQ(desk.Told(), row.told);
    EXPECT_EQ(desk.Boxes(), Texts{});
}

}  // namespace travo::test
