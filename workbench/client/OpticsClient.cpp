// The half of the client that works the optics.
#include "workbench/client/ClientText.h"
#include "workbench/client/WorkbenchClient.h"

namespace workbench {

std::array<double, 2> WorkbenchClient::ViewCentreNow() {
    return AnswerReader(Ask("world view")).NextPlace<2>();
}

std::array<double, 2> WorkbenchClient::ViewCentreAtRest() {
    AnswerReader reader(Ask("world view"));
    reader.NextPlace<2>();
    return reader.NextPlace<2>();
}

WorkbenchClient::MirrorState WorkbenchClient::Mirror() {
    AnswerReader reader(Ask("mirror state"));
    MirrorState state;
    state.now = reader.NextPlace<2>();
    state.atRest = reader.NextPlace<2>();
    state.motorsOn = reader.NextFlag();
    state.limitX = reader.NextFlag();
    state.limitY = reader.NextFlag();
    return state;
}

void WorkbenchClient::MoveMirror(std::int32_t x, std::int32_t y) {
    Ask(Request("mirror move").With(x).With(y).Line());
}

void WorkbenchClient::JogMirror(std::int32_t x, std::int32_t y) {
    Ask(Request("mirror jog").With(x).With(y).Line());
}

void WorkbenchClient::SwitchMirrorMotors(bool on) { Ask(Request("mirror motors").With(on ? 1 : 0).Line()); }

std::int32_t WorkbenchClient::Magnification() {
    return AnswerReader(Ask("magnification")).Next<std::int32_t>();
}

void WorkbenchClient::SetMagnification(std::int32_t index) {
    Ask(Request("magnification").With(index).Line());
}

WorkbenchClient::FocusState WorkbenchClient::Focus() {
    AnswerReader reader(Ask("focus state"));
    FocusState state;
    state.now = reader.Next<double>();
    state.atRest = reader.Next<double>();
    state.counts = reader.Next<std::int32_t>();
    state.countsAtRest = reader.Next<std::int32_t>();
    return state;
}

void WorkbenchClient::MoveFocus(std::int32_t counts) { Ask(Request("focus move").With(counts).Line()); }

void WorkbenchClient::JogFocus(std::int32_t counts) { Ask(Request("focus jog").With(counts).Line()); }

WorkbenchClient::GaugeState WorkbenchClient::Gauge() {
    AnswerReader reader(Ask("gauge state"));
    GaugeState state;
    state.reading = reader.Next<double>();
    state.zero = reader.Next<double>();
    return state;
}

WorkbenchClient::CameraState WorkbenchClient::Camera() {
    AnswerReader reader(Ask("camera state"));
    CameraState state;
    state.viewCentre = reader.NextPlace<2>();
    state.magnification = reader.Next<std::int32_t>();
    state.fieldOfView = reader.NextPlace<2>();
    state.focusZ = reader.Next<double>();
    state.needles.resize(reader.Next<std::uint16_t>());
    for (CameraState::Needle& needle : state.needles) {
        needle.connected = reader.NextFlag();
        needle.tip = reader.NextPlace<3>();
        needle.rear = reader.NextPlace<2>();
    }
    state.cells.resize(reader.Next<std::uint16_t>());
    for (CameraState::Cell& cell : state.cells) {
        cell.place = reader.NextPlace<3>();
        cell.radius = reader.Next<double>();
    }
    return state;
}

}  // namespace workbench
