// The panel on which the operator stores where the cells are, and sets the zero point of Z.
#pragma once

#include <array>
#include <cstdint>

#include "controls/NumberBox.h"
#include "controls/NumberLabel.h"
#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/SkinImage.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/ground/Positions.h"
#include "core/state/LiveLink.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"

namespace travo {

// A cell is 0 to 7 (A to H), a row 0 to 3 of one of two pages: page one holds A to D, page two E to H. The
// rows of the shared state hold mirror counts and gauge values as they came; the labels show the common
// frame, Y with the opposite sign.
class CtlCellPosition : public PanelCanvas, public PanelSteps, public HearsZeroPosition {
    Q_OBJECT

public:
    // What only the owner can do.
    class Owner {
    public:
        virtual ~Owner() = default;
        // Makes the present Z the zero point, everywhere. Comes back with ChangeZeroPosition.
        virtual void ZeroPointReset() = 0;
        // A cell, 0 to 7, has been stored: its place in the mirror frame, for the bird's-eye view. An axis
        // that has never been reported stands as 0.
        virtual void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) = 0;
    };

    struct System {
        SharedState& state;
        clsCommunication& communication;
        LiveLink& live;
        Owner& owner;
    };

    // programFolder holds the folder skin. Page one is on show and every label reads "N/A".
    CtlCellPosition(const System& system, const QString& programFolder, QWidget* parent = nullptr);

    // Nothing can be stored while the mirror's port is closed; RESET stays usable.
    void Shown() override;
    void Hidden() override {}

    // Takes the new zero, ZeroXYZ(2), from the Z of every stored cell and shows it, on both pages. X and Y
    // stay. OverflowFailure where a difference does not fit 32 bits; the cells before it are done by then.
    void ChangeZeroPosition() override;

private:
    static constexpr std::size_t RowCount = 4;
    static constexpr std::size_t ResetIndex = 4;
    static constexpr std::size_t ButtonCount = 5;
    static constexpr std::size_t PageCount = 2;
    static constexpr std::size_t LabelCount = CellCount * AxisCount;

    void Place();
    void PlacePaint();
    void PlaceButtons();
    void PlaceReadings();

    void ButtonPressed(std::size_t Index);
    // The present view into a row of the page on show. OverflowFailure where a value does not fit 32 bits.
    void StoreCell(std::int32_t row);
    // The page that the switch says.
    void ShowPage();
    NumberLabel& CellLabel(std::int32_t cell, std::int32_t axis);

    System system_;
    usrKVCheckButton pageSwitch_;
    // SET of rows 1 to 4, then RESET.
    std::array<usrKVButton, ButtonCount> buttons_;
    // By cell times 3 plus axis.
    std::array<NumberLabel, LabelCount> labels_;
    // The row letters of each page.
    std::array<SkinImage, PageCount> letters_;
    // Has its place like the others and is never on show.
    NumberBox zField_;
};

}  // namespace travo
