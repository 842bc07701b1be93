// travo: makes and renews the user's own program folder and starts TRAVO in it.
#include <unistd.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>

#include "launcher/CameraBus.h"
#include "launcher/Pins.h"
#include "launcher/ProgramFolder.h"

namespace {

using namespace travo;

[[noreturn]] void Fail(const QString& sentence) { throw std::runtime_error(sentence.toStdString()); }

void Say(std::FILE* stream, const QString& sentence) {
    std::fprintf(stream, "%s\n", sentence.toLocal8Bit().constData());
}

// Installed, the package's files lie beside this program's folder; in a build folder likewise.
QString PackageFolder() {
    const QDir own(QCoreApplication::applicationDirPath());
    for (const QString& place : {QStringLiteral("../lib/travo"), QStringLiteral("../TRAVO")}) {
        if (QFile::exists(own.filePath(place + QStringLiteral("/TRAVO")))) {
            return QDir::cleanPath(own.filePath(place));
        }
    }
    Fail(QStringLiteral("The files of TRAVO are not found beside %1.").arg(own.path()));
}

QString UsersFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir(data).filePath(QStringLiteral("travo"));
}

void Renew(const QString& folder) {
    const QString package = PackageFolder();
    const QString version = launcher::VersionOf(package, QStringLiteral(TRAVO_VERSION));
    if (launcher::RenewProgramFolder(package, folder, version) == launcher::Renewal::InUse) {
        Say(stderr,
            QStringLiteral(
                "travo: TRAVO is running; another version is installed and is taken once it is closed."));
    }
}

void PinDevice(const QString& folder, const QString& instrument, const QStringList& devices) {
    const auto number = launcher::PortNumberOf(instrument);
    if (!number || devices.size() != 1) {
        Fail(QStringLiteral("--pin takes mirror, gauge or motor and then one device."));
    }
    if (!QFile::exists(devices.first())) {
        Fail(QStringLiteral("There is no device %1.").arg(devices.first()));
    }
    const QString target = launcher::LastingName(devices.first(), QStringLiteral("/dev/serial"));
    launcher::Pin(folder, *number, target);
    Say(stdout, QStringLiteral("Port %1 is %2: choose %1 for the %3 in TRAVO's connection panel.")
                    .arg(*number)
                    .arg(target, instrument));
}

// Becomes TRAVO, so that whoever started this program ends that one.
[[noreturn]] void Start(const QString& folder) {
    if (!launcher::UsersBusKnowsCamera()) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", launcher::StartOwnBus(launcher::WriteCameraService(folder)));
    }
    const QByteArray program = QFile::encodeName(QDir(folder).filePath(QStringLiteral("TRAVO")));
    execl(program.constData(), program.constData(), static_cast<char*>(nullptr));
    Fail(QStringLiteral("%1 cannot be started: %2.")
             .arg(QFile::decodeName(program), QString::fromLocal8Bit(std::strerror(errno))));
}

int Run(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Starts TRAVO in the program folder of this user."));
    const QCommandLineOption folder(QStringLiteral("folder"),
                                    QStringLiteral("Say where the program folder is."));
    const QCommandLineOption pin(
        QStringLiteral("pin"),
        QStringLiteral("Link the port of that instrument to the device's lasting name."),
        QStringLiteral("mirror|gauge|motor"));
    parser.addOptions({folder, pin});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("DEVICE"), QStringLiteral("With --pin: the serial device."),
                                 QStringLiteral("[DEVICE]"));
    parser.process(application);
    if (parser.isSet(folder)) {
        Say(stdout, UsersFolder());
        return 0;
    }
    if (!parser.isSet(pin) && !parser.positionalArguments().isEmpty()) {
        Fail(QStringLiteral("A device stands behind --pin alone."));
    }
    Renew(UsersFolder());
    if (parser.isSet(pin)) {
        PinDevice(UsersFolder(), parser.value(pin), parser.positionalArguments());
        return 0;
    }
    Start(UsersFolder());
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("travo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TRAVO_VERSION));
    try {
        return Run(application);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "travo: %s\n", failure.what());
        return 1;
    }
}
