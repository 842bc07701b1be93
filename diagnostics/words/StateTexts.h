// Every state of the diagnostics, with its mark, its sentence and its remedy.
#pragma once

#include <QString>
#include <initializer_list>
#include <utility>

namespace travo::diagnostics {

enum class Mark { Works, Look, Waiting, NotSetUp, NeedsYou };

// "Works", "Worth a look", "Waiting", "Not set up" or "Needs you".
QString WordOf(Mark mark);

enum class WireState {
    Unset,
    Well,
    Quiet,
    Waiting,
    Silent,
    Late,
    Missing,
    Pinned,
    Group,
    Denied,
    Taken,
    TakenTwo,
    Own,
    Line,
    Fail,
    Lost,
    Noise,
    Free,
    FreeBesideTravo,
    Held,
    Off,
    Error,
    Zero,
    Busy
};
enum class NeedlesState {
    Well,
    File,
    Load,
    Symbol,
    None,
    Lost,
    Again,
    Hung,
    Crash,
    Fails,
    Odd,
    Slow,
    Range,
    FileOk,
    Held
};
enum class CameraState { Well, Off, Closed, Bus, Service, Start, Dead, Held };
enum class SettingsState { Well, New, Readonly, Full, Failed, Range, Log, Room };
enum class NeedleState { None, Absent, Centre, CentreNow, CentreOld, OldNow, Poor, Fair, Good };

// Capitals in braces are still to be filled in. The remedy is empty where there is nothing to do.
struct StateText {
    Mark mark = Mark::Works;
    QString sentence;
    QString remedy;

    bool operator==(const StateText&) const = default;
};

StateText TextOf(WireState state);
StateText TextOf(NeedlesState state);
StateText TextOf(CameraState state);
StateText TextOf(SettingsState state);

// A needle's state bears a word of its own, as "No centre".
struct NeedleText {
    StateText text;
    QString word;

    bool operator==(const NeedleText&) const = default;
};

NeedleText TextOf(NeedleState state);

// The text with each {NAME} replaced by its value, in sentence and remedy. What a value holds in braces
// stays.
using Values = std::initializer_list<std::pair<const char*, QString>>;
StateText Filled(const StateText& text, Values values);

}  // namespace travo::diagnostics
