// The manipulator link on a machine that the test owns.
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "core/state/FailureHandler.h"
#include "core/state/clsDebugLog.h"
#include "devices/links/clsManipulator.h"
#include "support/FakeMachine.h"
#include "support/LogTexts.h"

namespace travo::test {

inline const QString OutsideRange = QStringLiteral("Manipulator : Outside the movement range");
inline const QString CommunicationFailed = QStringLiteral("Manipulator : Communication failed");
inline const QString ChangeFailed = QStringLiteral("Error : Manipulator : Communication failed");

// The procedure at the first call, nothing at all later ones, also at those that the first one causes.
inline std::function<void()> Once(std::function<void()> procedure) {
    return [procedure = std::move(procedure), done = false]() mutable {
        if (!std::exchange(done, true)) {
            procedure();
        }
    };
}

// Manipulator 1 stands at (100, 200, 300) and is selected.
class ManipulatorRig : public FakeMachine {
public:
    ManipulatorRig() {
        log.LogFilePath(folder.filePath(QStringLiteral("log.txt")));
        driver.position[0] = {100, 200, 300};
        Build();
    }

    clsManipulator::Machine Machine() { return {driverLibrary, clock, eventLoop, pointer}; }

    // A new link on the machine as it stands now; the journal starts anew.
    void Build() {
        link = std::make_unique<clsManipulator>(Machine(), failures);
        journal.clear();
    }

    // A reading out of range is the one thing that leaves the guard taken behind it.
    void TakeGuard() {
        const auto position = driver.position;
        driver.position[static_cast<std::size_t>(driver.selected - 1)][0] = 25001;
        link->RequestData();
        driver.position = position;
        journal.clear();
    }

    // Tells by what a reading answers, which frees the guard.
    bool GuardIsTaken() { return link->RequestData().empty(); }

    // The texts of the log's lines.
    QStringList Logged() const { return LogTexts(log); }

    QTemporaryDir folder;
    clsDebugLog log{clock};
    FailureHandler failures{log, boxes};
    std::unique_ptr<clsManipulator> link;
};

}  // namespace travo::test
