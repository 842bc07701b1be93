#include "support/BoxTable.h"

#include <gtest/gtest.h>

#include <QLatin1String>
#include <algorithm>
#include <array>
#include <string>

namespace travo::test {

namespace {

using platform::BoxButtons;
using platform::BoxIcon;

enum class Focus { OnOK, OnCancel };
enum class Place { Middle, Beside };

// How a box is known by its text.
enum class Known { Whole, Beginning, Ending };

struct Row {
    QLatin1String text;
    BoxButtons buttons = BoxButtons::OK;
    BoxIcon icon = BoxIcon::None;
    Focus focus = Focus::OnOK;
    Place place = Place::Middle;
    Known known = Known::Whole;
};

constexpr Row Plain(const char* text) { return {QLatin1String(text)}; }
// A line from a wire stands ahead of the text.
constexpr Row PlainBehindLine(const char* text) {
    Row row = Plain(text);
    row.known = Known::Ending;
    return row;
}
constexpr Row PlainBeforeNumber(const char* text) {
    Row row = Plain(text);
    row.known = Known::Beginning;
    return row;
}

constexpr std::array Rows{
    // A choice, or a sign.
    Row{QLatin1String("Do you want to end? This will clear all saved cell and escape positions."),
        BoxButtons::OKCancel, BoxIcon::None, Focus::OnCancel},
    Row{QLatin1String("Manipulator was disconnected. Reconnect Manipulator?"), BoxButtons::OKCancel},
    Row{QLatin1String("Did you set it at this position?"), BoxButtons::YesNo, BoxIcon::None, Focus::OnOK,
        Place::Beside},
    Row{QLatin1String("WARNING!\r\nThere is a possibility  the needles will come in contact.\r\n"
                      "Movement is discontinued.  Please move the needles manually."),
        BoxButtons::OK, BoxIcon::Stop},
    // Start, end, windows.
    Plain("TRAVO has already started."),
    Plain("Please connect Zelvo version micromanipulator."),
    Plain("Error : Initialize"),
    Plain("Error : Load"),
    Plain("Error : Unload"),
    Plain("Error : Camera Load"),
    Plain("Error : Window Load"),
    Plain("Error : Unexpected failure"),
    // Connection.
    Plain("Mirror : Connection failed"),
    Plain("Magnescale : Connection failed"),
    Plain("Motor : Connection failed"),
    Plain("Error : Mirror : Communication connection"),
    Plain("Error : Magnescale : Communication connection"),
    Plain("Error : Motor : Communication connection"),
    PlainBeforeNumber("The value of Magnescal is"),
    Plain("Device Manager is Not found"),
    // Instruments.
    Plain("Manipulator : Outside the movement range"),
    Plain("Manipulator : Communication failed"),
    Plain("Error : Manipulator : Communication failed"),
    Plain("Mirror : Communication failed"),
    Plain("Motor : Communication failed"),
    Plain("Error : Magnescale : Communication Port Close failed"),
    Plain("Movement limit X"),
    Plain("Movement limit Y"),
    PlainBehindLine(" : Mirror : Command Error"),
    PlainBehindLine(" : Mirror : Parametar Error"),
    PlainBehindLine(" : Mirror : Timeout Error"),
    PlainBehindLine(" : Mirror : Reception buffer overflow"),
    PlainBehindLine(" : Mirror : PCL Error"),
    PlainBehindLine(" : Mirror : Command overflow"),
    PlainBehindLine(" : Mirror : Processing prohibition Error"),
    PlainBehindLine(" : Mirror : Unknown Error"),
    PlainBehindLine(": Motor : Unknown Error"),
    // Calibration.
    Plain("Please adjust the magnification to 2X."),
    Plain("Adjust manipulator Z axis until needle tip is in focus.\r\n"
          "Do not adjust focus knob on microscope."),
    Plain("Please raise object lens\r\nand calibrate the direction of Z"),
    Plain("Error : Manipulator calibration position setting"),
    Plain("Error : Calibration Setting"),
    Plain("Calibration calculation failed"),
    // Moves.
    Plain("Please set cell position."),
    Plain("Please do the calibration. "),
    Plain("Needle move failed"),
    Plain("There is a possibility the needles will come in contact while moving."),
    Plain("Tiltig mirror doesn't move at 0.35x."),
    Plain("Prease connect magnescale"),
    Plain("Amount of the movement once is too large"),
    Plain("Error: Synchronization faild"),
    Plain("Escape : Please set manipulator escape position."),
    Plain("Escape : Prease setting objective escape position"),
    Plain("Escape : Communication failed"),
    Plain("XY Offset changes to minimum value"),
    Plain("Z Offset changes to minimum value"),
};

bool IsOf(const Row& row, const QString& text) {
    switch (row.known) {
        case Known::Beginning:
            return text.startsWith(row.text);
        case Known::Ending:
            return text.endsWith(row.text);
        case Known::Whole:
            break;
    }
    return text == row.text;
}

std::string NameOf(BoxButtons buttons) {
    return buttons == BoxButtons::OK ? "OK" : buttons == BoxButtons::OKCancel ? "OK, Cancel" : "Yes, No";
}

std::string Words(BoxButtons buttons, BoxIcon icon, Focus focus, Place place) {
    return NameOf(buttons) + (icon == BoxIcon::None ? "" : "; with the stop sign") +
           (focus == Focus::OnOK ? "" : "; focus on Cancel") +
           (place == Place::Middle ? "" : "; beside what it asks about");
}

}  // namespace

void ExpectAsInTheTable(const QString& text, BoxButtons buttons, BoxIcon icon,
                        const platform::BoxOpening& opening) {
    const auto* const found =
        std::find_if(Rows.begin(), Rows.end(), [&text](const Row& row) { return IsOf(row, text); });
    if (found == Rows.end()) {
        ADD_FAILURE() << "no row for the box " << text.toStdString();
        return;
    }
    EXPECT_EQ(Words(buttons, icon, opening.isFocusOnCancel ? Focus::OnCancel : Focus::OnOK,
                    opening.beside.isEmpty() ? Place::Middle : Place::Beside),
              Words(found->buttons, found->icon, found->focus, found->place))
        << "the box " << text.toStdString();
}

}  // namespace travo::test
