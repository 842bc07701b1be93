// Start-up, position loop and closing with the objects that they work on, built as the main window builds
// them. The machine below them is made of stand-ins, and the fixture stands where the main window would: it
// answers what they ask of the window and writes down what they tell it.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <map>
#include <optional>

#include "core/owner/Closing.h"
#include "core/owner/FormMainObjects.h"
#include "core/owner/PositionLoop.h"
#include "core/owner/StartUp.h"
#include "platform/qt/QtPrivateProfile.h"
#include "support/FakeMachine.h"
#include "support/InstrumentsListener.h"

namespace travo::test {

// The real settings store, with every call written to the journal.
class JournalProfile : public platform::PrivateProfile {
public:
    explicit JournalProfile(Journal& journal) : journal_(journal) {}

    QString GetString(const QString& section, const QString& key, const QString& defaultValue, int size,
                      const QString& file) override {
        Note("read", section, key);
        return profile_.GetString(section, key, defaultValue, size, file);
    }
    std::int32_t GetInt(const QString& section, const QString& key, std::int32_t defaultValue,
                        const QString& file) override {
        Note("read", section, key);
        if (whileRead) {
            whileRead(section + u'|' + key);
        }
        return profile_.GetInt(section, key, defaultValue, file);
    }
    Names GetSectionNames(int size, const QString& file) override {
        return profile_.GetSectionNames(size, file);
    }
    Names GetKeyNames(const QString& section, int size, const QString& file) override {
        return profile_.GetKeyNames(section, size, file);
    }
    bool Write(const QString& section, const std::optional<QString>& key, const std::optional<QString>& value,
               const QString& file) override {
        Note("write", section, key.value_or(QString()));
        if (failWrite) {
            throw std::runtime_error("the store is gone");
        }
        writtenAlone += together_ == 0 ? 1 : 0;
        return profile_.Write(section, key, value, file);
    }
    void BeginTogether() override {
        ++together_;
        profile_.BeginTogether();
    }
    bool EndTogether() override {
        if (--together_ == 0) {
            journal_.push_back("written together");
        }
        return profile_.EndTogether();
    }

    bool failWrite = false;
    std::function<void(const QString&)> whileRead;  // runs before each number is read, with its place
    int writtenAlone = 0;                           // writes that each replaced the file

private:
    void Note(const char* what, const QString& section, const QString& key) {
        journal_.push_back(std::string(what) + " " + section.toStdString() + "|" + key.toStdString());
    }

    Journal& journal_;
    int together_ = 0;
    platform::QtPrivateProfile profile_;
};

class OwnerRig : public testing::Test,
                 public SharedState::Listener,
                 public PositionLoop::Listener,
                 public LiveLink::Listener,
                 public StartUp::Window,
                 public Closing::Window {
protected:
    OwnerRig();

    platform::Machine Seams() { return standIns_.Seams(profile_); }
    // Builds the owner's objects anew, as a new start of the program would.
    void Restart();
    // Start-up, load and camera; false when the program would end.
    bool Begin();

    // Writes the settings file that the next start finds.
    void WriteSettings(const QByteArray& text) const;
    QByteArray ReadSettings() const;
    QString SettingsPath() const { return program_.filePath(QStringLiteral("KVData.ini")); }
    QByteArray ReadLog() const;
    // The twelve points, three zeros and three centres of a needle whose map is the identity, reflected
    // in nothing: common = zero + counts - centre.
    static QByteArray CalibrationText(int needle);

    // The ports of the links, in their order of creation: gauge, mirror, motor.
    FakeSerialPort& GaugePort() { return standIns_.GaugePort(); }
    FakeSerialPort& MirrorPort() { return standIns_.MirrorPort(); }
    FakeSerialPort& MotorPort() { return standIns_.MotorPort(); }

    std::string Last() const { return journal_.empty() ? std::string() : journal_.back(); }
    std::ptrdiff_t CountOf(const std::string& entry) const;
    // The place of an entry in the journal; fails the test where it is missing.
    std::size_t PlaceOf(const std::string& entry) const;

    // SharedState::Listener
    void MagnificationChanged(std::int16_t magnification) override;
    void ViewChanged() override { journal_.push_back("view changed"); }
    // PositionLoop::Listener
    void TotalManipulatorNumber(std::int16_t number) override;
    void ManipulatorChange(std::int16_t number) override;
    void ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) override;
    void ChangeZeroPosition() override { journal_.push_back("zero position"); }
    void ChangeCurrentXYZ(const PositionXYZ& currentXYZ) override;
    // LiveLink::Listener
    void Live_BirdViewSave() override { journal_.push_back("Live_BirdViewSave"); }
    void Live_WindowHide() override { journal_.push_back("Live_WindowHide"); }
    void Live_WindowClose() override { journal_.push_back("Live_WindowClose"); }
    void LiveDied() override { journal_.push_back("LiveDied"); }
    // StartUp::Window
    WindowSize DesignSize() const override { return {7800, 9360}; }
    void DefaultSize(const WindowSize& size) override { defaultSize_ = size; }
    void ConstructPanels() override { journal_.push_back("construct panels"); }
    void Place(const WindowPlace& place) override;
    std::vector<StartUp::SmallWindow> SmallWindows() override {
        return {{1, QStringLiteral("FormBirdView_Position"), {6150, 7245}},
                {3, QStringLiteral("FormManiInfo_Position"), {5100, 4500}},
                {2, QStringLiteral("FormMirror_Position"), {4140, 3345}},
                {4, QStringLiteral("FormMirror2_Position"), {4140, 2880}}};
    }
    void PlaceSmallWindow(std::int32_t Index, const WindowPlace& place) override {
        smallPlaces_[Index] = place;
        journal_.push_back("place window " + std::to_string(Index));
    }
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override {
        journal_.push_back("time " + std::to_string(ManiNo) + " " + CalibTime.toStdString() + " " +
                           std::to_string(CalibOrRe));
    }
    void ShowWindow(std::int32_t Index) override {
        journal_.push_back("show window " + std::to_string(Index));
    }
    void RaiseCameraButton() override { journal_.push_back("raise camera button"); }
    void RestoreSafeguards(std::int32_t offsetOFF, std::int32_t contactOFF) override {
        offsetOFF_ = offsetOFF;
        contactOFF_ = contactOFF;
        journal_.push_back("restore safeguards");
    }
    void RestoreBirdView(std::int32_t lineOFF, std::int32_t birdOPEN) override {
        lineOFF_ = lineOFF;
        birdOPEN_ = birdOPEN;
        journal_.push_back("restore bird view");
    }
    void WatchPort(std::int16_t device, std::int16_t number) override {
        journal_.push_back("watch " + std::to_string(device) + " on port " + std::to_string(number));
    }
    void SelectFirstTab() override { journal_.push_back("first tab"); }
    void TellTotalManipulatorNumber() override { TotalManipulatorNumber(state_->intTotalManipulatorNumber); }
    // Closing::Window
    MeasuredWindowPlace Measured() const override { return measured_; }
    std::vector<std::pair<QString, MeasuredWindowPlace>> SmallPlaces() const override {
        return {{QStringLiteral("FormBirdView_Position"), {15.0F, 30.0F, 7245.0F, 6150.0F}},
                {QStringLiteral("FormManiInfo_Position"), {45.0F, 60.0F, 4500.0F, 5100.0F}},
                {QStringLiteral("FormMirror_Position"), {75.0F, 90.0F, 3345.0F, 4140.0F}},
                {QStringLiteral("FormMirror2_Position"), {105.0F, 120.0F, 2880.0F, 4140.0F}}};
    }
    void SaveOpenWindows() override { journal_.push_back("save open windows"); }
    void CloseSmallWindows() override { journal_.push_back("close windows"); }
    std::int32_t OffsetOFF() const override { return offsetOFF_; }
    std::int32_t ContactOFF() const override { return contactOFF_; }
    std::int32_t LineOFF() const override { return lineOFF_; }
    std::int32_t BirdOPEN() const override { return birdOPEN_; }

    QTemporaryDir program_;
    QTemporaryDir data_;
    FakeMachine standIns_;
    Journal& journal_ = standIns_.journal;
    FakeBoxes& boxes_ = standIns_.boxes;
    FakeClock& clock_ = standIns_.clock;
    FakeEventLoop& eventLoop_ = standIns_.eventLoop;
    FakePointer& pointer_ = standIns_.pointer;
    FakeDisplay& display_ = standIns_.display;
    FakeFolders& folders_ = standIns_.folders;
    FakeLiveCamera& liveCamera_ = standIns_.camera;
    FakeSingleInstance& singleInstance_ = standIns_.singleInstance;
    FakeTimers& timers_ = standIns_.timers;
    FakeDriverState& driver_ = standIns_.driver;
    FakeSerialPortList& serialPortList_ = standIns_.serialPortList;
    FakeSerialPorts& serialPorts_ = standIns_.serialPorts;
    InstrumentsListener instruments_{journal_};
    JournalProfile profile_{journal_};

    std::optional<platform::Machine> machine_;
    std::optional<SharedState> state_;
    std::optional<FormMainObjects> objects_;
    std::optional<PositionLoop> loop_;
    std::optional<StartUp> startUp_;
    std::optional<Closing> closing_;

    WindowSize defaultSize_;
    std::optional<WindowPlace> place_;
    MeasuredWindowPlace measured_{300.0F, 450.0F, 9360.0F, 7800.0F};
    PositionXYZ lastRoot_{};
    bool failViewStep_ = false;
    std::int32_t offsetOFF_ = 0;
    std::int32_t contactOFF_ = 0;
    std::int32_t lineOFF_ = 0;
    std::int32_t birdOPEN_ = 0;
    std::map<std::int32_t, WindowPlace> smallPlaces_;
};

}  // namespace travo::test
