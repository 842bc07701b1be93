#include "support/SilentBus.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace travo::test {

namespace {

constexpr int Queue = 8;
constexpr int LongestWait = 20000;  // milliseconds

struct Name {
    explicit Name(const QByteArray& name) {
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        size =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()));
    }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&address); }

    sockaddr_un address = {};
    socklen_t size = 0;
};

int NewSocket() { return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

}  // namespace

SilentBus::SilentBus(Manner manner, Place place) : place_(place), socket_(NewSocket()) {
    const QByteArray path = folder_.filePath(QStringLiteral("bus")).toLocal8Bit();
    name_ = place == Place::Abstract ? '\0' + path : path;
    if (place == Place::RuntimeFolder) {
        qputenv("XDG_RUNTIME_DIR", folder_.path().toLocal8Bit());
    }
    const Name name(name_);
    EXPECT_EQ(bind(socket_, name.Get(), name.size), 0);
    EXPECT_EQ(listen(socket_, manner == Manner::HasNoRoom ? 0 : Queue), 0);
    if (manner == Manner::HasNoRoom) {
        Fill();
    } else if (manner == Manner::LetsUsIn) {
        doorman_ = std::thread([this] { LetIn(); });
    }
}

SilentBus::~SilentBus() {
    HasLetUsIn();
    for (const int open : {socket_, filling_, guest_}) {
        if (open >= 0) {
            close(open);
        }
    }
}

QString SilentBus::Address() const {
    return place_ == Place::Abstract ? QStringLiteral("unix:abstract=") + QString::fromLocal8Bit(name_.mid(1))
                                     : QStringLiteral("unix:path=") + QString::fromLocal8Bit(name_);
}

QString SilentBus::EscapedAddress() const {
    return QStringLiteral("unix:path=%") + QString::fromLatin1(name_.toHex('%'));
}

int SilentBus::Newcomers() const {
    int count = 0;
    for (int come = accept(socket_, nullptr, nullptr); come >= 0; come = accept(socket_, nullptr, nullptr)) {
        ++count;
        close(come);
    }
    return count;
}

bool SilentBus::HasLetUsIn() {
    if (doorman_.joinable()) {
        doorman_.join();
    }
    return hasLetIn_;
}

// Of a queue of length 0 there is room for one.
void SilentBus::Fill() {
    filling_ = NewSocket();
    const Name name(name_);
    EXPECT_EQ(connect(filling_, name.Get(), name.size), 0);
}

void SilentBus::LetIn() {
    pollfd door = {socket_, POLLIN, 0};
    if (poll(&door, 1, LongestWait) != 1) {
        return;
    }
    guest_ = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
    std::array<char, 512> words{};
    if (recv(guest_, words.data(), words.size(), 0) > 0) {
        const QByteArray believed("OK 0123456789abcdef0123456789abcdef\r\n");
        hasLetIn_ = send(guest_, believed.constData(), static_cast<std::size_t>(believed.size()),
                         MSG_NOSIGNAL) == believed.size();
    }
}

}  // namespace travo::test
