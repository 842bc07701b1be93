#include "workbench/tour/Handling.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "workbench/tour/Report.h"

namespace workbench::tour {

using travo::PositionXYZ;

std::string NumberText(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return text.data();
}

std::string NeedleName(std::int32_t needle) { return "needle " + std::to_string(needle + 1); }

void ChooseNeedle(Stage& stage, std::int32_t needle) {
    stage.Objects().cCommunication->ChangeManipulator(static_cast<std::int16_t>(needle + 1));
    stage.WaitUntil([&] { return stage.State().intManipulatorNumber == needle; },
                    NeedleName(needle) + " has not become the selected one");
    stage.WaitOneTick();
}

void SendNeedle(Stage& stage, std::int32_t needle, const PositionXYZ& target) {
    stage.Objects().cNeedleMove->NeedleMoveCellPosition(static_cast<std::int16_t>(needle), target,
                                                        stage.State().intTotalManipulatorNumber);
    stage.RequireBoxesAsExpected();
}

double LandingError(Stage& stage, std::int32_t needle, const PositionXYZ& place) {
    stage.WaitUntil([&] { return !stage.Workbench().AnyNeedleMoves(); }, "a needle does not come to rest");
    const WorkbenchClient::Place tip = stage.Workbench().TipOf(needle + 1).now;
    return std::hypot(tip[0] - place[0], tip[1] - place[1], tip[2] - place[2]);
}

PositionXYZ TruePlace(Stage& stage, std::int32_t needle) {
    const WorkbenchClient::Place tip = stage.Workbench().TipOf(needle + 1).now;
    PositionXYZ place{};
    std::transform(tip.begin(), tip.end(), place.begin(),
                   [](double value) { return static_cast<std::int32_t>(std::lround(value)); });
    return place;
}

void RequireNoCrossing(Stage& stage) {
    const WorkbenchClient::Crossings crossings = stage.Workbench().ShaftCrossings();
    for (const WorkbenchClient::Crossing& crossing : crossings.last) {
        PrintLine("needles " + std::to_string(crossing.needleA) + " and " + std::to_string(crossing.needleB) +
                  " truly crossed at " + PlaceText(crossing.x, crossing.y, 0.0));
    }
    Require(crossings.inAll == 0, "shafts truly crossed " + std::to_string(crossings.inAll) + " times");
}

QString StoredSetting(Stage& stage, const QString& section, const QString& key) {
    QFile file(QDir(stage.Where().programFolder).filePath(QStringLiteral("KVData.ini")));
    Require(file.open(QIODevice::ReadOnly), "there is no settings file");
    bool inSection = false;
    for (const QString& line : QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'))) {
        const QString text = line.trimmed();
        if (text.startsWith(QLatin1Char('['))) {
            inSection = text == QLatin1Char('[') + section + QLatin1Char(']');
        } else if (inSection && text.startsWith(key + QLatin1Char('='))) {
            return text.mid(key.size() + 1);
        }
    }
    return QStringLiteral("none");
}

void OpenPorts(Stage& stage) {
    travo::clsCommunication& instruments = *stage.Objects().cCommunication;
    instruments.MirrorPortOpen(1);
    instruments.MagnescalePortOpen(2);
    instruments.MotorPortOpen(3);
    const travo::SharedState& state = stage.State();
    const auto known = [&](std::int32_t axis) { return state.CurrentXYZ(axis) != travo::NoPositionValue; };
    stage.WaitUntil([&] { return known(0) && known(1); }, "the mirror controller does not answer");
    stage.WaitUntil([&] { return known(2); }, "the gauge does not answer");
    stage.WaitUntil([&] { return state.bMotorONOFF; }, "the focus motor does not identify itself");
    stage.RequireBoxesAsExpected();
}

void WaitForInstruments(Stage& stage) {
    const travo::SharedState& state = stage.State();
    for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
        stage.WaitUntil([&] { return state.CurrentXYZ(axis) != travo::NoPositionValue; },
                        "an instrument on a stored port is not heard after the start");
    }
    stage.WaitUntil([&] { return state.bMotorONOFF; }, "the focus motor does not identify itself");
    stage.RequireBoxesAsExpected();
}

void SetMagnification2x(Stage& stage) {
    stage.Objects().cCommunication->SendMirrorMagnificationData(2);
    stage.WaitUntil([&] { return stage.State().CurrentMagnification() == 2; }, "2x has not been reported");
    Require(stage.Workbench().Magnification() == 2, "the world does not stand at 2x");
}

void WaitForView(Stage& stage, std::int32_t x, std::int32_t y) {
    const travo::SharedState& state = stage.State();
    stage.WaitUntil([&] { return state.CurrentXYZ(0) == x && state.CurrentXYZ(1) == y; },
                    "the mirror is not reported at " + std::to_string(x) + ", " + std::to_string(y));
}

void WaitForZ(Stage& stage, std::int32_t z) {
    stage.WaitUntil([&] { return std::abs(stage.State().CurrentXYZ(2) - z) <= 1; },
                    "the gauge does not read " + std::to_string(z));
}

}  // namespace workbench::tour
