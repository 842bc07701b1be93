#include "workbench/tour/PanelConnectAct.h"

#include <array>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

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

void PressSet(PanelPlay& play, const Row& row, const QString& port, const QString& verdict) {
    play.hands.Type(row.name + QStringLiteral(" port"), port);
    play.hands.Press(QStringLiteral("Connect ") + row.inPress);
    play.stage.WaitUntil([&] { return play.hands.Read(row.name + QStringLiteral(" state")) == verdict; },
                         row.name.toStdString() + ": the verdict is not " + verdict.toStdString());
}

void Connect(PanelPlay& play) {
    for (const Row& row : Rows()) {
        PressSet(play, row, row.port, QStringLiteral("Connected"));
    }
    play.stage.RequireBoxesAsExpected();
    Require(!play.stage.Workbench().GaugeKeysEnabled(), "the gauge's own keys are not locked");
    PrintLine("ports 1, 2 and 3 typed and SET: three verdicts, gauge keys locked");
}

}  // namespace

void PlayPanelConnectAct(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Connection"), QStringLiteral("CtlConnection1"));
    Connect(play);
    SetMagnification(play, 2);
    play.stage.SavePicture(QStringLiteral("panel-connection"));
}

}  // namespace workbench::tour
