// The camera object on a real bus of its own, with a fake camera program that plays scenarios.
#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <string>
#include <vector>

#include "platform/qt/QtLiveCamera.h"
#include "support/PrivateBus.h"

namespace travo::test {

using platform::qt::QtLiveCamera;

inline const QString Service = QStringLiteral("TRAVOLive.Live");

// Long enough for a fake that is to answer, short enough to wait for one that is not.
inline constexpr QtLiveCamera::Limits Patient{};
inline constexpr QtLiveCamera::Limits Hasty{std::chrono::milliseconds(2000), std::chrono::milliseconds(300),
                                            std::chrono::milliseconds(300)};

using Texts = std::vector<std::string>;

// What the object tells, in order.
class Told : public platform::LiveCamera::Listener {
public:
    void BirdViewSave() override { texts.emplace_back("BirdViewSave"); }
    void WindowHide() override { texts.emplace_back("WindowHide"); }
    void WindowClose() override { texts.emplace_back("WindowClose"); }
    void Lost() override { texts.emplace_back("Lost"); }
    bool Wait(const Texts& expected) {
        ServeUntil([&] { return texts.size() >= expected.size(); });
        EXPECT_EQ(texts, expected);
        return texts == expected;
    }

    Texts texts;
};

class LiveBusRig {
public:
    explicit LiveBusRig(const QtLiveCamera::Limits& limits = Patient) : camera(limits) { Install(); }
    ~LiveBusRig() { QDBusConnection::disconnectFromBus(ControlName); }

    LiveBusRig(const LiveBusRig&) = delete;
    LiveBusRig& operator=(const LiveBusRig&) = delete;

    // What the program has been called, in order, since it was asked last.
    Texts Calls() {
        Texts calls;
        const QString path = bus.File(QStringLiteral("calls"));
        for (const QString& line : ReadText(path).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            calls.push_back(line.toStdString());
        }
        WriteText(path, QString());
        return calls;
    }

    void Install() {
        bus.Install(Service, QStringLiteral(FAKE_LIVE_SERVICE) + QLatin1Char(' ') + bus.Folder());
    }
    void Play(const char* scenario) {
        WriteText(bus.File(QStringLiteral("scenario")), QLatin1String(scenario));
    }
    // At the camera's side: a wish of the operator there, or Die, or ReleaseName.
    void Work(const QString& wish, const QString& service = Service) {
        QDBusConnection control =
            QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), ControlName);
        QDBusMessage message =
            QDBusMessage::createMethodCall(service, QStringLiteral("/Control"), QString(), wish);
        message.setAutoStartService(false);
        control.call(message);
    }
    QString Owner() {
        QDBusConnection control =
            QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), ControlName);
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
        message.setArguments({Service});
        const QDBusMessage reply = control.call(message);
        return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0).toString() : QString();
    }
    qsizetype Started() const { return bus.NotedProcesses().size(); }

    PrivateBus bus;
    QtLiveCamera camera;

private:
    const QString ControlName = QStringLiteral("control");
};

}  // namespace travo::test
