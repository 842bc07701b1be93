#include "workbench/WorkbenchProcess.h"

#include <QTemporaryDir>

namespace workbench {

void UsePrivateRuntimeFolder() {
    static const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
}

WorkbenchProcess::WorkbenchProcess(const QStringList& furtherOptions) {
    QStringList options = {QStringLiteral("--headless"), QStringLiteral("--end-with-input")};
    options += furtherOptions;
    process_.start(QStringLiteral(WORKBENCH_PROGRAM), options);
    while (!process_.canReadLine() && process_.waitForReadyRead(StartLimit)) {
    }
    readyLine_ = QString::fromLocal8Bit(process_.readLine()).trimmed();
}

WorkbenchProcess::~WorkbenchProcess() {
    if (process_.state() != QProcess::NotRunning) {
        process_.terminate();
        if (!process_.waitForFinished(EndLimit)) {
            Kill();
        }
    }
}

void WorkbenchProcess::Kill() {
    process_.kill();
    process_.waitForFinished(EndLimit);
}

int WorkbenchProcess::ExitCode() {
    if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(EndLimit)) {
        return -1;
    }
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

}  // namespace workbench
