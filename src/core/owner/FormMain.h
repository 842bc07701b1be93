// The main window: the one owner of the shared state and of all objects of the system.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/owner/Closing.h"
#include "core/owner/FormMainControls.h"
#include "core/owner/FormMainLayout.h"
#include "core/owner/FormMainObjects.h"
#include "core/owner/FormMainPanels.h"
#include "core/owner/FormMainPlace.h"
#include "core/owner/FormMainTabs.h"
#include "core/owner/FormMainTitle.h"
#include "core/owner/FormMainWindows.h"
#include "core/owner/PositionLoop.h"
#include "core/owner/StartUp.h"
#include "core/state/FirstAndLast.h"
#include "core/state/SharedState.h"
#include "platform/Machine.h"

namespace travo {

// What the objects and panels have to tell comes in here and is passed on, each in its fixed order.
class FormMain : public QWidget,
                 private SharedState::Listener,
                 private PositionLoop::Listener,
                 private StartUp::Window,
                 private Closing::Window,
                 private clsCommunication::Listener,
                 private LiveLink::Listener,
                 private CtlUser::Owner,
                 private CtlCellPosition::Owner,
                 private CtlCalibration::Owner,
                 private CtlEscape::Owner,
                 private CtlConnection::Owner,
                 private FormBirdView::Owner,
                 private FormSkinned::Owner {
    Q_OBJECT

public:
    explicit FormMain(const platform::Machine& machine);
    ~FormMain() override;

    // Start-up and load. False: the operator has been told why, and the process must end.
    bool Start();

    // As the operator's close, without the question: for the end of the session. Nothing moves from now on;
    // the rest follows once no operation of the system waits any more.
    void CloseWithoutQuestion();
    // The window system has had the window close while a box stood before it: taken up once that is answered.
    void CloseAfterWaits();
    // Writes what closing writes and goes on: for a session that may be about to end. Raises nothing.
    void SaveForSession() noexcept;

    // Logs and shows what no handler has taken. Raises nothing.
    void ReportUnexpectedFailure() noexcept;

    // Called once, when the window has closed.
    void WhenClosed(std::function<void()> procedure) { whenClosed_ = std::move(procedure); }

    SharedState& State() { return state_; }
    FormMainObjects& Objects() { return objects_; }
    PositionLoop& Loop() { return loop_; }
    // There from start-up on.
    FormMainPanels& Panels() { return *panels_; }
    FormMainWindows& Windows() { return *windows_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    // Qt asks for it where the operator presses Tab, and where the control that has the focus goes off: then
    // it goes to a tab or step button, since the next control may be one that moves a needle.
    bool focusNextPrevChild(bool next) override;

private:
    void ConnectControls();
    void ResizeStep();
    void FinishClose();
    void OpenCamera();
    void EndMoves();

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
    void ConstructPanels() override;
    void Place(const WindowPlace& place) override;
    std::vector<StartUp::SmallWindow> SmallWindows() override;
    void PlaceSmallWindow(std::int32_t Index, const WindowPlace& place) override;
    void RestoreSafeguards(std::int32_t offsetOFF, std::int32_t contactOFF) override;
    void RestoreBirdView(std::int32_t lineOFF, std::int32_t birdOPEN) override;
    void WatchPort(std::int16_t device, std::int16_t number) override;
    void TellTotalManipulatorNumber() override;
    void SelectFirstTab() override;
    void RaiseCameraButton() override;
    // Closing::Window
    MeasuredWindowPlace Measured() const override;
    std::vector<std::pair<QString, MeasuredWindowPlace>> SmallPlaces() const override;
    void SaveOpenWindows() override;
    void CloseSmallWindows() override;
    std::int32_t OffsetOFF() const override;
    std::int32_t ContactOFF() const override;
    std::int32_t LineOFF() const override;
    std::int32_t BirdOPEN() const override;
    // clsCommunication::Listener
    void checkMotor(std::int16_t ONOFF) override;
    void ControlONOFF(bool ONOFF) override;
    void PortLost(Instrument instrument) override;
    void LineDropped(Instrument instrument) override;
    // LiveLink::Listener
    void Live_BirdViewSave() override;
    void Live_WindowHide() override;
    void Live_WindowClose() override;
    void LiveDied() override;
    // CtlUser::Owner, and windows that were open last time
    void ModeChange(bool bWizerd) override;
    void ShowWindow(std::int32_t Index) override;
    void HideWindow(std::int32_t Index) override;
    // CtlCellPosition::Owner
    void ZeroPointReset() override;
    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) override;
    // CtlConnection::Owner
    void chkMirror(bool isConnected) override;
    // FormBirdView::Owner
    std::int16_t ExperimentCellNo() const override;
    // FormSkinned::Owner
    void FormClose(std::int32_t Index) override;
    // CtlCalibration::Owner, and stored times
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override;
    void ObjectiveRaised(bool isRaised) override;
    // CtlEscape::Owner
    bool IsLit(std::int16_t needle) const override;
    void TakeLampsFrom(std::int16_t needle) override;

    platform::Machine machine_;
    SharedState state_;
    FormMainObjects objects_;
    PositionLoop loop_;
    Closing closing_;
    FormMainLayout layout_;
    FormMainPlace place_;
    FormMainControls controls_;
    std::unique_ptr<FormMainPanels> panels_;
    std::unique_ptr<FormMainWindows> windows_;
    std::unique_ptr<FormMainTabs> tabs_;
    TitleNotes title_;
    FirstAndLast loadStill_;
    QSize defaultSize_ = FormMainLayout::DesignSize;
    bool closed_ = false;
    bool loaded_ = false;
    bool closeQueued_ = false;
    bool asking_ = false;
    std::function<void()> whenClosed_;
};

}  // namespace travo
