#include "platform/qt/SerialLine.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QFile>

namespace travo::platform::qt {

std::optional<ClearToSend> ClearToSendOf(int descriptor) {
    int signals = 0;
    if (::ioctl(descriptor, TIOCMGET, &signals) != 0) {
        return std::nullopt;
    }
    ClearToSend line{.on = (signals & TIOCM_CTS) != 0, .changes = std::nullopt};
    serial_icounter_struct counters = {};
    if (::ioctl(descriptor, TIOCGICOUNT, &counters) == 0) {
        line.changes = counters.cts;
    }
    return line;
}

bool TakesBytes(int descriptor) {
    pollfd line{.fd = descriptor, .events = POLLOUT, .revents = 0};
    return ::poll(&line, 1, 0) == 1 && (line.revents & POLLOUT) != 0;
}

ExclusiveClaim::ExclusiveClaim(const QString& device)
    : descriptor_(
          ::open(QFile::encodeName(device).constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    int claimed = 0;
    claimed_ = descriptor_ >= 0 && ::ioctl(descriptor_, TIOCGEXCL, &claimed) == 0 && claimed != 0;
}

ExclusiveClaim::~ExclusiveClaim() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

}  // namespace travo::platform::qt
