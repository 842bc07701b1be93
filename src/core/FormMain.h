// The main window: the one owner of the shared state and of all objects of the system.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "core/Closing.h"
#include "core/FormMainObjects.h"
#include "core/PositionLoop.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "platform/Machine.h"

class QLabel;

namespace travo {

class FormMain : public QWidget,
                 private SharedState::Listener,
                 private PositionLoop::Listener,
                 private StartUp::Window,
                 private Closing::Window,
                 private clsCommunication::Listener,
                 private LiveLink::Listener {
    Q_OBJECT

public:
    explicit FormMain(const platform::Machine& machine);
    ~FormMain() override;

    // Start-up and load. False: the operator has been told why, and the process must end.
    bool Start();

    // As the operator's close, without the question: for the end of the session.
    void CloseWithoutQuestion();

    // Logs and shows what no handler has taken. Raises nothing.
    void ReportUnexpectedFailure() noexcept;

    // Called once, when the window has closed.
    void WhenClosed(std::function<void()> procedure) { whenClosed_ = std::move(procedure); }

    SharedState& State() { return state_; }
    FormMainObjects& Objects() { return objects_; }
    PositionLoop& Loop() { return loop_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildNeedleTable();
    void ShowNeedle(std::int32_t needle);
    void FinishClose();

    // SharedState::Listener
    void MagnificationChanged(std::int16_t magnification) override;
    void ViewChanged() override;
    // PositionLoop::Listener
    void TotalManipulatorNumber(std::int16_t number) override;
    void ManipulatorChange(std::int16_t number) override;
    void ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) override;
    void ChangeZeroPosition() override;
    void ChangeCurrentXYZ(const PositionXYZ& currentXYZ) override;
    // StartUp::Window
    WindowSize DesignSize() const override;
    void DefaultSize(const WindowSize& size) override;
    void Place(const WindowPlace& place) override;
    void TellTotalManipulatorNumber() override;
    // Closing::Window
    MeasuredWindowPlace Measured() const override;
    // clsCommunication::Listener
    void checkMotor(std::int16_t ONOFF) override;
    void ControlONOFF(bool ONOFF) override;
    // LiveLink::Listener
    void Live_BirdViewSave() override;
    void Live_WindowHide() override;
    void Live_WindowClose() override;
    void LiveDied() override;

    platform::Machine machine_;
    SharedState state_;
    FormMainObjects objects_;
    PositionLoop loop_;
    Closing closing_;
    bool closed_ = false;
    bool asking_ = false;
    std::function<void()> whenClosed_;
    std::array<QLabel*, NeedleCount> nameLabel_{};
    std::array<QLabel*, NeedleCount * AxisCount> positionLabel_{};
};

}  // namespace travo
