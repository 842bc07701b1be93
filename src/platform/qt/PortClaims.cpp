#include "platform/qt/PortClaims.h"

#include <signal.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>

namespace travo::platform::qt {

namespace {

const QString Processes = QStringLiteral("/proc");
constexpr QLatin1String Devices("/dev/");

// A descriptor that is closed in the end; none below 0.
class Descriptor {
public:
    explicit Descriptor(long descriptor) : descriptor_(static_cast<int>(descriptor)) {}
    ~Descriptor() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return descriptor_; }

private:
    int descriptor_;
};

bool IsClaimed(int descriptor) {
    int claimed = 0;
    return ::ioctl(descriptor, TIOCGEXCL, &claimed) == 0 && claimed != 0;
}

// Through a second descriptor of the very file that the process holds open: nothing is opened.
bool IsClaimed(pid_t process, int descriptor) {
    if (process == ::getpid()) {
        return IsClaimed(descriptor);
    }
    const Descriptor handle(::syscall(SYS_pidfd_open, process, 0));
    if (handle.Number() < 0) {
        return errno != ESRCH;
    }
    const Descriptor shared(::syscall(SYS_pidfd_getfd, handle.Number(), descriptor, 0));
    if (shared.Number() < 0) {
        return errno != EBADF && errno != ESRCH;
    }
    return IsClaimed(shared.Number());
}

QString NameOf(int process) {
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("%1/%2/exe").arg(Processes).arg(process)))
        .fileName();
}

bool IsLiving(int process) { return ::kill(process, 0) == 0 || errno == EPERM; }

// A lock file begins with the number of the process that has made it; a killed one leaves it behind.
bool NamesAnother(const QString& lockFile) {
    QFile file(lockFile);
    if (!QFileInfo(lockFile).isFile() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    bool isNumber = false;
    const int process = file.readLine(64).trimmed().toInt(&isNumber);
    if (!isNumber || process <= 0 || process == ::getpid() || !IsLiving(process)) {
        return false;
    }
    const QString program = QFileInfo(QString::fromUtf8(file.readLine(4096).trimmed())).fileName();
    const QString present = NameOf(process);
    return program.isEmpty() || present.isEmpty() || program == present;
}

}  // namespace

QStringList UsualLockFolders() {
    return {
        QStringLiteral("/var/lock"),         QStringLiteral("/etc/locks"), QStringLiteral("/var/spool/locks"),
        QStringLiteral("/var/spool/uucp"),   QStringLiteral("/tmp"),       QStringLiteral("/var/tmp"),
        QStringLiteral("/var/lock/lockdev"), QStringLiteral("/run/lock")};
}

bool IsLockedByAnother(const QString& device, const QStringList& lockFolders) {
    QString name = device;
    name.remove(0, name.startsWith(Devices) ? Devices.size() : 0).replace(QLatin1Char('/'), QLatin1Char('_'));
    return std::any_of(lockFolders.begin(), lockFolders.end(), [&name](const QString& folder) {
        return NamesAnother(QDir(folder).filePath(QStringLiteral("LCK..") + name));
    });
}

std::set<QString> ClaimedTerminals() {
    std::set<QString> claimed;
    for (const QString& process : QDir(Processes).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const pid_t number = process.toInt(&isNumber);
        if (!isNumber) {
            continue;
        }
        const QDir files(QStringLiteral("%1/%2/fd").arg(Processes, process));
        for (const QString& file : files.entryList(QDir::Files | QDir::System | QDir::Hidden)) {
            const QString device = QFile::symLinkTarget(files.filePath(file));
            if (device.startsWith(Devices) && !claimed.contains(device) && IsClaimed(number, file.toInt())) {
                claimed.insert(device);
            }
        }
    }
    return claimed;
}

}  // namespace travo::platform::qt
