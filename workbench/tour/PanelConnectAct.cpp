#include "workbench/tour/PanelConnectAct.h"

#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

struct Row {
    QString name;     // in the names of box and state, and the key of the settings
    QString inPress;  // in the names of the buttons
    QString port;
};

const std::array<Row, 3>& Rows() {
    static const std::array<Row, 3> rows{{
        {QStringLiteral("Mirror"), QStringLiteral("mirror"), QStringLiteral("1")},
        {QStringLiteral("Magnescale"), QStringLiteral("Magnescale"), QStringLiteral("2")},
        {QStringLiteral("Motor"), QStringLiteral("motor"), QStringLiteral("3")},
    }};
    return rows;
}

const QString NoSuchPort = QStringLiteral("9");

QString StoredPort(PanelPlay& play, const QString& key) {
    return StoredSetting(play.stage, QStringLiteral("COMPort"), key);
}

void PressSet(PanelPlay& play, const Row& row, const QString& port, const QString& verdict) {
    play.hands.Type(row.name + QStringLiteral(" port"), port);
    play.hands.Press(QStringLiteral("Connect ") + row.inPress);
    play.stage.WaitUntil([&] { return play.hands.Read(row.name + QStringLiteral(" state")) == verdict; },
                         row.name.toStdString() + ": the verdict is not " + verdict.toStdString());
}

void BeRefused(PanelPlay& play) {
    const Row& motor = Rows()[2];
    play.stage.Boxes().Expect(QStringLiteral("Error : Motor : Communication connection"));
    PressSet(play, motor, NoSuchPort, QStringLiteral("Port cannot be opened"));
    play.stage.WaitUntil([&] { return play.stage.Boxes().AllCame(); }, "no box told of the refused port");
    play.stage.RequireBoxesAsExpected();
    Require(StoredPort(play, motor.name) == QLatin1String("-1"), "a refused port is not stored as -1");
    PrintLine("motor SET on a port that is not there: refused in its box, -1 stored");
}

void Connect(PanelPlay& play) {
    for (const Row& row : Rows()) {
        PressSet(play, row, row.port, QStringLiteral("Connected"));
        Require(StoredPort(play, row.name) == row.port,
                "the port of " + row.name.toStdString() + " is not stored");
    }
    play.stage.RequireBoxesAsExpected();
    Require(!play.stage.Workbench().GaugeKeysEnabled(), "the gauge's own keys are not locked");
    PrintLine("ports 1, 2 and 3 typed and SET: three verdicts, stored as COMPort, gauge keys locked");
}

void TestMirror(PanelPlay& play) {
    Stage& stage = play.stage;
    stage.WaitUntil([&] { return stage.State().CurrentMagnification() == stage.Workbench().Magnification(); },
                    "the magnification is not reported");
    std::string steps;
    do {
        const std::int32_t next = stage.State().CurrentMagnification() % 3 + 1;
        play.hands.Press(QStringLiteral("Test mirror"));
        stage.WaitUntil([&] { return stage.State().CurrentMagnification() == next; },
                        "a press of TEST does not step the magnification");
        Require(stage.Workbench().Magnification() == next, "the world has another magnification");
        steps += " " + std::to_string(next);
    } while (stage.State().CurrentMagnification() != 2);
    PrintLine("mirror TEST: the world steps through the objectives" + steps + ", and stands at 2x");
}

void TestMotorAndGauge(PanelPlay& play) {
    Stage& stage = play.stage;
    const std::int32_t before = stage.Workbench().Focus().countsAtRest;
    play.hands.Press(QStringLiteral("Test motor"));
    stage.WaitUntil([&] { return stage.Workbench().Focus().counts == before + 1000; },
                    "a press of TEST does not move the focus by 1000 counts");
    const auto z = static_cast<std::int32_t>(std::lround(stage.Workbench().Gauge().reading));
    stage.WaitUntil([&] { return stage.State().CurrentXYZ(2) == z; }, "the gauge does not follow the focus");
    stage.Boxes().Expect(QStringLiteral("The value of Magnescal is%1").arg(z));
    play.hands.Press(QStringLiteral("Test Magnescale"));
    stage.RequireBoxesAsExpected();
    PrintLine("motor TEST: focus up by 1000 counts; gauge TEST: its box says " + std::to_string(z));
    stage.WaitUntil([&] { return play.hands.Enabled(QStringLiteral("Test motor")); },
                    "the motor's TEST stays locked after its move");
    stage.Workbench().MoveFocus(before);
    WaitForZ(stage, z - 10);
}

void TestManipulator(PanelPlay& play) {
    Stage& stage = play.stage;
    const PositionXYZ before = stage.Workbench().CountsOf(2);
    const std::int64_t moves = stage.Workbench().Counters()["moveto"];
    // The press returns when the needle is on its way back: what happens meanwhile is watched from here.
    PositionXYZ furthest = before;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const PositionXYZ now = stage.Workbench().CountsOf(2);
        furthest = std::max(furthest, now);
    });
    watch.start(20);
    play.hands.Type(QStringLiteral("Manipulator number"), QStringLiteral("2"));
    play.hands.Press(QStringLiteral("Test manipulator"));
    watch.stop();
    stage.WaitUntil([&] { return !stage.Workbench().AnyNeedleMoves(); }, "needle 2 does not come to rest");
    Require(furthest == PositionXYZ{before[0] + 50, before[1], before[2]},
            "needle 2 was not jogged by 50 counts, but to " + std::to_string(furthest[0]));
    Require(stage.Workbench().CountsOf(2) == before, "needle 2 is not back from its jog");
    Require(stage.Workbench().Counters()["moveto"] == moves + 2, "a jog is not two moves");
    stage.WaitUntil([&] { return stage.State().intManipulatorNumber == 1; }, "needle 2 is not selected");
    stage.RequireBoxesAsExpected();
    PrintLine("manipulator TEST: needle 2 forward by 50 counts and back");
}

void BeToldOfTheUnsetCell(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    PressNeedle(play, 0);
    const PositionXYZ before = play.stage.Workbench().CountsOf(1);
    play.stage.Boxes().Expect(QStringLiteral("Please set cell position."));
    play.hands.Press(QStringLiteral("Move"));
    play.stage.RequireBoxesAsExpected();
    Require(play.hands.PressedIn(NeedleButton(0)), "the needle is not chosen any more");
    Require(play.stage.Workbench().CountsOf(1) == before, "a needle moved to a cell that is not set");
    for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
        Require(!play.hands.Enabled(CellButton(cell)), "a cell that is not set can be chosen");
    }
    PrintLine("Move before any cell is set: told in its box, nothing moved, the needle stays chosen");
}

}  // namespace

void PlayPanelConnectAct(PanelPlay& play) {
    for (const Row& row : Rows()) {
        Require(StoredPort(play, row.name) == QLatin1String("none"), "the settings hold a port already");
    }
    Require(play.hands.ShownPanel() == QLatin1String("CtlExperiment1"),
            "the experiment panel is not on show");
    Require(!play.hands.Enabled(QStringLiteral("Move")), "Move can be pressed without a mirror");
    play.hands.OpenPanel(QStringLiteral("Connection"), QStringLiteral("CtlConnection1"));
    for (const Row& row : Rows()) {
        Require(!play.hands.Enabled(QStringLiteral("Test ") + row.inPress), "TEST is open without a port");
    }
    BeRefused(play);
    Connect(play);
    TestMirror(play);
    TestMotorAndGauge(play);
    TestManipulator(play);
    play.stage.SavePicture(QStringLiteral("panel-connection"));
    BeToldOfTheUnsetCell(play);
}

}  // namespace workbench::tour
