// Serial ports on pseudo-terminals, and an event loop to serve them.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/PseudoTerminal.h"
#include "platform/qt/QtSerialPort.h"

namespace travo::test {

// Failures that leave a procedure of the event loop are counted, as the program reports them.
class CountingApplication : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const std::exception&) {
            ++failures;
            return true;
        }
    }
    int failures = 0;
};

class SerialRig : public ::testing::Test {
protected:
    static constexpr int LimitMilliseconds = 20000;

    SerialRig() {
        QDir(folder_.path()).mkdir(QStringLiteral("ports"));
        Pin(1, wire_.Device());
    }

    // Port n is that device from now on.
    void Pin(int number, const QString& device) {
        const QString link = folder_.filePath(QStringLiteral("ports/com%1").arg(number));
        QFile::remove(link);
        ASSERT_TRUE(QFile::link(device, link));
    }

    // A closed port of that number, with the settings that the mirror's link gives.
    std::unique_ptr<platform::SerialPort> Create(int number, std::function<void()> onComm) {
        auto port = ports_.Create(std::move(onComm), [this, number] { lost_.push_back(number); });
        port->CommPort(static_cast<std::int16_t>(number));
        port->Settings("9600,N,8,1");
        port->Handshaking(platform::NoHandshaking);
        port->InputLen(0);
        port->InputMode(platform::TextMode);
        port->RThreshold(1);
        return port;
    }

    // Opens port 1; every event is noted and then handled.
    void Open(int threshold, std::function<void()> handle) {
        port_ = Create(1, [this, handle = std::move(handle)] {
            events_.push_back(port_->CommEvent());
            handle();
        });
        port_->RThreshold(threshold);
        port_->PortOpen(true);
    }
    // Opens port 1 and keeps all that it receives.
    void OpenAndKeep(int threshold = 1) {
        Open(threshold, [this] { received_ += port_->Input(); });
    }

    // The line has modem signals, which the test sets.
    void HasModemSignals() { line_ = platform::qt::ClearToSend{}; }

    // Serves events until it is so; false when the limit is over.
    static bool ServeUntil(const std::function<bool()>& isSo) {
        QTimer limit;
        limit.setSingleShot(true);
        limit.start(LimitMilliseconds);
        while (!isSo()) {
            if (!limit.isActive()) {
                return false;
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        return true;
    }
    // Serves events for a while; how often the event loop woke up in it.
    static int WakeUpsWhileServing(int milliseconds) {
        int wakeUps = 0;
        QEventLoop loop;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                         [&wakeUps] { ++wakeUps; });
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
        return wakeUps;
    }
    // Sends all, serving events while the wire is full.
    bool SendAll(std::string_view bytes) {
        return ServeUntil([this, &bytes] {
            bytes.remove_prefix(wire_.Send(bytes));
            return bytes.empty();
        });
    }

    // Wakes an event loop that sleeps while the test waits for something that is no event.
    class Ticking {
    public:
        Ticking() { timer_.start(1); }

    private:
        QTimer timer_;
    };

    int argumentCount_ = 1;
    std::string name_ = "serial";
    std::vector<char*> arguments_{name_.data(), nullptr};
    CountingApplication application_{argumentCount_, arguments_.data()};
    QTemporaryDir folder_;
    PseudoTerminal wire_;
    // As if read from the line; none is that of a pseudo-terminal.
    std::optional<platform::qt::ClearToSend> line_;
    platform::qt::QtSerialPorts ports_{folder_.path(), [this](int) { return line_; }};
    std::vector<int> events_;
    std::vector<int> lost_;  // numbers of the ports that have closed by themselves
    std::string received_;
    std::unique_ptr<platform::SerialPort> port_;
};

// Bytes that differ from their neighbours, so that a lost or doubled piece shows.
inline std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

}  // namespace travo::test
