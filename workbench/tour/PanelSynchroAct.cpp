#include "workbench/tour/PanelSynchroAct.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/ViewWatch.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

constexpr std::int32_t Follower = 2;
// Where it begins.
constexpr std::int32_t FirstCell = 6;
const QString Synchro = QStringLiteral("Synchro");

// Steps of the view in mirror counts and Z units; the focus goes up alone, since downward steps end at the
// Z stand-off.
constexpr std::array<PositionXYZ, 20> Steps{
    {{1, 0, 0},    {2, 0, 0},   {3, 1, 0},   {0, -2, 0},  {-5, 0, 10},  {0, 0, 25},  {7, 4, 0},
     {-1, -1, 0},  {1, 1, 1},   {-12, 6, 0}, {0, -9, 40}, {20, 0, 0},   {-3, -3, 3}, {5, 5, 0},
     {-40, 15, 0}, {0, 0, 120}, {2, -2, 0},  {-8, 1, 7},  {33, -20, 0}, {-2, 4, 15}}};

// The counts that a needle must be sent to when the view goes from one place to the next: its place in the
// common frame as read, and the change of the view, by the rule of the mirror with its added half.
class Expectation {
public:
    Expectation(Stage& stage, const PositionXYZ& view)
        : maps_(*stage.Objects().cNeedleMove),
          view_(view),
          counts_(stage.Workbench().CountsOf(Follower + 1)) {}

    void See(const PositionXYZ& view) {
        const double tilt = (view[1] - view_[1]) * 0.023 * std::numbers::pi / 180.0;
        const PositionXYZ change{Whole(-5.0 * (view[0] - view_[0]) + 0.5),
                                 Whole(-12500.0 * std::tan(tilt) + 0.5), view[2] - view_[2]};
        view_ = view;
        if (change == PositionXYZ{}) {
            return;
        }
        PositionXYZ target{};
        for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
            const auto row = static_cast<std::size_t>(axis);
            target[row] = maps_.Calibration(Follower, axis, counts_) + change[row];
        }
        for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
            counts_[static_cast<std::size_t>(axis)] = maps_.InverseCalibration(Follower, axis, target);
        }
        ++moves_;
    }

    const PositionXYZ& Counts() const { return counts_; }
    const PositionXYZ& View() const { return view_; }
    std::int64_t Moves() const { return moves_; }

private:
    // To nearest, ties to even.
    static std::int32_t Whole(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

    const travo::clsNeedleMove& maps_;
    PositionXYZ view_;
    PositionXYZ counts_;
    std::int64_t moves_ = 0;
};

// The tip in the picture: where it truly stands from the true centre of the view.
WorkbenchClient::Place InPicture(Stage& stage) {
    const WorkbenchClient::Place tip = stage.Workbench().TipOf(Follower + 1).now;
    const auto centre = stage.Workbench().ViewCentreNow();
    return {tip[0] - centre[0], tip[1] - centre[1], tip[2] - stage.Workbench().Focus().now};
}

double Distance(const WorkbenchClient::Place& a, const WorkbenchClient::Place& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

std::string Text(const PositionXYZ& counts) {
    return std::to_string(counts[0]) + ", " + std::to_string(counts[1]) + ", " + std::to_string(counts[2]);
}

void TakeNeedleToTheView(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    PressView(play);
    play.hands.Press(CellButton(FirstCell));
    PressMove(play);
    const StoredCell& first = play.cells[FirstCell];
    WaitForView(play.stage, first.raw[0], first.raw[1]);
    play.stage.WaitUntil([&] { return play.stage.State().CurrentXYZ(2) == first.raw[2]; },
                         "the view is not in focus");
    PressNeedle(play, Follower);
    play.hands.Press(QStringLiteral("Present view"));
    PressMove(play);
    PressNeedle(play, Follower);
    const double miss = Miss(play, Follower, first.truth);
    Require(miss <= PanelLandingGoal, "the needle is not at the centre of the view");
    PrintLine(NeedleName(Follower) + " sent to the present view: true miss " + NumberText(miss));
}

// Steps the view at the workbench, and waits until a tick has seen it there and the needle rests.
void StepView(PanelPlay& play, const ViewWatch& watch, const PositionXYZ& from, const PositionXYZ& step) {
    Stage& stage = play.stage;
    if (step[0] != 0 || step[1] != 0) {
        stage.Workbench().JogMirror(step[0], step[1]);
    }
    if (step[2] != 0) {
        stage.Workbench().JogFocus(step[2] * travo::clsObjectiveUpDown::MotorStepsPerUnit);
    }
    const PositionXYZ wanted{from[0] + step[0], from[1] + step[1], from[2] + step[2]};
    stage.WaitUntil(
        [&] {
            return !watch.Seen().empty() && watch.Seen().back() == wanted &&
                   !stage.Workbench().AnyNeedleMoves();
        },
        "the position loop does not see the view at " + Text(wanted));
}

void FollowSteps(PanelPlay& play, ViewWatch& watch, Expectation& expected) {
    Stage& stage = play.stage;
    const WorkbenchClient::Place start = InPicture(stage);
    const std::int64_t movesBefore = stage.Workbench().Counters()["moveto"];
    double furthest = 0.0;
    std::size_t done = 0;
    for (const PositionXYZ& step : Steps) {
        const PositionXYZ from = expected.View();
        StepView(play, watch, from, step);
        for (; done < watch.Seen().size(); ++done) {
            expected.See(watch.Seen()[done]);
        }
        const PositionXYZ counts = stage.Workbench().CountsOf(Follower + 1);
        Require(counts == expected.Counts(),
                "the needle was sent to " + Text(counts) + " instead of " + Text(expected.Counts()));
        furthest = std::max(furthest, Distance(InPicture(stage), start));
    }
    const std::int64_t moves = stage.Workbench().Counters()["moveto"] - movesBefore;
    Require(moves == expected.Moves(), "the driver was told to move " + std::to_string(moves) +
                                           " times instead of " + std::to_string(expected.Moves()));
    const WorkbenchClient::Place end = InPicture(stage);
    PrintLine("synchronised: " + std::to_string(Steps.size()) + " steps of the view, seen in " +
              std::to_string(moves) + " changes; every target right to the count");
    PrintLine("drift of the tip in the picture: " +
              PlaceText(end[0] - start[0], end[1] - start[1], end[2] - start[2]) + " at the end, at most " +
              NumberText(furthest) + " on the way");
}

}  // namespace

void PlayPanelSynchroAct(PanelPlay& play) {
    TakeNeedleToTheView(play);
    play.hands.Press(Synchro);
    Require(play.hands.PressedIn(Synchro), "the synchronised mode is not on");
    Expectation expected(play.stage, play.stage.State().CurrentXYZ());
    ViewWatch watch(play.stage.State());
    FollowSteps(play, watch, expected);
    play.stage.SavePicture(QStringLiteral("panel-experiment-synchro"));
    play.hands.Press(Synchro);
    RetreatNeedle(play, Follower);
    RequireNoCrossing(play.stage);
    play.stage.RequireBoxesAsExpected();
    PrintLine("mode left by its button, the needle retreats; no true crossing");
}

}  // namespace workbench::tour
