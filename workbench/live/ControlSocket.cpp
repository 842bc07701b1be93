#include "workbench/live/ControlSocket.h"

#include <QLocalSocket>
#include <utility>

namespace workbench::live {

namespace {

constexpr qint64 LongestLine = 256;
constexpr int OtherProgramLimit = 200;  // ms

bool Served(const QString& path) {
    QLocalSocket other;
    other.connectToServer(path);
    return other.waitForConnected(OtherProgramLimit);
}

}  // namespace

ControlSocket::ControlSocket(Answer answer) : answer_(std::move(answer)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { Accept(); });
}

bool ControlSocket::Listen(const QString& path) {
    if (Served(path)) {
        return false;
    }
    QLocalServer::removeServer(path);
    return server_.listen(path);
}

void ControlSocket::Accept() {
    while (QLocalSocket* const client = server_.nextPendingConnection()) {
        QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
        QObject::connect(client, &QLocalSocket::readyRead, client, [this, client] { Serve(*client); });
        Serve(*client);
    }
}

void ControlSocket::Serve(QLocalSocket& client) {
    while (client.canReadLine()) {
        const QByteArray line = client.readLine().trimmed();
        client.write(QByteArray::fromStdString(answer_(line.toStdString())) + '\n');
        // An answer that ends the program, or keeps it busy, has gone out before.
        client.flush();
    }
    if (client.bytesAvailable() > LongestLine) {
        client.abort();
    }
}

}  // namespace workbench::live
