// The main window: the one owner of the shared state and of all objects of the system.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/owner/Announcements.h"
#include "core/owner/Closing.h"
#include "core/owner/FormMainControls.h"
#include "core/owner/FormMainLayout.h"
#include "core/owner/FormMainListeners.h"
#include "core/owner/FormMainObjects.h"
#include "core/owner/FormMainPanels.h"
#include "core/owner/FormMainPlace.h"
#include "core/owner/FormMainRequests.h"
#include "core/owner/FormMainTabs.h"
#include "core/owner/FormMainTitle.h"
#include "core/owner/FormMainWindows.h"
#include "core/owner/PositionLoop.h"
#include "core/owner/StartUp.h"
#include "core/state/SharedState.h"
#include "platform/Machine.h"

namespace travo {

// It creates them, starts and closes; who hears what of them stands in AnnouncementTable, who answers the
// panels in FormMainRequests.
class FormMain : public QWidget, private StartUp::Window, private Closing::Window {
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
    // There from start-up on.
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
    void ShowObjectiveRaised(bool isRaised);

    // StartUp::Window
    WindowSize DesignSize() const override;
    void DefaultSize(const WindowSize& size) override;
    void ConstructPanels() override;
    void Place(const WindowPlace& place) override;
    std::vector<StartUp::SmallWindow> SmallWindows() override;
    void PlaceSmallWindow(std::int32_t Index, const WindowPlace& place) override;
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override;
    void RestoreSafeguards(std::int32_t offsetOFF, std::int32_t contactOFF) override;
    void RestoreBirdView(std::int32_t lineOFF, std::int32_t birdOPEN) override;
    void WatchPort(std::int16_t device, std::int16_t number) override;
    void TellTotalManipulatorNumber() override;
    void SelectFirstTab() override;
    void ShowWindow(std::int32_t Index) override;
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

    platform::Machine machine_;
    Announcements news_;
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
    std::unique_ptr<FormMainListeners> listeners_;
    FormMainRequests requests_;
    TitleNotes title_;
    QSize defaultSize_ = FormMainLayout::DesignSize;
    bool closed_ = false;
    bool loaded_ = false;
    bool closeQueued_ = false;
    bool asking_ = false;
    std::function<void()> whenClosed_;
};

}  // namespace travo
