#include "core/owner/FormMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <chrono>
#include <utility>

#include "controls/ApplicationStyle.h"
#include "controls/Pressable.h"
#include "core/ground/LogicalUnits.h"
#include "core/owner/FormMainFirstPaint.h"
#include "core/owner/FormMainFrame.h"
#include "platform/Display.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"

namespace travo {

namespace {

// So long the camera waits for a window that is not painted.
constexpr std::chrono::seconds CameraWait{1};

}  // namespace

FormMain::FormMain(const platform::Machine& machine)
    : machine_(machine),
      news_(&state_),
      state_(news_),
      objects_(machine_, state_, news_, news_),
      loop_(state_, objects_, machine_.boxes, machine_.timers, news_),
      closing_(state_, objects_, loop_, machine_.boxes, *this),
      layout_(machine_.display.UnitsPerPixelVertical() / LogicalUnitsPerPixel,
              machine_.display.UnitsPerPixelHorizontal() / LogicalUnitsPerPixel),
      place_(*this),
      controls_(machine_.folders.Program(), this),
      requests_(state_, news_, loop_, {panels_, tabs_, windows_},
                [this](bool isRaised) { ShowObjectiveRaised(isRaised); }) {
    setObjectName(QStringLiteral("FormMain"));
    setWindowTitle(FormMainTitle(title_));
    qApp->setStyleSheet(ApplicationStyleSheet());
    resize(FormMainLayout::DesignSize);
    ConnectControls();
}

FormMain::~FormMain() {
    // Windows and panels go first: they refer to the objects, and the user panel still writes its windows.
    news_.Listen({});
    listeners_.reset();
    windows_.reset();
    tabs_.reset();
    panels_.reset();
    objects_.Release();
}

bool FormMain::Start() {
    StartUp startUp(machine_, state_, objects_, loop_, *this);
    if (startUp.Initialize() == StartUp::Outcome::GoOn && startUp.Load() == StartUp::Outcome::GoOn) {
        loaded_ = true;
        show();
        CallAfterFirstPaint(*this, CameraWait, [this] { OpenCamera(); });
        return true;
    }
    loop_.Stop();
    if (panels_) {
        panels_->CtlUser1.SaveWindowsAtEnd(false);
    }
    return false;
}

void FormMain::OpenCamera() {
    if (!closed_) {
        StartUp(machine_, state_, objects_, loop_, *this).OpenCamera();
    }
}

void FormMain::ReportUnexpectedFailure() noexcept {
    if (!objects_.DebugLog.Alive()) {
        return;
    }
    try {
        objects_.Failures.Report(QStringLiteral("Error : Unexpected failure"));
    } catch (...) {
        // There is nobody left to tell; the program goes on.
    }
}

void FormMain::ConnectControls() {
    for (int index = 0; index < FormMainLayout::TabPictureCount; ++index) {
        connect(&controls_.imgTab.at(static_cast<std::size_t>(index)), &SkinTab::clicked, this,
                [this, index] { tabs_->TabClick(index); });
    }
    for (const int index : {0, 1}) {
        connect(&controls_.usrKVButton2.at(static_cast<std::size_t>(index)), &usrKVButton::clicked, this,
                [this, index] { tabs_->StepButtonClick(index); });
    }
    connect(&controls_.usrKVCheckButton1, &usrKVCheckButton::clicked, this,
            [this] { tabs_->UserButtonClick(); });
    connect(&controls_.usrKVButton1, &usrKVButton::clicked, this, [this] { resize(defaultSize_); });
}

void FormMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closed_) {
        event->accept();
        return;
    }
    if (asking_) {
        return;
    }
    if (machine_.eventLoop.Waiting()) {
        CloseAfterWaits();
        return;
    }
    asking_ = true;
    const bool agreed = closing_.Ask();
    asking_ = false;
    if (agreed) {
        FinishClose();
        event->accept();
    }
}

void FormMain::CloseAfterWaits() {
    // The question answers whoever asks while it is up, and one question all who ask before it.
    if (closed_ || asking_ || std::exchange(closeQueued_, true)) {
        return;
    }
    machine_.eventLoop.QueueAfterWaits([this] {
        closeQueued_ = false;
        close();
    });
}

void FormMain::CloseWithoutQuestion() {
    EndMoves();
    machine_.eventLoop.QueueAfterWaits([this] {
        FinishClose();
        close();
    });
}

void FormMain::EndMoves() {
    if (objects_.cCommunication.Alive()) {
        objects_.cCommunication->EndMoves();
    }
}

void FormMain::SaveForSession() noexcept {
    // Before the load has come to its end there is nothing to save, and after the closing all is saved.
    if (!loaded_ || closed_) {
        return;
    }
    try {
        closing_.Save();
    } catch (...) {
        // The session waits for this call: nobody is to answer a box in it.
        machine_.eventLoop.Queue([this] { objects_.Failures.Report(QStringLiteral("Error : Unload")); });
    }
}

void FormMain::FinishClose() {
    if (closed_) {
        return;
    }
    closed_ = true;
    EndMoves();
    closing_.Close();
    if (whenClosed_) {
        whenClosed_();
    }
}

void FormMain::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintMainFrame(painter, size(), layout_, tabs_ ? tabs_->ShownStep() : std::int16_t{0});
}

void FormMain::resizeEvent(QResizeEvent*) { ResizeStep(); }

bool FormMain::event(QEvent* event) {
    // Where the control that had the focus has gone meanwhile, Qt gives it to the next one behind this.
    if (event->type() == QEvent::WindowActivate && tabs_) {
        tabs_->KeepFocus();
    }
    return QWidget::event(event);
}

bool FormMain::focusNextPrevChild(bool next) {
    const QWidget* const focused = focusWidget();
    if (tabs_ && focused != nullptr && HasGoneOff(*focused)) {
        tabs_->KeepFocus();
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

void FormMain::ShowObjectiveRaised(bool isRaised) {
    title_.isObjectiveRaised = isRaised;
    setWindowTitle(FormMainTitle(title_));
}

void FormMain::ResizeStep() {
    const QSize wanted = size().expandedTo(defaultSize_);
    if (wanted != size()) {
        resize(wanted);
        return;
    }
    layout_.Resize(size());
    controls_.Place(layout_);
    if (panels_) {
        panels_->Place(layout_.Panel());
    }
    update();
}

WindowSize FormMain::DesignSize() const {
    return {static_cast<std::int16_t>(FormMainLayout::DesignSize.width() * LogicalUnitsPerPixel),
            static_cast<std::int16_t>(FormMainLayout::DesignSize.height() * LogicalUnitsPerPixel)};
}

void FormMain::DefaultSize(const WindowSize& size) {
    defaultSize_ = QSize(PixelsWithin(size.Width), PixelsWithin(size.Height));
    setMinimumSize(defaultSize_);
}

void FormMain::ConstructPanels() {
    panels_ = std::make_unique<FormMainPanels>(
        machine_, state_, objects_,
        FormMainPanels::Owner{requests_, requests_, requests_, requests_, requests_, loop_}, this);
    tabs_ = std::make_unique<FormMainTabs>(controls_.ForTabs(), panels_->ForTabs(), layout_, *objects_.Live,
                                           [this] { ResizeStep(); });
    windows_ = std::make_unique<FormMainWindows>(machine_, state_, objects_,
                                                 FormMainWindows::Owner{requests_, requests_});
    listeners_ = std::make_unique<FormMainListeners>(machine_, objects_, *panels_, *windows_);
    news_.Listen(WhoHearsWhat(*listeners_));
}

void FormMain::Place(const WindowPlace& place) { place_.Place(place); }

std::vector<StartUp::SmallWindow> FormMain::SmallWindows() { return windows_->All(); }

void FormMain::PlaceSmallWindow(std::int32_t Index, const WindowPlace& place) {
    windows_->Place(Index, place);
}

void FormMain::RestoreSafeguards(std::int32_t offsetOFF, std::int32_t contactOFF) {
    panels_->CtlUser1.OffsetONOff(offsetOFF);
    panels_->CtlUser1.ContactONOff(contactOFF);
}

void FormMain::RestoreBirdView(std::int32_t lineOFF, std::int32_t birdOPEN) {
    windows_->BirdView.LineONOff(lineOFF != 0);
    windows_->BirdView.BirdOPEN(birdOPEN != 0);
}

void FormMain::WatchPort(std::int16_t device, std::int16_t number) {
    panels_->CtlConnection1.txtNoChange(device, QString::number(number));
    panels_->CtlConnection1.TimerONOFF(device, true);
}

void FormMain::TellTotalManipulatorNumber() {
    news_.TotalManipulatorNumber(state_.intTotalManipulatorNumber);
}

void FormMain::SelectFirstTab() {
    ResizeStep();
    tabs_->TabClick(6);
}

void FormMain::RaiseCameraButton() { panels_->CtlUser1.LiveButtonChange(true); }

MeasuredWindowPlace FormMain::Measured() const { return place_.Measured(); }

std::vector<std::pair<QString, MeasuredWindowPlace>> FormMain::SmallPlaces() const {
    return windows_->Places();
}

void FormMain::SaveOpenWindows() { panels_->CtlUser1.SaveWindows(); }

void FormMain::CloseSmallWindows() { windows_->CloseAtEnd(); }

std::int32_t FormMain::OffsetOFF() const { return panels_->CtlUser1.OffsetONOff(); }

std::int32_t FormMain::ContactOFF() const { return panels_->CtlUser1.ContactONOff(); }

std::int32_t FormMain::LineOFF() const { return windows_->BirdView.LineONOff() ? 1 : 0; }

std::int32_t FormMain::BirdOPEN() const { return windows_->BirdView.BirdOPEN() ? 1 : 0; }

void FormMain::ShowWindow(std::int32_t Index) { windows_->Show(Index); }

void FormMain::SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) {
    news_.SetCalibTime(ManiNo, CalibTime, CalibOrRe);
}

}  // namespace travo
