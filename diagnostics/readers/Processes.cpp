#include "diagnostics/readers/Processes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace travo::diagnostics {

namespace {

const QString Root = QStringLiteral("/proc");

std::vector<int> Numbers() {
    std::vector<int> numbers;
    for (const QString& name : QDir(Root).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        if (const int number = name.toInt(&isNumber); isNumber) {
            numbers.push_back(number);
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QString PathOf(int process, const char* file) {
    return QStringLiteral("%1/%2/%3").arg(Root).arg(process).arg(QLatin1String(file));
}

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString NameOf(int process) {
    // A program that has been replaced on the disk still bears its name.
    QString program = QFile::symLinkTarget(PathOf(process, "exe"));
    program.remove(QStringLiteral(" (deleted)"));
    return program.isEmpty() ? QString::fromLocal8Bit(Read(PathOf(process, "comm")).trimmed())
                             : QFileInfo(program).fileName();
}

bool Holds(int process, const QString& path) {
    const QDir files(PathOf(process, "fd"));
    for (const QString& file : files.entryList(QDir::Files | QDir::System | QDir::Hidden)) {
        if (QFile::symLinkTarget(files.filePath(file)) == path) {
            return true;
        }
    }
    return false;
}

// The processes that have a lock of the file, by the number of the file in the system's table.
std::vector<int> Lockers(const QString& path) {
    struct stat there {};
    if (::stat(QFile::encodeName(path).constData(), &there) != 0) {
        return {};
    }
    std::vector<int> lockers;
    for (const QByteArray& line : Read(QStringLiteral("/proc/locks")).split('\n')) {
        // "1: FLOCK  ADVISORY  WRITE 1234 08:02:5678 0 EOF"
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() >= 6 && words[1] == "FLOCK" &&
            words[5].split(':').last().toULongLong() == there.st_ino) {
            lockers.push_back(words[4].toInt());
        }
    }
    return lockers;
}

QDateTime StartOf(int process) {
    const QByteArray text = Read(PathOf(process, "stat"));
    // Its name stands in brackets and may hold anything.
    const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype Start = 19;  // the 22nd of all, in clock ticks since the system's start
    const QByteArray system = Read(Root + QStringLiteral("/stat"));
    const qsizetype place = system.indexOf("\nbtime ");
    if (fields.size() <= Start || place < 0) {
        return {};
    }
    const qint64 boot = system.mid(place + 7).split('\n').first().toLongLong();
    return QDateTime::fromSecsSinceEpoch(boot + fields[Start].toLongLong() / ::sysconf(_SC_CLK_TCK));
}

}  // namespace

QStringList ProgramsHolding(const QString& path) {
    QStringList programs;
    for (const int process : Numbers()) {
        if (Holds(process, path)) {
            programs << NameOf(process);
        }
    }
    programs.removeDuplicates();
    return programs;
}

bool IsRunning(const QString& program) {
    const std::vector<int> processes = Numbers();
    return std::any_of(processes.begin(), processes.end(), [&program](int process) {
        struct stat there {};
        const QByteArray folder = QFile::encodeName(QStringLiteral("%1/%2").arg(Root).arg(process));
        return ::stat(folder.constData(), &there) == 0 && there.st_uid == ::geteuid() &&
               NameOf(process) == program;
    });
}

std::optional<RunningTravo> TravoIn(const QString& programFolder) {
    const QString lock =
        QFileInfo(QDir(programFolder).filePath(QStringLiteral("TRAVO.lock"))).canonicalFilePath();
    for (const int process : Lockers(lock)) {
        // Files of two disks may have the same number.
        if (Holds(process, lock)) {
            return RunningTravo{StartOf(process)};
        }
    }
    return std::nullopt;
}

}  // namespace travo::diagnostics
