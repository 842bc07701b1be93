#include "diagnostics/words/StateTexts.h"

#include <algorithm>
#include <iterator>

namespace travo::diagnostics {

namespace {

template <typename State>
struct Row {
    State state;
    Mark mark;
    const char* sentence;
    const char* remedy;
};

struct NeedleRow {
    NeedleState state;
    Mark mark;
    const char* word;
    const char* sentence;
    const char* remedy;
};

const Row<WireState> WireStates[] = {
    {WireState::Unset, Mark::NotSetUp, "No port is set.",
     "Connection: choose the port, then press SET in its row."},
    {WireState::Well, Mark::Works, "Port {N} is open. Last answer {AGO}.", ""},
    {WireState::Quiet, Mark::Works, "Port {N} is open. Nothing was asked yet.", ""},
    {WireState::Waiting, Mark::Waiting, "Port {N} is open. No answer yet.",
     "Nothing to do: the verdict comes within two seconds."},
    {WireState::Silent, Mark::NeedsYou, "No answer on port {N}; it was closed at {TIME}.",
     "Switch {IT} on, check its cable, then press SET in its row."},
    {WireState::Late, Mark::NeedsYou, "Port {N} is open, but the last {K} questions had no answer.",
     "Check that {IT} is on and its cable is in, then press SET in its row."},
    {WireState::Missing, Mark::NeedsYou, "Port {N} is not there: nothing is plugged in.",
     "Plug the cable in, then press SET in its row."},
    {WireState::Pinned, Mark::NeedsYou, "Port {N} is pinned to a device that is not plugged in.",
     "Plug this device in, or pin the port to another: travo --pin {WORD} DEVICE"},
    {WireState::Group, Mark::NeedsYou, "Port {N} may not be opened: your user is not in group {GROUP}.",
     "Have your user added to {GROUP}, log in again, then press SET in its row."},
    {WireState::Denied, Mark::NeedsYou, "Port {N} may not be opened: {REASON}.",
     "Give your user the right to read and write it, then press SET in its row."},
    {WireState::Taken, Mark::NeedsYou, "Port {N} is in use by {PROGRAM}.",
     "Close {PROGRAM}, then press SET in its row."},
    {WireState::TakenTwo, Mark::NeedsYou, "Port {N} is in use by another program.",
     "Close that program, then press SET in its row."},
    {WireState::Own, Mark::NeedsYou, "Port {N} is in use by TRAVO: {OTHER}.",
     "Choose another port for {IT}, then press SET in its row."},
    {WireState::Line, Mark::NeedsYou, "Port {N} does not take {IT}'s line settings.",
     "Use another adapter or another port, then press SET in its row."},
    {WireState::Fail, Mark::NeedsYou, "Port {N} cannot be opened: {REASON}.",
     "Choose another port, or plug the cable out and in, then press SET in its row."},
    {WireState::Lost, Mark::NeedsYou, "The connection was lost at {TIME}.",
     "Check cable and power, then press SET in its row."},
    {WireState::Noise, Mark::Look, "Port {N} is open, but {K} lines of the last minute made no sense.",
     "Check that {IT} is on this port and no other instrument, and look at the cable."},
    {WireState::Free, Mark::Works, "Port {N} is there and free. TRAVO is not running.", ""},
    {WireState::FreeBesideTravo, Mark::Look, "Port {N} is there and free, but not open in TRAVO.",
     "Press SET in its row."},
    {WireState::Held, Mark::Works, "Port {N} is open in TRAVO. What was said shows there, with F2.", ""},
    {WireState::Off, Mark::Look, "Port {N} is open. The mirror's motors are off.",
     "Magnification window: press On."},
    {WireState::Error, Mark::Look, "Port {N} is open. The mirror told error {E} at {TIME}.",
     "Look at the mirror controller's display; its manual tells the number."},
    {WireState::Zero, Mark::Look, "Port {N} is open. No height was told since the zero point.",
     "Turn the focus a little; a zero point needs a fresh height."},
    {WireState::Busy, Mark::Look, "Port {N} is open. A move was sent at {TIME} and is not answered.",
     "Connection: show the panel again, which frees SET and TEST."},
};

const Row<NeedlesState> NeedlesStates[] = {
    {NeedlesState::Well, Mark::Works, "{COUNT} answer. Last call {AGO}.", ""},
    {NeedlesState::File, Mark::NeedsYou, "There is no driver in the program folder.",
     "Put libManipulatorDriver.so into {FOLDER}, then start TRAVO again."},
    {NeedlesState::Load, Mark::NeedsYou, "The driver cannot be loaded: {REASON}.",
     "Install what the reason names, then start TRAVO again."},
    {NeedlesState::Symbol, Mark::NeedsYou, "The driver lacks the function {SYMBOL}.",
     "Put the driver that fits this TRAVO into {FOLDER}, then start TRAVO again."},
    {NeedlesState::None, Mark::NeedsYou, "The driver works, but finds no needle.",
     "Switch the manipulators on, then press “Connect needles again”."},
    {NeedlesState::Lost, Mark::NeedsYou, "The needles were disconnected at {TIME}.",
     "Check power and cable of the manipulators, then press “Connect needles again”."},
    {NeedlesState::Again, Mark::NeedsYou, "The last try to connect the needles failed.",
     "Check power and cable of the manipulators, then press “Connect needles again”."},
    {NeedlesState::Hung, Mark::NeedsYou, "The driver did not answer at {TIME} and was ended.",
     "Press “Connect needles again”. If it happens again, copy the report."},
    {NeedlesState::Crash, Mark::NeedsYou, "The driver crashed at {TIME}.",
     "Press “Connect needles again”. If it happens again, copy the report."},
    {NeedlesState::Fails, Mark::NeedsYou, "The last {K} calls of the driver failed.",
     "Check power and cable of the manipulators; after ten failures TRAVO asks to reconnect."},
    {NeedlesState::Odd, Mark::Look, "{COUNT} answer. {K} calls failed since the start, the last at {TIME}.",
     "Nothing to do now. If it goes on, check the cable."},
    {NeedlesState::Slow, Mark::Look, "{COUNT} answer. The slowest call took {SECONDS} s.",
     "Nothing to do now. While a call is slow, TRAVO stands still."},
    {NeedlesState::Range, Mark::Look, "{COUNT} answer. A fifth one is connected; TRAVO shows four.",
     "Plug the fifth one out."},
    {NeedlesState::FileOk, Mark::Works, "The driver is there and complete. TRAVO is not running.", ""},
    {NeedlesState::Held, Mark::Works, "The driver is loaded in TRAVO. Its calls show there, with F2.", ""},
};

const Row<CameraState> CameraStates[] = {
    {CameraState::Well, Mark::Works, "The camera program runs. Last call {AGO}.", ""},
    {CameraState::Off, Mark::NotSetUp, "The camera is not started.", "Connection: press SET in its row."},
    {CameraState::Closed, Mark::NotSetUp, "The camera was closed at {TIME}.",
     "User: press Camera to show it again."},
    {CameraState::Bus, Mark::NeedsYou, "There is no session bus, so no camera can be reached.",
     "Start TRAVO with the command travo; it brings a bus along."},
    {CameraState::Service, Mark::NeedsYou, "No camera program is known to the session bus.",
     "Install the camera's program, then press SET in its row."},
    {CameraState::Start, Mark::NeedsYou, "The camera program could not be started: {REASON}.",
     "Start the camera's program by hand to see its own message, then press SET in its row."},
    {CameraState::Dead, Mark::NeedsYou, "The camera stopped answering at {TIME}.",
     "User: press Camera to start it again."},
    {CameraState::Held, Mark::Works, "The camera is used by TRAVO. Its calls show there, with F2.", ""},
};

const Row<SettingsState> SettingsStates[] = {
    {SettingsState::Well, Mark::Works, "Kept in {FILE}. Last written {AGO}.", ""},
    {SettingsState::New, Mark::Works, "No settings yet: the first SET writes {FILE}.", ""},
    {SettingsState::Readonly, Mark::NeedsYou, "Nothing you set is kept: {FOLDER} cannot be written.",
     "Give your user the right to write there, then press SET again."},
    {SettingsState::Full, Mark::NeedsYou, "Nothing you set is kept: the disk is full.",
     "Make room, then press SET again."},
    {SettingsState::Failed, Mark::NeedsYou, "The settings could not be written at {TIME}: {REASON}.",
     "Remove the cause, then press SET again where the value belongs."},
    {SettingsState::Range, Mark::Look, "{K} values were out of range; TRAVO took others.",
     "Open the details, then set each value again on its panel."},
    {SettingsState::Log, Mark::NeedsYou, "The log cannot be written to {FOLDER}.",
     "Give your user the right to write there; TRAVO works on without it."},
    {SettingsState::Room, Mark::Look, "Only {MB} MB are left on the disk of the settings.",
     "Make room before the next calibration."},
};

const NeedleRow NeedleStates[] = {
    {NeedleState::None, Mark::NotSetUp, "Not calibrated", "Takes no automatic move.",
     "Calibrate needle {n}."},
    {NeedleState::Absent, Mark::NotSetUp, "Not connected", "Calibrated, but not connected now.", ""},
    {NeedleState::Centre, Mark::NeedsYou, "No centre", "After the next start its positions are wrong.",
     "Re-calibrate needle {n}."},
    {NeedleState::CentreNow, Mark::NeedsYou, "No centre", "Its positions are wrong since this start.",
     "Re-calibrate needle {n}."},
    {NeedleState::CentreOld, Mark::NeedsYou, "Old centre",
     "Older than the calibration: after the next start its positions are off.", "Re-calibrate needle {n}."},
    {NeedleState::OldNow, Mark::NeedsYou, "Old centre",
     "Older than the calibration: its positions are off since this start.", "Re-calibrate needle {n}."},
    {NeedleState::Poor, Mark::NeedsYou, "Poor", "{SENTENCE}", "Calibrate needle {n}."},
    {NeedleState::Fair, Mark::Look, "Fair", "{SENTENCE}", ""},
    {NeedleState::Good, Mark::Works, "Good", "{SENTENCE}", ""},
};
// Every state has its row.
template <typename Row, std::size_t count, typename State>
const Row& RowOf(const Row (&rows)[count], State state) {
    return *std::find_if(std::begin(rows), std::end(rows),
                         [state](const Row& row) { return row.state == state; });
}

template <typename Row>
StateText TextIn(const Row& row) {
    return {row.mark, QString::fromUtf8(row.sentence), QString::fromUtf8(row.remedy)};
}

QString FilledText(const QString& text, Values values) {
    QString filled;
    qsizetype from = 0;
    while (from < text.size()) {
        const QStringView rest = QStringView(text).sliced(from);
        const auto found = std::find_if(values.begin(), values.end(), [&rest](const auto& value) {
            return rest.startsWith(QLatin1Char('{') + QLatin1String(value.first) + QLatin1Char('}'));
        });
        if (found != values.end()) {
            filled += found->second;
            from += QLatin1String(found->first).size() + 2;
        } else {
            filled += text[from++];
        }
    }
    return filled;
}

}  // namespace

QString WordOf(Mark mark) {
    switch (mark) {
        case Mark::Works:
            return QStringLiteral("Works");
        case Mark::Look:
            return QStringLiteral("Worth a look");
        case Mark::Waiting:
            return QStringLiteral("Waiting");
        case Mark::NotSetUp:
            return QStringLiteral("Not set up");
        case Mark::NeedsYou:
            break;
    }
    return QStringLiteral("Needs you");
}

StateText TextOf(WireState state) { return TextIn(RowOf(WireStates, state)); }
StateText TextOf(NeedlesState state) { return TextIn(RowOf(NeedlesStates, state)); }
StateText TextOf(CameraState state) { return TextIn(RowOf(CameraStates, state)); }
StateText TextOf(SettingsState state) { return TextIn(RowOf(SettingsStates, state)); }

NeedleText TextOf(NeedleState state) {
    const NeedleRow& row = RowOf(NeedleStates, state);
    return {TextIn(row), QString::fromUtf8(row.word)};
}

StateText Filled(const StateText& text, Values values) {
    return {text.mark, FilledText(text.sentence, values), FilledText(text.remedy, values)};
}

}  // namespace travo::diagnostics
