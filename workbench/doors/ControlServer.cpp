#include "workbench/doors/ControlServer.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QLocalSocket>
#include <algorithm>
#include <stdexcept>

namespace workbench {

namespace {

constexpr int HangWatchPeriod = 20;  // ms
constexpr mode_t OthersExcluded = 0077;

}  // namespace

ControlServer::ControlServer(Commands& commands, std::function<Time()> clock, std::function<void()> wantsEnd)
    : commands_(commands), clock_(std::move(clock)), wantsEnd_(std::move(wantsEnd)) {
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { AcceptClients(); });
    hangWatch_.setInterval(HangWatchPeriod);
    QObject::connect(&hangWatch_, &QTimer::timeout, &hangWatch_, [this] { ServeAll(); });
}

ControlServer::~ControlServer() {
    for (QLocalSocket* client : clients_) {
        client->disconnect();
        client->flush();
        client->abort();
    }
    server_.close();
    if (lock_ >= 0) {
        close(lock_);
    }
}

void ControlServer::Listen(const std::string& path) {
    lock_ = open((path + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    if (lock_ < 0) {
        throw std::runtime_error("the socket's folder cannot be written: " + path);
    }
    if (flock(lock_, LOCK_EX | LOCK_NB) != 0) {
        throw std::runtime_error("a workbench is already running at " + path);
    }
    unlink(path.c_str());
    const mode_t before = umask(OthersExcluded);
    const bool listens = server_.listen(QString::fromLocal8Bit(path.c_str()));
    umask(before);
    if (!listens) {
        throw std::runtime_error("the socket cannot be opened: " + path + ": " +
                                 server_.errorString().toStdString());
    }
}

void ControlServer::AcceptClients() {
    while (QLocalSocket* client = server_.nextPendingConnection()) {
        if (clients_.size() >= MostClients) {
            client->abort();
            client->deleteLater();
            continue;
        }
        clients_.push_back(client);
        // What a client sends beyond this stays in the socket until it has been looked at.
        client->setReadBufferSize(MostWaiting + 1);
        QObject::connect(client, &QLocalSocket::readyRead, client, [this, client] { Serve(*client); });
        QObject::connect(client, &QLocalSocket::disconnected, client, [this, client] { Forget(*client); });
        Serve(*client);
    }
}

void ControlServer::Serve(QLocalSocket& client) {
    while (client.canReadLine()) {
        const QByteArray next = client.peek(static_cast<qint64>(Commands::LongestLine) + 1);
        const qsizetype end = next.indexOf('\n');
        const Time now = clock_();
        if (end < 0) {
            break;
        }
        const std::string_view line(next.constData(), static_cast<std::size_t>(end));
        if (commands_.MustWait(line, now)) {
            hangWatch_.start();
            break;
        }
        client.skip(end + 1);
        client.write(QByteArray::fromStdString(commands_.Answer(line, now) + "\n"));
    }
    const QByteArray rest = client.peek(static_cast<qint64>(Commands::LongestLine) + 1);
    const bool endless = rest.size() > static_cast<qint64>(Commands::LongestLine) && !rest.contains('\n');
    if (endless || client.bytesAvailable() > MostWaiting || client.bytesToWrite() > MostUnread) {
        client.abort();
        Forget(client);
    } else if (commands_.ShutdownWanted()) {
        client.flush();
        wantsEnd_();
    }
}

void ControlServer::ServeAll() {
    hangWatch_.stop();
    // Serving may drop clients from the list.
    const std::vector<QLocalSocket*> all = clients_;
    for (QLocalSocket* client : all) {
        Serve(*client);
    }
}

void ControlServer::Forget(QLocalSocket& client) {
    const auto place = std::find(clients_.begin(), clients_.end(), &client);
    if (place != clients_.end()) {
        clients_.erase(place);
        client.deleteLater();
    }
}

}  // namespace workbench
