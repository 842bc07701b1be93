// What the tour plays on: a workbench process, a program folder of its own, and the real main window.
#pragma once

#include <QProcess>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/owner/FormMain.h"
#include "platform/qt/QtMachine.h"
#include "workbench/client/WorkbenchClient.h"
#include "workbench/tour/BoxOperator.h"

namespace workbench::tour {

struct Places {
    QString programFolder;  // TRAVO's, complete
    QString workbench;      // the travo-workbench program
    QString pictures;       // where screenshots go
};

class Stage {
public:
    // Starts the workbench and has it write the settings of a calibrated workstation.
    explicit Stage(const Places& places);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // Builds the system on the program folder and starts it; raises ActFailure if it will not start.
    void OpenProgram();
    // Closes it as the operator would, with the question answered OK, and tears all objects down.
    void CloseProgram();

    const Places& Where() const { return places_; }
    WorkbenchClient& Workbench() { return client_; }
    BoxOperator& Boxes() { return boxes_; }
    travo::FormMain& Program() { return *program_; }
    travo::SharedState& State() { return program_->State(); }
    travo::FormMainObjects& Objects() { return program_->Objects(); }

    // Serves events until the condition holds; ActFailure with the sentence after the limit.
    void WaitUntil(const std::function<bool()>& condition, const std::string& sentence,
                   int limitMilliseconds = 20000);
    // Serves events for at least one whole tick of the position loop.
    void WaitOneTick();
    // Requires that every announced box has come and no other.
    void RequireBoxesAsExpected();
    void SavePicture(const QString& name);

private:
    Places places_;
    QProcess workbench_;
    WorkbenchClient client_;
    BoxOperator boxes_;
    std::optional<travo::platform::qt::QtMachine> machine_;
    std::unique_ptr<travo::FormMain> program_;
};

}  // namespace workbench::tour
