// A session bus on which the camera program can be started.
#pragma once

#include <QByteArray>
#include <QString>

namespace travo::launcher {

// Whether the user's session bus can start the camera's service, as it can where a camera program is
// installed. False without a bus, and for one that does not answer within 2 s.
bool UsersBusKnowsCamera();

// Writes the service file of the camera program beside the programs of the folder. Gives the folder that a
// bus must find in its XDG_DATA_DIRS. Raises std::runtime_error with a sentence.
QString WriteCameraService(const QString& programFolder);

// Starts a session bus that ends with this process, whatever program this process has become by then.
// `dataFolder` stands before the folders in XDG_DATA_DIRS for it. Gives the bus's address. Raises
// std::runtime_error with a sentence.
QByteArray StartOwnBus(const QString& dataFolder);

}  // namespace travo::launcher
