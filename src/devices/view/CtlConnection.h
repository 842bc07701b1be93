// The panel on which the operator picks the serial port of each instrument and proves that it answers.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

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
#include "platform/Clock.h"
#include "platform/Pointer.h"
#include "platform/SerialPortList.h"

namespace travo {

class FormPortList;

// The links wait for no answer. Here is the one limit: from the opening of a port a timer of 150 ms looks
// for the first value of the instrument. A value by the seventh tick keeps and stores the port; without
// one the port is closed and forgotten. Start-up runs the same watches on the stored ports, by the three
// operations below, before the panel is ever shown.
class CtlConnection : public PanelCanvas,
                      public PanelSteps,
                      public HearsTotalManipulatorNumber,
                      public HearsFocusMotor,
                      public HearsPortLost,
                      public HearsCameraGone {
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
    // Rows of the panel; the first four are the indexes of the number boxes, the first three those of the
    // watches.
    enum Row : std::int16_t { Mirror, Magnescale, Motor, Manipulator, Camera };
    static constexpr std::size_t WatchCount = 3;
    static constexpr std::size_t BoxCount = 4;
    static constexpr std::size_t RowCount = 5;
    // Indexes of the buttons.
    enum Button { OpenList = 3, TestMirror, TestMotor, TestManipulator, TestMagnescale, ConnectCamera };
    static constexpr std::size_t ButtonCount = 9;
    // That the operator can type: enough for a number beyond 16 bits, which its row refuses.
    static constexpr int TypedFigures = 5;
    // What a row says of itself. Lost: a port that was open has closed by itself. NotOpened: it cannot be
    // opened, or its number cannot be had.
    enum class RowState { AtRest, Watching, Connected, Refused, Lost, NotOpened };

    // Building, placing and wiring, and what the rows say; in a file of their own.
    void Build(const QString& programFolder);
    void PaintGround();
    void BuildControls(const QString& programFolder);
    void BuildStateLines();
    void Wire();
    void ShowState(Row row, RowState state);

    void PressButton(int index);
    // Runs the steps of one of the buttons 0 to 2. What they raise ends in the row's way back and its
    // message.
    template <typename Steps>
    void HandlePort(Row row, Steps&& steps);
    void SetMirrorPort();
    void SetMagnescalePort();
    void SetMotorPort();
    void TakeBack(Row row);
    void ForgetView(Row row);

    void txtNo_Change(Row row);
    void PressDown(Row row);
    void PressUp(Row row);
    void Write(Row row, const QString& text);
    std::int32_t BoxValue(Row row) const;

    void ConnectTimer_Timer(Row row);
    void WatchMirror();
    void WatchMagnescale();
    void WatchMotor();
    bool InTime(Row row) const;
    void StartWatch(Row row);
    void StopWatches();
    RowState Refusal(Row row) const;
    void EndWatch(Row row, RowState verdict);
    void Store(Row row, std::int32_t port);
    // Of the settings file.
    static const QString& Key(Row row);

    void ShowPortList();
    void StepMagnification();
    void JogManipulator();
    void AttachCamera();

    std::int16_t& ConnectRetryCount(Row row) { return ConnectRetryCount_[static_cast<std::size_t>(row)]; }
    platform::Timer& ConnectTimer(Row row) { return *ConnectTimer_[static_cast<std::size_t>(row)]; }
    bool PortIsOpen(Row row) const;

    System system_;
    std::array<usrKVButton*, ButtonCount> usrKVButton1_{};
    std::array<usrKVButton*, BoxCount> usrKVButton2_{};
    std::array<usrKVButton*, BoxCount> usrKVButton3_{};
    std::array<NumberBox*, BoxCount> txtNo_{};
    std::array<NumberLabel*, RowCount> lblState_{};
    std::array<RowState, RowCount> shownState_{};
    std::array<std::unique_ptr<platform::Timer>, WatchCount> ConnectTimer_;
    // Ticks since the watch was started. A verdict leaves it at 1, since its own tick is counted too.
    std::array<std::int16_t, BoxCount> ConnectRetryCount_{};
    FormPortList* portList_ = nullptr;  // a child, from the first time that it is asked for
};

}  // namespace travo
