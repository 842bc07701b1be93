// The real program, as a process of its own: started, watched and closed.
#pragma once

#include <QByteArray>

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Raises ActFailure at the first finding that is not as it should be.
void PlayProgramAct(Stage& stage);

// Processor time that a process has used so far, in milliseconds.
double ProcessorTime(qint64 process);
// The real program's log.
QByteArray LogText();

}  // namespace workbench::tour
