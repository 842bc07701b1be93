// What the programs of the workbench are started with.
#pragma once

#include <QCommandLineParser>
#include <QString>
#include <optional>

namespace workbench {

// Reads the program's arguments by the options that the parser has been given, to which help and version are
// added. To be called before an application object is made: neither help nor a wrong option needs a display.
// Qt's own options are no exception; what they set is set by Qt's environment variables.
//
// Gives the exit code of a program that has nothing more to do: 0 when it has said on the standard output
// what it is, 1 when it has said on the standard error what is wrong with an option. Nothing where it goes
// on.
std::optional<int> ReadCommandLine(QCommandLineParser& parser, const QString& program, int argumentCount,
                                   char** arguments);

// Says on the standard error what is wrong with the arguments. Gives the exit code of the program, 1.
int RefuseCommandLine(const QString& program, const QString& sentence);

}  // namespace workbench
