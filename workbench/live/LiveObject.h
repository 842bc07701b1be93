// The object `/Live` on the session bus: takes TRAVO's calls and tells it events.
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusServiceWatcher>
#include <QObject>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "workbench/live/Callers.h"
#include "workbench/live/LiveState.h"

namespace workbench::live {

// The public slots and the signals are what the bus sees. TRAVO never calls the first and the tenth
// operation of the interface, and their meaning is not known: they are not there.
class LiveObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "TRAVOLive.Live")

public:
    // changed: the state has changed. nobody: no caller is left, and the program is to end.
    LiveObject(std::function<void()> changed, std::function<void()> nobody);

    // Takes the name `TRAVOLive.Live`; false without a bus, or where another program has it.
    bool TakeName();
    // Gives the name up. What was told before has reached the bus then.
    void GiveUpName();

    const LiveState& State() const { return state_; }
    qsizetype CallerCount() const { return callers_.Count(); }
    // Calls received, by name.
    const std::map<std::string, std::int64_t>& Received() const { return received_; }
    // The next so many calls are answered with an error and do nothing.
    void FailNext(std::int64_t calls) { failing_ = calls; }

    // The operator at the camera's own window.
    void HideByOperator();
    void TellSaved();
    void TellClosed();

public Q_SLOTS:
    void LiveShowWindow();
    void LiveChangeMagnification(short magnification);
    void LiveHideWindow();
    void LiveActionEnd();
    void LiveActionStart();
    void LiveCalibPoints();
    void LiveCalibZ();
    void LiveCalibCenter();
    void LivePanelLeave();
    void LiveAttach();

Q_SIGNALS:
    void BirdViewSave();
    void WindowHide();
    void WindowClose();

private Q_SLOTS:
    void BusGone() { nobody_(); }

private:
    // Counts the call and its caller; false where it is made to fail.
    bool Enter(const char* operation);
    template <typename Change>
    void Take(const char* operation, Change change);
    void End();

    std::function<void()> changed_;
    std::function<void()> nobody_;
    QDBusConnection bus_;
    Callers callers_;
    QDBusServiceWatcher watcher_;
    LiveState state_;
    std::map<std::string, std::int64_t> received_;
    std::int64_t failing_ = 0;
};

}  // namespace workbench::live
