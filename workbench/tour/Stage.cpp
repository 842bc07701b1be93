#include "workbench/tour/Stage.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>

#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

constexpr int StartLimit = 10000;
constexpr int EndLimit = 10000;

}  // namespace

Stage::Stage(const Places& places) : places_(places) {
    workbench_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    workbench_.start(places_.workbench, {QStringLiteral("--headless"), QStringLiteral("--end-with-input"),
                                         QStringLiteral("--program-folder"), places_.programFolder});
    Require(client_.WaitUntilReady(std::chrono::milliseconds(StartLimit)), "the workbench does not answer");
    client_.WriteSettings(QDir(places_.programFolder).filePath(QStringLiteral("KVData.ini")).toStdString());
    QDir().mkpath(places_.pictures);
    boxes_.Pictures(places_.pictures);
}

Stage::~Stage() {
    program_.reset();
    machine_.reset();
    workbench_.closeWriteChannel();
    if (!workbench_.waitForFinished(EndLimit)) {
        workbench_.kill();
        workbench_.waitForFinished(EndLimit);
    }
}

void Stage::OpenProgram() {
    machine_.emplace(places_.programFolder);
    program_ = std::make_unique<travo::FormMain>(machine_->Seams());
    machine_->MousePointer().Window(program_.get());
    Require(program_->Start(), "the program does not start");
    WaitUntil([this] { return State().intManipulatorNumber >= 0; }, "no needle has been read");
}

void Stage::CloseProgram() {
    boxes_.Expect(QStringLiteral("Do you want to end? This will clear all saved cell and escape positions."));
    Require(program_->close(), "the program refuses to close");
    RequireBoxesAsExpected();
    program_.reset();
    machine_.reset();
}

void Stage::WaitUntil(const std::function<bool()>& condition, const std::string& sentence,
                      int limitMilliseconds) {
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        Require(time.elapsed() < limitMilliseconds, sentence);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
}

void Stage::WaitOneTick() {
    QElapsedTimer time;
    time.start();
    WaitUntil([&] { return time.elapsed() >= 2 * travo::PositionLoop::Period; }, "time stands still");
}

void Stage::RequireBoxesAsExpected() {
    Require(boxes_.Unexpected().isEmpty(),
            "an unexpected box came: " + boxes_.Unexpected().join(QStringLiteral(" | ")).toStdString());
    Require(boxes_.AllCame(), "a box that should have come did not");
}

void Stage::SavePicture(const QString& name) {
    program_->grab().save(QDir(places_.pictures).filePath(name + QStringLiteral(".png")));
}

}  // namespace workbench::tour
