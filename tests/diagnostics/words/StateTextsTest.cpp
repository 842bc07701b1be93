// The words of the diagnostics, to the letter.
#include "diagnostics/words/StateTexts.h"

#include <gtest/gtest.h>

#include "diagnostics/words/Ages.h"
#include "diagnostics/words/Discretion.h"

namespace travo::diagnostics::test {

namespace {

struct Wanted {
    StateText (*text)();
    Mark mark;
    const char* sentence;
    const char* remedy;
};

const Wanted All[] = {
    {[] { return TextOf(WireState::Unset); }, Mark::NotSetUp, "No port is set.",
     "Connection: choose the port, then press SET in its row."},
    {[] { return TextOf(WireState::Well); }, Mark::Works, "Port {N} is open. Last answer {AGO}.", ""},
    {[] { return TextOf(WireState::Quiet); }, Mark::Works, "Port {N} is open. Nothing was asked yet.", ""},
    {[] { return TextOf(WireState::Waiting); }, Mark::Waiting, "Port {N} is open. No answer yet.",
     "Nothing to do: the verdict comes within two seconds."},
    {[] { return TextOf(WireState::Silent); }, Mark::NeedsYou,
     "No answer on port {N}; it was closed at {TIME}.",
     "Switch {IT} on, check its cable, then press SET in its row."},
    {[] { return TextOf(WireState::Late); }, Mark::NeedsYou,
     "Port {N} is open, but the last {K} questions had no answer.",
     "Check that {IT} is on and its cable is in, then press SET in its row."},
    {[] { return TextOf(WireState::Missing); }, Mark::NeedsYou,
     "Port {N} is not there: nothing is plugged in.", "Plug the cable in, then press SET in its row."},
    {[] { return TextOf(WireState::Pinned); }, Mark::NeedsYou,
     "Port {N} is pinned to a device that is not plugged in.",
     "Plug this device in, or pin the port to another: travo --pin {WORD} DEVICE"},
    {[] { return TextOf(WireState::Group); }, Mark::NeedsYou,
     "Port {N} may not be opened: your user is not in group {GROUP}.",
     "Have your user added to {GROUP}, log in again, then press SET in its row."},
    {[] { return TextOf(WireState::Denied); }, Mark::NeedsYou, "Port {N} may not be opened: {REASON}.",
     "Give your user the right to read and write it, then press SET in its row."},
    {[] { return TextOf(WireState::Taken); }, Mark::NeedsYou, "Port {N} is in use by {PROGRAM}.",
     "Close {PROGRAM}, then press SET in its row."},
    {[] { return TextOf(WireState::TakenTwo); }, Mark::NeedsYou, "Port {N} is in use by another program.",
     "Close that program, then press SET in its row."},
    {[] { return TextOf(WireState::Own); }, Mark::NeedsYou, "Port {N} is in use by TRAVO: {OTHER}.",
     "Choose another port for {IT}, then press SET in its row."},
    {[] { return TextOf(WireState::Line); }, Mark::NeedsYou, "Port {N} does not take {IT}'s line settings.",
     "Use another adapter or another port, then press SET in its row."},
    {[] { return TextOf(WireState::Fail); }, Mark::NeedsYou, "Port {N} cannot be opened: {REASON}.",
     "Choose another port, or plug the cable out and in, then press SET in its row."},
    {[] { return TextOf(WireState::Lost); }, Mark::NeedsYou, "The connection was lost at {TIME}.",
     "Check cable and power, then press SET in its row."},
    {[] { return TextOf(WireState::Noise); }, Mark::Look,
     "Port {N} is open, but {K} lines of the last minute made no sense.",
     "Check that {IT} is on this port and no other instrument, and look at the cable."},
    {[] { return TextOf(WireState::Free); }, Mark::Works, "Port {N} is there and free. TRAVO is not running.",
     ""},
    {[] { return TextOf(WireState::FreeBesideTravo); }, Mark::Look,
     "Port {N} is there and free, but not open in TRAVO.", "Press SET in its row."},
    {[] { return TextOf(WireState::Held); }, Mark::Works,
     "Port {N} is open in TRAVO. What was said shows there, with F2.", ""},
    {[] { return TextOf(WireState::Off); }, Mark::Look, "Port {N} is open. The mirror's motors are off.",
     "Magnification window: press On."},
    {[] { return TextOf(WireState::Error); }, Mark::Look,
     "Port {N} is open. The mirror told error {E} at {TIME}.",
     "Look at the mirror controller's display; its manual tells the number."},
    {[] { return TextOf(WireState::Zero); }, Mark::Look,
     "Port {N} is open. No height was told since the zero point.",
     "Turn the focus a little; a zero point needs a fresh height."},
    {[] { return TextOf(WireState::Busy); }, Mark::Look,
     "Port {N} is open. A move was sent at {TIME} and is not answered.",
     "Connection: show the panel again, which frees SET and TEST."},
    {[] { return TextOf(NeedlesState::Well); }, Mark::Works, "{COUNT} answer. Last call {AGO}.", ""},
    {[] { return TextOf(NeedlesState::File); }, Mark::NeedsYou, "There is no driver in the program folder.",
     "Put libManipulatorDriver.so into {FOLDER}, then start TRAVO again."},
    {[] { return TextOf(NeedlesState::Load); }, Mark::NeedsYou, "The driver cannot be loaded: {REASON}.",
     "Install what the reason names, then start TRAVO again."},
    {[] { return TextOf(NeedlesState::Symbol); }, Mark::NeedsYou, "The driver lacks the function {SYMBOL}.",
     "Put the driver that fits this TRAVO into {FOLDER}, then start TRAVO again."},
    {[] { return TextOf(NeedlesState::None); }, Mark::NeedsYou, "The driver works, but finds no needle.",
     "Switch the manipulators on, then press “Connect needles again”."},
    {[] { return TextOf(NeedlesState::Lost); }, Mark::NeedsYou, "The needles were disconnected at {TIME}.",
     "Check power and cable of the manipulators, then press “Connect needles again”."},
    {[] { return TextOf(NeedlesState::Again); }, Mark::NeedsYou,
     "The last try to connect the needles failed.",
     "Check power and cable of the manipulators, then press “Connect needles again”."},
    {[] { return TextOf(NeedlesState::Hung); }, Mark::NeedsYou,
     "The driver did not answer at {TIME} and was ended.",
     "Press “Connect needles again”. If it happens again, copy the report."},
    {[] { return TextOf(NeedlesState::Crash); }, Mark::NeedsYou, "The driver crashed at {TIME}.",
     "Press “Connect needles again”. If it happens again, copy the report."},
    {[] { return TextOf(NeedlesState::Fails); }, Mark::NeedsYou, "The last {K} calls of the driver failed.",
     "Check power and cable of the manipulators; after ten failures TRAVO asks to reconnect."},
    {[] { return TextOf(NeedlesState::Odd); }, Mark::Look,
     "{COUNT} answer. {K} calls failed since the start, the last at {TIME}.",
     "Nothing to do now. If it goes on, check the cable."},
    {[] { return TextOf(NeedlesState::Slow); }, Mark::Look,
     "{COUNT} answer. The slowest call took {SECONDS} s.",
     "Nothing to do now. While a call is slow, TRAVO stands still."},
    {[] { return TextOf(NeedlesState::Range); }, Mark::Look,
     "{COUNT} answer. A fifth one is connected; TRAVO shows four.", "Plug the fifth one out."},
    {[] { return TextOf(NeedlesState::FileOk); }, Mark::Works,
     "The driver is there and complete. TRAVO is not running.", ""},
    {[] { return TextOf(NeedlesState::Held); }, Mark::Works,
     "The driver is loaded in TRAVO. Its calls show there, with F2.", ""},
    {[] { return TextOf(CameraState::Well); }, Mark::Works, "The camera program runs. Last call {AGO}.", ""},
    {[] { return TextOf(CameraState::Off); }, Mark::NotSetUp, "The camera is not started.",
     "Connection: press SET in its row."},
    {[] { return TextOf(CameraState::Closed); }, Mark::NotSetUp, "The camera was closed at {TIME}.",
     "User: press Camera to show it again."},
    {[] { return TextOf(CameraState::Bus); }, Mark::NeedsYou,
     "There is no session bus, so no camera can be reached.",
     "Start TRAVO with the command travo; it brings a bus along."},
    {[] { return TextOf(CameraState::Service); }, Mark::NeedsYou,
     "No camera program is known to the session bus.",
     "Install the camera's program, then press SET in its row."},
    {[] { return TextOf(CameraState::Start); }, Mark::NeedsYou,
     "The camera program could not be started: {REASON}.",
     "Start the camera's program by hand to see its own message, then press SET in its row."},
    {[] { return TextOf(CameraState::Dead); }, Mark::NeedsYou, "The camera stopped answering at {TIME}.",
     "User: press Camera to start it again."},
    {[] { return TextOf(CameraState::Held); }, Mark::Works,
     "The camera is used by TRAVO. Its calls show there, with F2.", ""},
    {[] { return TextOf(SettingsState::Well); }, Mark::Works, "Kept in {FILE}. Last written {AGO}.", ""},
    {[] { return TextOf(SettingsState::New); }, Mark::Works, "No settings yet: the first SET writes {FILE}.",
     ""},
    {[] { return TextOf(SettingsState::Readonly); }, Mark::NeedsYou,
     "Nothing you set is kept: {FOLDER} cannot be written.",
     "Give your user the right to write there, then press SET again."},
    {[] { return TextOf(SettingsState::Full); }, Mark::NeedsYou, "Nothing you set is kept: the disk is full.",
     "Make room, then press SET again."},
    {[] { return TextOf(SettingsState::Failed); }, Mark::NeedsYou,
     "The settings could not be written at {TIME}: {REASON}.",
     "Remove the cause, then press SET again where the value belongs."},
    {[] { return TextOf(SettingsState::Range); }, Mark::Look,
     "{K} values were out of range; TRAVO took others.",
     "Open the details, then set each value again on its panel."},
    {[] { return TextOf(SettingsState::Log); }, Mark::NeedsYou, "The log cannot be written to {FOLDER}.",
     "Give your user the right to write there; TRAVO works on without it."},
    {[] { return TextOf(SettingsState::Room); }, Mark::Look,
     "Only {MB} MB are left on the disk of the settings.", "Make room before the next calibration."},
};

struct WantedOfNeedle {
    NeedleState state;
    Mark mark;
    const char* word;
    const char* sentence;
    const char* remedy;
};

const WantedOfNeedle OfNeedles[] = {
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

}  // namespace

TEST(StateTextsTest, EachStateOfALinkHasItsMarkSentenceAndRemedy) {
    for (const Wanted& wanted : All) {
        EXPECT_EQ(wanted.text().sentence.toStdString(), wanted.sentence);
        EXPECT_EQ(wanted.text().remedy.toStdString(), wanted.remedy) << wanted.sentence;
        EXPECT_EQ(wanted.text().mark, wanted.mark) << wanted.sentence;
    }
}

TEST(StateTextsTest, EachStateOfANeedleHasItsMarkWordSentenceAndRemedy) {
    for (const WantedOfNeedle& wanted : OfNeedles) {
        const NeedleText text = TextOf(wanted.state);
        EXPECT_EQ(text.word.toStdString(), wanted.word);
        EXPECT_EQ(text.text.sentence.toStdString(), wanted.sentence);
        EXPECT_EQ(text.text.remedy.toStdString(), wanted.remedy) << wanted.word;
        EXPECT_EQ(text.text.mark, wanted.mark) << wanted.word;
    }
}

TEST(StateTextsTest, NamesInBracesAreFilledInSentenceAndRemedy) {
    const StateText text = Filled(TextOf(WireState::Taken),
                                  {{"N", QStringLiteral("3")}, {"PROGRAM", QStringLiteral("minicom")}});
    EXPECT_EQ(text.sentence, QStringLiteral("Port 3 is in use by minicom."));
    EXPECT_EQ(text.remedy, QStringLiteral("Close minicom, then press SET in its row."));
}

TEST(StateTextsTest, WhatAValueHoldsInBracesIsNotFilledAgain) {
    const StateText text =
        Filled(TextOf(WireState::Taken), {{"PROGRAM", QStringLiteral("{N}")}, {"N", QStringLiteral("3")}});
    EXPECT_EQ(text.sentence, QStringLiteral("Port 3 is in use by {N}."));
}

TEST(StateTextsTest, EachMarkHasItsWord) {
    EXPECT_EQ(WordOf(Mark::Works), QStringLiteral("Works"));
    EXPECT_EQ(WordOf(Mark::Look), QStringLiteral("Worth a look"));
    EXPECT_EQ(WordOf(Mark::Waiting), QStringLiteral("Waiting"));
    EXPECT_EQ(WordOf(Mark::NotSetUp), QStringLiteral("Not set up"));
    EXPECT_EQ(WordOf(Mark::NeedsYou), QStringLiteral("Needs you"));
}

TEST(AgesTest, OnePlaceBelowTenSecondsThenWholeSecondsMinutesAndHours) {
    EXPECT_EQ(AgoText(0.12), QStringLiteral("0.1 s ago"));
    EXPECT_EQ(AgoText(9.99), QStringLiteral("9.9 s ago"));
    EXPECT_EQ(AgoText(14.7), QStringLiteral("14 s ago"));
    EXPECT_EQ(AgoText(59.9), QStringLiteral("59 s ago"));
    EXPECT_EQ(AgoText(60.0), QStringLiteral("1 min ago"));
    EXPECT_EQ(AgoText(3599.0), QStringLiteral("59 min ago"));
    EXPECT_EQ(AgoText(7300.0), QStringLiteral("2 h ago"));
    EXPECT_EQ(AgoText(-3.0), QStringLiteral("0.0 s ago"));
}

TEST(AgesTest, NeedlesAreCountedInWords) {
    EXPECT_EQ(NeedleCountText(1), QStringLiteral("One needle"));
    EXPECT_EQ(NeedleCountText(4), QStringLiteral("Four needles"));
}

TEST(DiscretionTest, TheHomeFolderBecomesATilde) {
    const Discretion discretion{QStringLiteral("/home/ada"), QStringLiteral("ada"), QStringLiteral("lab-pc")};
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("/home/ada/.local/share")), QStringLiteral("~/.local/share"));
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("Kept in /home/ada.")), QStringLiteral("Kept in ~."));
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("/home/ada")), QStringLiteral("~"));
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("/home/adalbert/x")), QStringLiteral("/home/adalbert/x"));
}

TEST(DiscretionTest, UserAndHostStandNowhereAsWords) {
    const Discretion discretion{QStringLiteral("/home/ada"), QStringLiteral("ada"), QStringLiteral("lab-pc")};
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("/media/ada/disk on lab-pc: adapter of ada")),
              QStringLiteral("/media/USER/disk on HOST: adapter of USER"));
}

TEST(DiscretionTest, ARootFolderAsHomeHidesNothing) {
    const Discretion discretion{QStringLiteral("/"), {}, {}};
    EXPECT_EQ(discretion.Cleaned(QStringLiteral("/dev/ttyS0")), QStringLiteral("/dev/ttyS0"));
}

}  // namespace travo::diagnostics::test
