#include "workbench/tour/WindowMarkerAct.h"

#include <QDir>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "workbench/tour/Handling.h"
#include "workbench/tour/PanelCellAct.h"
#include "workbench/tour/PanelPlay.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowPicture.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;
using Spots = std::array<WorkbenchClient::Place, travo::NeedleCount>;

// Canvas pixels; at design size one of the window's shows two of them.
constexpr double MarkerGoal = 2.0;
// Further off than this a marker is another one.
constexpr double MarkerReach = 25.0;

const QString LinesButton = QStringLiteral("Hide needle lines");

// Mirror counts and Z: all over the canvas, D beside its right edge, clear of the needles' places.
constexpr std::array<PositionXYZ, travo::CellCount> CellPlaces{{{-84, 45, 0},
                                                                {56, 73, 0},
                                                                {-40, -66, 0},
                                                                {-168, 20, 10},
                                                                {12, 20, 30},
                                                                {165, -150, -20},
                                                                {160, 100, 0},
                                                                {20, -150, 0}}};
// Each needle in the quarter that it comes from, so that no shafts meet; above the focus, below it, level.
constexpr std::array<Spots, 2> NeedlePlaces{
    {{{{-640.0, -520.0, 120.0}, {300.0, -400.0, -80.0}, {610.0, 150.0, 0.0}, {-420.0, 100.0, 60.0}}},
     {{{-150.0, -120.0, 0.0}, {700.0, -700.0, 90.0}, {100.0, 90.0, -60.0}, {-610.0, 700.0, 0.0}}}}};

std::string SizeName(Stage& stage) {
    return BirdPicture(stage).width() == CanvasPixels ? "one pixel to a pixel" : "at design size";
}

// The errors of a kind of marker, as they are printed.
class Errors {
public:
    void Add(const std::string& name, double error) {
        text_ += " " + name + " " + NumberText(error);
        worst_ = std::max(worst_, error);
    }
    void Print(const std::string& beginning) const {
        PrintLine(beginning + ":" + text_ + "; greatest " + NumberText(worst_) + " canvas pixels");
        Require(worst_ <= MarkerGoal, "a marker is drawn too far from the true place");
    }

private:
    std::string text_;
    double worst_ = 0.0;
};

QPointF TipOnCanvas(Stage& stage, std::int32_t needle) {
    const auto tip = stage.Workbench().TipOf(needle + 1).now;
    return CanvasPlace(tip[0], tip[1]);
}

// How far from its true tip the shape of a needle is drawn.
double NeedleError(Stage& stage, std::int32_t needle) {
    const QPointF truth = TipOnCanvas(stage, needle);
    double error = MarkerReach;
    LookUntil(
        stage,
        [&](const QImage& picture) {
            for (const QPointF& middle : NeedleMiddles(picture)) {
                error = std::min(error, Distance(middle, truth));
            }
            return error < MarkerReach;
        },
        NeedleName(needle) + " is not drawn near " + PointText(truth));
    return error;
}

double CellError(Stage& stage, std::size_t cell, const StoredCell& stored) {
    std::optional<QPointF> middle;
    LookUntil(
        stage,
        [&](const QImage& picture) {
            middle = CellMiddle(picture, cell);
            return middle.has_value();
        },
        "cell " + std::string(1, static_cast<char>('A' + cell)) + " is not drawn");
    return Distance(*middle, CanvasPlace(stored.truth[0], stored.truth[1]));
}

double ViewError(Stage& stage, const QSize& size) {
    const auto centre = stage.Workbench().ViewCentreNow();
    const QPointF truth = CanvasPlace(centre[0], centre[1]);
    std::optional<ViewMark> mark;
    // After a change of the magnification the mark has its new size first and its new place then.
    LookUntil(
        stage,
        [&](const QImage& picture) {
            mark = FindView(picture);
            return mark && std::abs(mark->size.width() - size.width()) <= 2 &&
                   std::abs(mark->size.height() - size.height()) <= 2 &&
                   Distance(mark->middle, truth) <= MarkerGoal;
        },
        "the view's mark is not drawn round " + PointText(truth));
    return Distance(mark->middle, truth);
}

void StoreCells(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Cell position"), QStringLiteral("CtlCellPosition1"));
    for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
        if (cell == CellRowsOfAPage) {
            play.hands.Press(QStringLiteral("Page E to H"));
        }
        play.cells.push_back(StoreInRow(play, cell, CellPlaces.at(static_cast<std::size_t>(cell))));
    }
    AimView(play, {-20, 10, 0});
    play.stage.RequireBoxesAsExpected();
}

void LookAtCells(PanelPlay& play) {
    Errors errors;
    for (std::size_t cell = 0; cell < play.cells.size(); ++cell) {
        errors.Add(std::string(1, static_cast<char>('A' + cell)),
                   CellError(play.stage, cell, play.cells[cell]));
    }
    errors.Print("cells, " + SizeName(play.stage));
}

void LookAtView(Stage& stage) {
    Errors errors;
    for (const auto& [index, size] :
         {std::pair{std::int16_t{3}, QSize(51, 38)}, std::pair{std::int16_t{1}, QSize(23, 23)},
          std::pair{std::int16_t{2}, QSize(102, 76)}}) {
        PressMagnification(stage, index);
        errors.Add(MagnificationName(index).section(QLatin1Char(' '), 1).toStdString(),
                   ViewError(stage, size));
    }
    errors.Print("view, " + SizeName(stage));
}

// Each is chosen, so that it is read where it stands, and looked at while it blinks; then all once more.
void BringNeedles(PanelPlay& play, const Spots& spots) {
    Stage& stage = play.stage;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        stage.Workbench().Move(needle + 1,
                               stage.Workbench().Aim(needle + 1, spots.at(static_cast<std::size_t>(needle))));
    }
    Errors chosen;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        PressNeedle(play, needle);
        WaitUntilRead(play, needle);
        chosen.Add(std::to_string(needle + 1), NeedleError(stage, needle));
    }
    chosen.Print("needles, each chosen and blinking, " + SizeName(stage));
    Errors all;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        all.Add(std::to_string(needle + 1), NeedleError(stage, needle));
    }
    all.Print("needles, all four at their places, " + SizeName(stage));
    RequireNoCrossing(stage);
}

void HideLines(Stage& stage) {
    const double shown = ShaftsSeen(stage);
    AtBirdView(stage).Press(LinesButton);
    LookUntil(
        stage, [&](const QImage&) { return ShaftsSeen(stage) == 0.0; },
        "the lines stay although they are hidden");
    PrintLine("lines: " + NumberText(shown * 100.0) +
              " % of the true shafts are drawn; hidden by their button: 0 %");
    Require(shown > 0.95, "a needle's line is not drawn along its true shaft");
}

void SaveBird(const Stage& stage, const QString& name) {
    SmallWindow(BirdViewTitle).grab().save(QDir(stage.Where().pictures).filePath(name));
}

}  // namespace

double ShaftsSeen(Stage& stage) {
    const QImage picture = BirdPicture(stage);
    double least = 1.0;
    for (const auto& needle : stage.Workbench().Camera().needles) {
        least = std::min(least, DarkAlong(picture, CanvasPlace(needle.tip[0], needle.tip[1]),
                                          CanvasPlace(needle.rear[0], needle.rear[1])));
    }
    return least;
}

void PlayWindowMarkerAct(Stage& stage) {
    PanelPlay play{stage, Hands(stage), {}};
    StoreCells(play);
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    LookAtCells(play);
    LookAtView(stage);
    BringNeedles(play, NeedlePlaces.front());
    SaveBird(stage, QStringLiteral("window-bird-whole.png"));
    AtBirdView(stage).Press(QStringLiteral("Design size"));
    Require(SmallWindow(BirdViewTitle).size() == DesignSize, "the size button gives another size");
    LookAtCells(play);
    LookAtView(stage);
    BringNeedles(play, NeedlePlaces.back());
    SaveBird(stage, QStringLiteral("window-bird.png"));
    HideLines(stage);
}

}  // namespace workbench::tour
