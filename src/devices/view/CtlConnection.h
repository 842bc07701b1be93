// The panel on which the operator picks the serial port of each instrument and proves that it answers.
#pragma once

#include <array>
#include <cstdint>

#include "controls/NumberBox.h"
#include "controls/NumberLabel.h"
#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/usrKVButton.h"
#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/state/clsIniEdit.h"
#include "devices/links/HearsPorts.h"
#include "devices/links/clsCommunication.h"
#include "devices/view/PortWatch.h"
#include "platform/Clock.h"
#include "platform/Pointer.h"
#include "platform/SerialPortList.h"

namespace travo {

class FormPortList;

// The ports are opened, watched and given up by `PortWatch`; here is what the operator sees and presses.
// Start-up runs the same watches on the stored ports, by `txtNoChange` and `TimerONOFF`, before the panel is
// ever shown.
class CtlConnection : public PanelCanvas,
                      public PanelSteps,
                      public HearsTotalManipulatorNumber,
                      public HearsFocusMotor,
                      public HearsPortLost,
                      public HearsCameraGone,
                      private PortWatch::Listener {
    Q_OBJECT

public:
    // What only the owner can do.
    class Owner {
    public:
        virtual ~Owner() = default;
        // The mirror has answered, or has not: whether the bird's-eye view has a view to mark.
        virtual void chkMirror(bool isConnected) = 0;
    };

    struct System {
        SharedState& state;
        clsCommunication& instruments;
        clsIniEdit& settings;
        LiveLink& live;
        FailureHandler& failures;
        platform::Pointer& pointer;
        platform::SerialPortList& serialPortList;
        platform::Timers& timers;
        Owner& owner;
    };

    CtlConnection(const System& system, const QString& programFolder, QWidget* parent);

    // Stops the watches without a verdict, their ports left open as they are, and unlocks the tests of
    // the instruments whose ports are open, and the motor's SET.
    void Shown() override;
    // Stops the watches without a verdict, their ports left open, and changes nothing else.
    void Hidden() override;

    // The motor's buttons SET and TEST: false locks them, true unlocks them.
    void ControlONOFF(bool bONOFF) override;
    // The port has closed by itself: what its instrument told is forgotten, and its row says so and locks its
    // test. The motor's SET is unlocked. A watch that runs goes on to its verdict.
    void PortLost(Instrument instrument) override;
    // Starts or stops the watch of mirror (0), Magnescale (1) or motor (2). Starting a watch that runs
    // changes nothing. BoundsFailure for any other index.
    void TimerONOFF(std::int16_t Index, bool bONOFF);
    // Puts a text into a number box: ports of mirror (0), Magnescale (1) and motor (2), number of the
    // manipulator to test (3). What is no number, is below 1, or in box 3 is above the number of connected
    // manipulators, becomes "1". BoundsFailure for any other index.
    void txtNoChange(std::int16_t Index, const QString& strNo);

    // To be called when `LiveOpen` or `intTotalManipulatorNumber` has changed: the rows of camera and
    // manipulators say so.
    void StateChange();
    // Likewise.
    void TotalManipulatorNumber(std::int16_t) override { StateChange(); }
    void CameraGone() override { StateChange(); }

private:
    // Rows of the panel; the first four are the indexes of the number boxes, the first three the instruments
    // that are watched.
    enum Row : std::int16_t { Mirror, Magnescale, Motor, Manipulator, Camera };
    static constexpr std::size_t BoxCount = 4;
    static constexpr std::size_t RowCount = 5;
    // Indexes of the buttons.
    enum Button { OpenList = 3, TestMirror, TestMotor, TestManipulator, TestMagnescale, ConnectCamera };
    static constexpr std::size_t ButtonCount = 9;
    // That the operator can type: enough for a number beyond 16 bits, which its row refuses.
    static constexpr int TypedFigures = 5;
    // What a row says of itself.
    using RowState = PortState;

    // Building, placing and wiring, and what the rows say; in a file of their own.
    void Place();
    void PlacePaint();
    void PlacePort(Row row, const QString& instrument, Button test, const QString& testToolTip);
    // The tooltips of a number box and of the arrows on both its sides.
    struct NumberHelp {
        QString down;
        QString box;
        QString up;
    };
    void PlaceNumber(Row row, const QString& human, const NumberHelp& help);
    void PlaceStates();
    void Connect();
    void ShowState(Row row, RowState state);

    void PressButton(int index);
    void txtNo_Change(Row row);
    void PressDown(Row row);
    void PressUp(Row row);
    void Write(Row row, const QString& text);
    std::int32_t BoxValue(Row row) const;

    // PortWatch::Listener
    std::int32_t ChosenPort(Instrument instrument) const override;
    void PortStateChanged(Instrument instrument, PortState state) override;
    void TestAllowed(Instrument instrument, bool isAllowed) override;
    void MotorUnlocked() override { ControlONOFF(true); }
    void MirrorAnswers(bool doesAnswer) override { system_.owner.chkMirror(doesAnswer); }

    void ShowPortList();
    void StepMagnification();
    void JogManipulator();
    void AttachCamera();

    System system_;
    std::array<usrKVButton, ButtonCount> usrKVButton1_;
    std::array<usrKVButton, BoxCount> usrKVButton2_;
    std::array<usrKVButton, BoxCount> usrKVButton3_;
    std::array<NumberBox, BoxCount> txtNo_;
    std::array<NumberLabel, RowCount> lblState_;
    std::array<RowState, RowCount> shownState_{};
    PortWatch watch_;
    FormPortList* portList_ = nullptr;  // a child, from the first time that it is asked for
};

}  // namespace travo
