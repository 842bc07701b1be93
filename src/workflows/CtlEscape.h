// The panel on which the operator records where each needle and the objective go on escape.
#pragma once

#include <array>
#include <cstdint>

#include "controls/NumberLabel.h"
#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/usrKVButton.h"
#include "core/ground/Positions.h"
#include "core/state/LiveLink.h"
#include "core/state/NeedleReader.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"
#include "needle/clsEscape.h"
#include "workflows/CtlEscapeNeedle.h"

namespace travo {

// Positions are in the common frame and live in clsEscape for the present run only. The labels show them,
// Y with the opposite sign. Nothing here handles failures: they go to the caller, or to the event loop where
// the operator's press is the cause.
class CtlEscape : public PanelCanvas, public PanelSteps, public HearsZeroPosition {
    Q_OBJECT

public:
    // What the other panels know.
    class Owner {
    public:
        virtual ~Owner() = default;
        // The needle, 0 to 3, is lit on a panel on which needles are chosen.
        virtual bool IsLit(std::int16_t needle) const = 0;
        // The needle is not the one that the hardware has selected: its lamps go to that one.
        virtual void TakeLampsFrom(std::int16_t needle) = 0;
    };

    // Each outlives the panel.
    struct System {
        SharedState& state;
        clsCommunication& communication;
        clsEscape& escape;
        LiveLink& live;
        NeedleReader& needle;
        Owner& owner;
    };

    // programFolder holds the folder skin. No needle has been shown as connected: its labels are hidden and
    // its button is disabled.
    CtlEscape(const System& system, const QString& programFolder, QWidget* parent = nullptr);

    // Takes the new zero, ZeroXYZ(2), from the heights that have been recorded. X and Y stay.
    // OverflowFailure where a difference does not fit 32 bits; the heights before it are done by then.
    void ChangeZeroPosition() override;

    // Needles that are connected now can be recorded from here on, whatever becomes of them later.
    void Shown() override;
    void Hidden() override {}

private:
    static constexpr std::size_t ObjectiveIndex = 4;
    static constexpr std::size_t ButtonCount = 5;
    static constexpr std::size_t LabelCount = NeedleCount * AxisCount;

    void Place();
    void PlacePaint();
    void PlaceNeedles();
    void PlaceObjective();

    void ButtonPressed(std::size_t Index);
    // A button records what is known of its own needle, whichever is selected. A needle that has been chosen
    // elsewhere and not been read since is read once; false where the hardware has another even then.
    bool IsKnown(std::int16_t needle);
    void RecordNeedle(std::int32_t needle);
    void RecordObjective();
    NumberLabel& NeedleLabel(std::int32_t needle, std::int32_t axis);

    const System system_;
    // By needle times 3 plus axis.
    std::array<NumberLabel, LabelCount> lblEscPos_;
    NumberLabel lblEscZPos_;
    std::array<CtlEscapeNeedle, NeedleCount> needleMark_;
    // SET of needles 1 to 4, then of the objective.
    std::array<usrKVButton, ButtonCount> button_;
};

}  // namespace travo
