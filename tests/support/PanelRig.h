// What a panel stands on: the real shared state, instruments, motion and settings, on a machine of
// stand-ins. Tests click the panel's controls and look at boxes, wires, driver, camera and settings.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/SharedState.h"
#include "core/state/clsDebugLog.h"
#include "core/state/clsIniEdit.h"
#include "devices/links/clsCommunication.h"
#include "mirror/motion/clsMirrorMove.h"
#include "needle/clsEscape.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsNeedleSynchro.h"
#include "needle/clsObjectiveUpDown.h"
#include "platform/qt/QtPrivateProfile.h"
#include "support/FakeMachine.h"
#include "support/InstrumentsListener.h"

namespace travo::test {

class PanelRig : public FakeMachine, private SharedState::Listener, private LiveLink::Listener {
public:
    PanelRig() {
        log.LogFilePath(folder.filePath(QStringLiteral("debugTRAVO.txt")));
        ini.IniFilePath(folder.filePath(QStringLiteral("KVData.ini")));
        driver.position.fill({1000, 1000, 1000});
    }

    // Opens mirror, gauge and motor as ports 1, 2 and 3 and forgets what was sent for it.
    void OpenPorts() {
        communication.MirrorPortOpen(1);
        communication.MagnescalePortOpen(2);
        communication.MotorPortOpen(3);
        MirrorPort().TakeOutput();
        GaugePort().TakeOutput();
        MotorPort().TakeOutput();
        journal.clear();
    }

    // The camera as a press of its button leaves it.
    void OpenCamera() {
        live.Create();
        state.LiveOpen = true;
        journal.clear();
    }

    QByteArray Settings() const {
        QFile file(ini.IniFilePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QByteArray Log() const {
        QFile file(log.LogFilePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // The program's folder: the settings file lies there. Pictures are found when SkinFolder is linked.
    QString ProgramFolder() const { return folder.path(); }

    QTemporaryDir folder;
    InstrumentsListener instruments{journal};
    platform::QtPrivateProfile profile;

    clsDebugLog log{clock};
    FailureHandler failures{log, boxes};
    SharedState state{*this};
    clsIniEdit ini{profile};
    LiveLink live{camera, state, *this};
    clsCommunication communication{
        {{driverLibrary, clock, eventLoop, pointer}, serialPorts, eventLoop}, state, failures, instruments};
    clsObjectiveUpDown objective{communication, failures};
    clsNeedleMove needleMove{state, communication, objective, failures, boxes};
    clsEscape escape{{clock, eventLoop}, state, communication, needleMove, failures};
    clsNeedleSynchro needleSynchro{needleMove, objective, failures};
    clsMirrorMove mirrorMove{state, communication, objective, failures};

private:
    void MagnificationChanged(std::int16_t magnification) override {
        journal.push_back("magnification " + std::to_string(magnification));
    }
    void ViewChanged() override { escape.NowCurrentZPos = state.CurrentXYZ(2); }
    void Live_BirdViewSave() override { journal.push_back("Live_BirdViewSave"); }
    void Live_WindowHide() override { journal.push_back("Live_WindowHide"); }
    void Live_WindowClose() override { journal.push_back("Live_WindowClose"); }
    void LiveDied() override { journal.push_back("LiveDied"); }
};

}  // namespace travo::test
