#include "diagnostics/readers/CameraReader.h"

#include <QDBusConnection>
#include <QDir>
#include <chrono>

#include "diagnostics/readers/Processes.h"
#include "launcher/CameraBus.h"
#include "platform/qt/SessionBus.h"

namespace travo::diagnostics {

namespace {

constexpr std::chrono::seconds Limit(2);
const QString Program = QStringLiteral("TRAVOLive");

bool BusAnswers() {
    const QString address = platform::qt::SessionBusAddress();
    if (address.isEmpty() || platform::qt::IsSilent(address, Limit)) {
        return false;
    }
    const QString name = QStringLiteral("diagnostics");
    const bool isConnected = QDBusConnection::connectToBus(address, name).isConnected();
    QDBusConnection::disconnectFromBus(name);
    return isConnected;
}

CameraState StateOf(const CameraFacts& facts, bool isTravoRunning) {
    if (isTravoRunning && facts.isRunning) {
        return CameraState::Held;
    }
    // A TRAVO that runs may have a bus of its own, which is not seen from here.
    const bool counts = facts.stoodOpen && !isTravoRunning;
    if (counts && !facts.hasBus) {
        return CameraState::Bus;
    }
    if (counts && !facts.isKnown) {
        return CameraState::Service;
    }
    return CameraState::Off;
}

}  // namespace

CameraFacts ReadCamera(const QString& programFolder, bool stoodOpen) {
    CameraFacts facts;
    facts.stoodOpen = stoodOpen;
    facts.isRunning = IsRunning(Program);
    if (stoodOpen) {
        facts.hasBus = BusAnswers();
        facts.isKnown =
            facts.hasBus && (QDir(programFolder).exists(Program) || launcher::UsersBusKnowsCamera());
    }
    return facts;
}

LinkCard CameraCard(const CameraFacts& facts, bool isTravoRunning) {
    LinkCard card{Link::Camera, TextOf(StateOf(facts, isTravoRunning)), {}};
    card.details = {{QStringLiteral("Name on the bus"), QStringLiteral("TRAVOLive.Live")},
                    {QStringLiteral("Process"),
                     facts.isRunning ? QStringLiteral("runs") : QStringLiteral("does not run")}};
    return card;
}

}  // namespace travo::diagnostics
