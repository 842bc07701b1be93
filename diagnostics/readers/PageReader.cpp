#include "diagnostics/readers/PageReader.h"

#include <QDateTime>
#include <QDir>
#include <QSysInfo>

#include "core/state/SettingsKeys.h"
#include "diagnostics/readers/CalibrationReader.h"
#include "diagnostics/readers/CameraReader.h"
#include "diagnostics/readers/DriverReader.h"
#include "diagnostics/readers/Processes.h"
#include "diagnostics/readers/SettingsReader.h"
#include "platform/qt/QtPrivateProfile.h"

namespace travo::diagnostics {

namespace {

void AddWires(Page& page, const PagePlaces& places, const clsIniEdit& settings,
              const Discretion& discretion) {
    const auto read = [&](const QString& key) {
        return ReadWire(settings.GetInt(settings::PortSection, key, settings::NoPort), places.wires);
    };
    WireFacts mirror = read(settings::MirrorKey);
    WireFacts gauge = read(settings::MagnescaleKey);
    WireFacts motor = read(settings::MotorKey);
    FindShared(mirror, gauge, motor);
    page.links.push_back(WireCard(Link::Mirror, mirror, page.isTravoRunning, discretion));
    page.links.push_back(WireCard(Link::Gauge, gauge, page.isTravoRunning, discretion));
    page.links.push_back(WireCard(Link::Motor, motor, page.isTravoRunning, discretion));
}

std::vector<Detail> Versions(const QString& travo) {
    return {
        {QStringLiteral("TRAVO"), travo},
        {QStringLiteral("Qt"), QString::fromLatin1(qVersion())},
        {QStringLiteral("System"), QStringLiteral("%1, %2 %3, %4")
                                       .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(),
                                            QSysInfo::kernelVersion(), QSysInfo::currentCpuArchitecture())}};
}

}  // namespace

Page ReadPage(const PagePlaces& places, const Discretion& discretion) {
    const QString& folder = places.wires.programFolder;
    platform::QtPrivateProfile profile;
    clsIniEdit settings(profile);
    settings.IniFilePath(QDir(folder).absoluteFilePath(settings::FileName()));
    const std::optional<RunningTravo> travo = TravoIn(folder);
    const QDateTime now = QDateTime::currentDateTime();

    Page page;
    page.isTravoRunning = travo.has_value();
    page.lookedAt = now.time().toString(QStringLiteral("HH:mm:ss"));
    AddWires(page, places, settings, discretion);
    page.links.push_back(NeedlesCard(ReadDriver(folder), page.isTravoRunning, discretion));
    const bool stoodOpen = settings.GetInt(settings::WindowSection, settings::WindowKey(0),
                                           settings::WindowClosed) == settings::WindowOpen;
    page.links.push_back(CameraCard(ReadCamera(folder, stoodOpen), page.isTravoRunning));
    page.links.push_back(SettingsCard(ReadSettings(folder, places.dataFolder, settings), now, discretion));
    page.needles = CalibrationCards(settings, travo ? std::optional(travo->startedAt) : std::nullopt);
    page.log = LogTail(places.dataFolder, discretion);
    page.versions = Versions(places.version);
    return page;
}

}  // namespace travo::diagnostics
