#include "core/owner/StartUp.h"

#include "core/ground/Arithmetic.h"
#include "core/ground/LogicalUnits.h"
#include "core/ground/Magnification.h"
#include "core/state/SettingsKeys.h"
#include "platform/Display.h"
#include "platform/Folders.h"
#include "platform/SingleInstance.h"

namespace travo {

using platform::BoxButtons;
using platform::BoxIcon;

namespace {

std::int32_t StoredOrDefault(std::int32_t stored, std::int32_t otherwise) {
    return stored > settings::NotStored ? stored : otherwise;
}

}  // namespace

StartUp::StartUp(const platform::Machine& machine, SharedState& state, FormMainObjects& objects,
                 PositionLoop& loop, Window& window)
    : machine_(machine), state_(state), objects_(objects), loop_(loop), window_(window) {}

StartUp::Outcome StartUp::Initialize() {
    try {
        return InitializeSteps();
    } catch (...) {
        ReportInitializeFailure();
        objects_.Release();
        return Outcome::End;
    }
}

StartUp::Outcome StartUp::InitializeSteps() {
    if (!machine_.singleInstance.Claim()) {
        machine_.boxes.Show(QStringLiteral("TRAVO has already started."), BoxButtons::OK, BoxIcon::None);
        return Outcome::End;
    }
    objects_.Create();
    state_.LiveOpen = false;
    const QString folder = MakeDataFolder();
    objects_.Details.Path(folder + QStringLiteral("travo-details.txt"));
    objects_.DebugLog->LogFilePath(folder + QStringLiteral("debugTRAVO.txt"));
    objects_.DebugLog->WriteDate();
    window_.ConstructPanels();
    return Outcome::GoOn;
}

void StartUp::ReportInitializeFailure() {
    const QString text = QStringLiteral("Error : Initialize");
    if (objects_.DebugLog.Alive()) {
        objects_.Failures.Report(text);
    } else {
        machine_.boxes.Show(text, BoxButtons::OK, BoxIcon::None);
    }
}

QString StartUp::MakeDataFolder() {
    const QChar separator = machine_.folders.Separator();
    QString folder = machine_.folders.ApplicationData();
    for (const char* const below : {"Zelvo", "Shared", "Data"}) {
        folder = settings::MyPath(folder, separator) + QLatin1String(below);
        if (!machine_.folders.Exists(folder)) {
            machine_.folders.Create(folder);
        }
    }
    return settings::MyPath(folder, separator);
}

StartUp::Outcome StartUp::Load() {
    Outcome outcome = Outcome::End;
    objects_.Failures.Handle(QStringLiteral("Error : Load"), [&] { outcome = LoadSteps(); });
    return outcome;
}

// The order of the load. The camera comes behind it, when the window is on show.
StartUp::Outcome StartUp::LoadSteps() {
    state_.ShiftX = 0.0;
    state_.ShiftY = 0.0;
    MeasureDisplay();
    ClearPositions();
    if (ConnectManipulators() == Outcome::End) {
        return Outcome::End;
    }
    RestoreValues();
    const PortNumbers ports = ReadPortNumbers();
    state_.bMirrorMotorONOFF = false;
    OpenPorts(ports);
    state_.ClearMagnification();
    if (objects_.cCommunication->MirrorPortOpenCheck()) {
        objects_.cCommunication->SendMirrorMagnificationData(Magnification035x);
    }
    loop_.Start();
    state_.bMotorONOFF = false;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        RestoreCalibration(needle);
    }
    loop_.AllManipulatorReload();
    window_.TellTotalManipulatorNumber();
    window_.SelectFirstTab();
    OpenWindows();
    return Outcome::GoOn;
}

void StartUp::RestoreCalibrationTimes(std::int32_t needle) {
    const clsIniEdit& ini = *objects_.cIniEdit;
    const QString section = settings::CalibrationSection(needle);
    const std::int16_t number = ToInteger16(needle);
    window_.SetCalibTime(number, ini.GetString(section, settings::TimeKey, settings::NoTime), 0);
    window_.SetCalibTime(number, ini.GetString(section, settings::ReTimeKey, settings::NoTime), 1);
}

void StartUp::OpenWindows() {
    for (std::int32_t index = 1; index <= 4; ++index) {
        if (objects_.cIniEdit->GetInt(settings::WindowSection, settings::WindowKey(index),
                                      settings::WindowClosed) == settings::WindowOpen) {
            window_.ShowWindow(index);
        }
    }
}

void StartUp::OpenCamera() {
    if (state_.LiveOpen || objects_.cIniEdit->GetInt(settings::WindowSection, settings::WindowKey(0),
                                                     settings::WindowClosed) != settings::WindowOpen) {
        return;
    }
    objects_.Failures.Handle(QStringLiteral("Error : Camera Load"), [this] {
        try {
            objects_.Live->Create();
            objects_.Live->LiveShowWindow();
            state_.LiveOpen = true;
        } catch (...) {
            // Before the box: what the operator sees behind it is how things stand.
            window_.RaiseCameraButton();
            throw;
        }
    });
}

void StartUp::MeasureDisplay() {
    defaultSize_ = AtDisplayScale(window_.DesignSize());
    window_.DefaultSize(defaultSize_);
}

WindowSize StartUp::AtDisplayScale(const WindowSize& design) const {
    const double vertical = machine_.display.UnitsPerPixelVertical() / LogicalUnitsPerPixel;
    const double horizontal = machine_.display.UnitsPerPixelHorizontal() / LogicalUnitsPerPixel;
    WindowSize size;
    size.Height = ToInteger16(convert(design.Height * vertical));
    size.Width = ToInteger16(convert(design.Width * horizontal));
    return size;
}

void StartUp::RestoreWindowPlaces() {
    const clsIniEdit& ini = *objects_.cIniEdit;
    window_.Place(ReadWindowPlace(ini, settings::MainWindowSection, defaultSize_));
    for (const SmallWindow& small : window_.SmallWindows()) {
        window_.PlaceSmallWindow(small.Index,
                                 ReadWindowPlace(ini, small.section, AtDisplayScale(small.design)));
    }
}

void StartUp::ClearPositions() {
    // Writing the origin tells the view on: whoever keeps a copy of it starts with "not set".
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        state_.CurrentXYZ(axis, NoPositionValue);
        state_.ZeroXYZ(axis, 0);
        for (std::int32_t cell = 0; cell < CellCount; ++cell) {
            state_.CellPosition(cell, axis, NoPositionValue);
        }
    }
}

StartUp::Outcome StartUp::ConnectManipulators() {
    state_.intTotalManipulatorNumber = -1;
    state_.intManipulatorNumber = -1;
    loop_.Connect();
    if (state_.intTotalManipulatorNumber != -1) {
        return Outcome::GoOn;
    }
    // An answer of 0 says that what is connected is of another version than the one that we drive.
    if (objects_.cCommunication->ChangeManipulator(1) == 0) {
        machine_.boxes.Show(QStringLiteral("Please connect Zelvo version micromanipulator."), BoxButtons::OK,
                            BoxIcon::None);
        return Outcome::End;
    }
    return Outcome::GoOn;
}

void StartUp::RestoreValues() {
    clsIniEdit& ini = *objects_.cIniEdit;
    ini.IniFilePath(settings::MyPath(machine_.folders.Program(), machine_.folders.Separator()) +
                    settings::FileName());
    const QString zero = QStringLiteral("0");
    state_.ShiftX = settings::FloatValue(ini.GetString(settings::ShiftSection, settings::ShiftXKey, zero));
    state_.ShiftY = settings::FloatValue(ini.GetString(settings::ShiftSection, settings::ShiftYKey, zero));
    RestoreWindowPlaces();
    const QString user = settings::UserSection;
    objects_.cNeedleMove->lngXYOffset = StoredOrDefault(
        ini.GetInt(user, settings::XYOffsetKey, settings::NotStored), settings::DefaultOffset);
    objects_.cObjectiveUpDown->lngOffset =
        StoredOrDefault(ini.GetInt(user, settings::ZOffsetKey, settings::NotStored), settings::DefaultOffset);
    const auto flag = [&](const QString& key) {
        return StoredOrDefault(ini.GetInt(user, key, settings::NotStored), 0);
    };
    const std::int32_t offsetOFF = flag(settings::OffsetOFFKey);
    window_.RestoreSafeguards(offsetOFF, flag(settings::ContactOFFKey));
    const std::int32_t lineOFF = flag(settings::LineOFFKey);
    window_.RestoreBirdView(lineOFF, flag(settings::BirdOPENKey));
}

StartUp::PortNumbers StartUp::ReadPortNumbers() const {
    const auto read = [this](const QString& device) {
        return ToInteger16(objects_.cIniEdit->GetInt(settings::PortSection, device, settings::NoPort));
    };
    PortNumbers ports;
    ports.mirror = read(settings::MirrorKey);
    ports.magnescale = read(settings::MagnescaleKey);
    ports.motor = read(settings::MotorKey);
    return ports;
}

void StartUp::OpenPorts(const PortNumbers& ports) {
    clsCommunication& instruments = *objects_.cCommunication;
    if (ports.mirror >= 1) {
        instruments.MirrorPortOpen(ports.mirror);
        window_.WatchPort(0, ports.mirror);
    }
    if (ports.magnescale >= 1) {
        instruments.MagnescalePortOpen(ports.magnescale);
        window_.WatchPort(1, ports.magnescale);
    }
    if (ports.motor >= 1) {
        instruments.MotorPortOpen(ports.motor);
        window_.WatchPort(2, ports.motor);
    }
}

void StartUp::RestoreCalibration(std::int32_t needle) {
    clsNeedleMove& maps = *objects_.cNeedleMove;
    state_.CalibrationON(needle, true);
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        if (!RestoreCalibrationAxis(needle, axis)) {
            state_.CalibrationON(needle, false);
        }
    }
    if (state_.CalibrationON(needle)) {
        RestoreCalibrationTimes(needle);
        maps.CalibrationCalculation(needle);
    }
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        maps.ManiCenter(needle, axis,
                        objects_.cIniEdit->GetInt(settings::CalibrationSection(needle),
                                                  settings::CenterKey(axis), NoPositionValue));
    }
}

bool StartUp::RestoreCalibrationAxis(std::int32_t needle, std::int32_t axis) {
    clsNeedleMove& maps = *objects_.cNeedleMove;
    const clsIniEdit& ini = *objects_.cIniEdit;
    const QString section = settings::CalibrationSection(needle);
    bool complete = true;
    for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
        maps.ManipulatorCalibrationPosXYZ(
            needle, axis, point,
            ini.GetInt(section, settings::CalibrationPointKey(point, axis), NoPositionValue));
        complete = complete && maps.ManipulatorCalibrationPosXYZ(needle, axis, point) != NoPositionValue;
    }
    maps.PosZero(needle, axis, ini.GetInt(section, settings::ZeroKey(axis), NoPositionValue));
    return complete && maps.PosZero(needle, axis) != NoPositionValue;
}

}  // namespace travo
