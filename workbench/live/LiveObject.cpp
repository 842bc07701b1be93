#include "workbench/live/LiveObject.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusMessage>
#include <utility>

namespace workbench::live {

namespace {

QString ServiceName() { return QStringLiteral("TRAVOLive.Live"); }

}  // namespace

LiveObject::LiveObject(std::function<void()> changed, std::function<void()> nobody)
    : changed_(std::move(changed)),
      nobody_(std::move(nobody)),
      bus_(QDBusConnection::sessionBus()),
      callers_([this] { End(); }) {
    bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(BusGone()));
    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this](const QString& caller) {
        watcher_.removeWatchedService(caller);
        callers_.Gone(caller);
    });
}

bool LiveObject::TakeName() {
    return bus_.registerObject(QStringLiteral("/Live"), this,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
           bus_.registerService(ServiceName());
}

void LiveObject::GiveUpName() { bus_.unregisterService(ServiceName()); }

void LiveObject::HideByOperator() {
    state_.visible = false;
    changed_();
    Q_EMIT WindowHide();
}

void LiveObject::TellSaved() { Q_EMIT BirdViewSave(); }

void LiveObject::TellClosed() { Q_EMIT WindowClose(); }

void LiveObject::LiveShowWindow() {
    Take("LiveShowWindow", [this] { state_.visible = true; });
}

void LiveObject::LiveChangeMagnification(short magnification) {
    Take("LiveChangeMagnification", [&] { state_.toldMagnification = magnification; });
}

void LiveObject::LiveHideWindow() {
    Take("LiveHideWindow", [this] { state_.visible = false; });
}

void LiveObject::LiveActionEnd() {
    Take("LiveActionEnd", [this] { state_.action = false; });
}

void LiveObject::LiveActionStart() {
    Take("LiveActionStart", [this] { state_.action = true; });
}

void LiveObject::LiveCalibPoints() {
    Take("LiveCalibPoints", [this] { state_.overlay = Overlay::Points; });
}

void LiveObject::LiveCalibZ() {
    Take("LiveCalibZ", [this] { state_.overlay = Overlay::Z; });
}

void LiveObject::LiveCalibCenter() {
    Take("LiveCalibCenter", [this] { state_.overlay = Overlay::Center; });
}

void LiveObject::LivePanelLeave() {
    Take("LivePanelLeave", [this] { state_.overlay = Overlay::None; });
}

void LiveObject::LiveAttach() {
    Take("LiveAttach", [this] { state_.attached = true; });
}

template <typename Change>
void LiveObject::Take(const char* operation, Change change) {
    if (!Enter(operation)) {
        return;
    }
    const LiveState before = state_;
    change();
    if (!(state_ == before)) {
        changed_();
    }
}

bool LiveObject::Enter(const char* operation) {
    ++received_[operation];
    const QString caller = message().service();
    if (callers_.Note(caller)) {
        watcher_.addWatchedService(caller);
    }
    if (failing_ > 0) {
        --failing_;
        sendErrorReply(QDBusError::Failed, QStringLiteral("made to fail"));
        return false;
    }
    return true;
}

void LiveObject::End() {
    GiveUpName();
    // Calls that came before the name was given up are here by now.
    QCoreApplication::sendPostedEvents();
    if (callers_.Count() == 0) {
        nobody_();
        return;
    }
    TakeName();
}

}  // namespace workbench::live
