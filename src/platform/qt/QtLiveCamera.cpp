#include "platform/qt/QtLiveCamera.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>

#include "platform/qt/AnnouncementQueue.h"
#include "platform/qt/SessionBus.h"

namespace travo::platform::qt {

namespace {

const QString ServiceName() { return QStringLiteral("TRAVOLive.Live"); }
const QString InterfaceName() { return QStringLiteral("TRAVOLive.Live"); }
const QString ObjectPath() { return QStringLiteral("/Live"); }

// The bus itself, as a service.
const QString BusName() { return QStringLiteral("org.freedesktop.DBus"); }
const QString BusPath() { return QStringLiteral("/org/freedesktop/DBus"); }

// Between two looks at whether a closing program has given up its name.
constexpr unsigned long ReleasePause = 1;  // ms

[[noreturn]] void Raise(const QString& what, const QString& why) {
    throw LiveCameraFailure((what + QStringLiteral(": ") + why).toStdString());
}

[[noreturn]] void RaiseEndedAtOnce() { Raise(ServiceName(), QStringLiteral("it has ended at once")); }

// A question to the bus itself.
QDBusMessage BusCall(const QString& question, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(BusName(), BusPath(), BusName(), question);
    message.setArguments(arguments);
    return message;
}

// The reply itself, where it is none of a failure.
const QDBusMessage& Expect(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage) {
        Raise(QStringLiteral("The live camera"), reply.errorName() + QLatin1Char(' ') + reply.errorMessage());
    }
    return reply;
}

QString BusAddress(std::chrono::milliseconds limit) {
    const QString address = SessionBusAddress();
    if (address.isEmpty()) {
        Raise(QStringLiteral("The live camera"), QStringLiteral("there is no session bus"));
    }
    // The library would wait for it for 25 s, and everybody who uses the library with it.
    if (IsSilent(address, limit)) {
        Raise(QStringLiteral("The session bus"), QStringLiteral("it says nothing"));
    }
    return address;
}

}  // namespace

// One client of the bus, and the object that it holds there.
class LiveBus : public QObject {
    Q_OBJECT

public:
    explicit LiveBus(const QtLiveCamera::Limits& limits)
        : limits_(limits),
          connectionName_(QStringLiteral("live camera %1").arg(reinterpret_cast<quintptr>(this), 0, 16)) {
        loss_.setSingleShot(true);
        connect(&loss_, &QTimer::timeout, this, &LiveBus::Lose);
    }
    ~LiveBus() override { Leave(); }

    void Create(LiveCamera::Listener& listener);
    void Call(QLatin1String operation);
    void Announce(const Announcement& announcement);
    void Leave();

private Q_SLOTS:
    void Event(const QDBusMessage& message);
    void OwnerChanged(const QString& name, const QString& before, const QString& now);
    void BusGone() { Lose(); }

private:
    void Join();
    void Hold(const QString& owner);
    void Forget();
    void Lose();
    void WaitForRelease();
    QString PresentOwner();
    bool IsHeld() const { return !owner_.isEmpty() && !loss_.isActive(); }
    QDBusMessage OperationCall(QLatin1String operation) const;
    void SendNext();
    void Answered();
    // Of the announcement in flight, which has been answered or given up.
    QDBusMessage TakeAnswer();
    void FinishAnnouncements();
    void EndAnnouncements();
    QDBusMessage Exchange(QDBusMessage message, std::chrono::milliseconds limit);

    const QtLiveCamera::Limits limits_;
    const QString connectionName_;
    std::optional<QDBusConnection> connection_;
    LiveCamera::Listener* listener_ = nullptr;
    QString owner_;    // unique name of the program behind the object; empty without an object
    QString closing_;  // unique name of a program that has told that it closes
    AnnouncementQueue announcements_;
    std::unique_ptr<QDBusPendingCallWatcher> inFlight_;
    QTimer loss_;  // on its way: the object counts as dead, which only the event loop may tell
};

void LiveBus::Create(LiveCamera::Listener& listener) {
    Forget();
    Join();
    WaitForRelease();
    Expect(Exchange(BusCall(QStringLiteral("StartServiceByName"), {ServiceName(), 0U}), limits_.start));
    Hold(PresentOwner());
    listener_ = &listener;
}

void LiveBus::Hold(const QString& owner) {
    if (owner.isEmpty()) {
        RaiseEndedAtOnce();
    }
    connection_->connect(BusName(), BusPath(), BusName(), QStringLiteral("NameOwnerChanged"), {owner},
                         QString(), this, SLOT(OwnerChanged(QString, QString, QString)));
    owner_ = owner;
    // A program that went before it was watched tells nothing of it.
    const QDBusMessage there = Exchange(BusCall(QStringLiteral("NameHasOwner"), {owner}), limits_.call);
    if (!there.arguments().value(0).toBool()) {
        Forget();
        RaiseEndedAtOnce();
    }
}

void LiveBus::Call(QLatin1String operation) {
    if (!IsHeld()) {
        Raise(operation, QStringLiteral("there is no live camera"));
    }
    FinishAnnouncements();
    Expect(Exchange(OperationCall(operation), limits_.call));
}

QDBusMessage LiveBus::OperationCall(QLatin1String operation) const {
    return QDBusMessage::createMethodCall(owner_, ObjectPath(), InterfaceName(), operation);
}

void LiveBus::Announce(const Announcement& announcement) {
    if (!IsHeld()) {
        return;
    }
    if (announcements_.Add(announcement)) {
        SendNext();
    } else {
        EndAnnouncements();
        loss_.start();
    }
}

void LiveBus::SendNext() {
    const std::optional<Announcement> next = announcements_.Next();
    if (!next) {
        return;
    }
    QDBusMessage message = OperationCall(next->operation);
    if (next->argument) {
        message.setArguments({QVariant::fromValue(*next->argument)});
    }
    message.setAutoStartService(false);
    inFlight_ = std::make_unique<QDBusPendingCallWatcher>(
        connection_->asyncCall(message, static_cast<int>(limits_.call.count())));
    connect(inFlight_.get(), &QDBusPendingCallWatcher::finished, this, &LiveBus::Answered);
}

void LiveBus::Answered() {
    if (TakeAnswer().type() == QDBusMessage::ReplyMessage) {
        SendNext();
    } else {
        Lose();
    }
}

QDBusMessage LiveBus::TakeAnswer() {
    const QDBusMessage answer = inFlight_->reply();
    // It may be the one that tells of it at this moment.
    inFlight_.release()->deleteLater();
    announcements_.Answered();
    return answer;
}

// What waits goes out and is answered here, since the event loop is not served.
void LiveBus::FinishAnnouncements() {
    while (inFlight_) {
        inFlight_->disconnect(this);
        inFlight_->waitForFinished();
        const QDBusMessage answer = TakeAnswer();
        if (answer.type() != QDBusMessage::ReplyMessage) {
            EndAnnouncements();
            Expect(answer);
        }
        SendNext();
    }
}

void LiveBus::EndAnnouncements() {
    announcements_.Clear();
    inFlight_.reset();
}

void LiveBus::Join() {
    if (connection_ && connection_->isConnected()) {
        return;
    }
    Leave();
    // Seen with Qt 6.4: it drops a connection on which the bus does not say hello in a way for which
    // libdbus aborts the program, unless it is told to warn only.
    qputenv("DBUS_FATAL_WARNINGS", "0");
    connection_ = QDBusConnection::connectToBus(BusAddress(limits_.call), connectionName_);
    if (!connection_->isConnected()) {
        const QString why = connection_->lastError().message();
        Leave();
        Raise(QStringLiteral("The session bus"), why);
    }
    // Events are taken from every sender and sorted out on arrival, so that none is missed between the
    // program's start and the answer to who it is.
    for (const char* const event : {"BirdViewSave", "WindowHide", "WindowClose"}) {
        connection_->connect(QString(), ObjectPath(), InterfaceName(), QLatin1String(event), this,
                             SLOT(Event(QDBusMessage)));
    }
    connection_->connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(BusGone()));
}

void LiveBus::Leave() {
    Forget();
    if (connection_) {
        connection_.reset();
        QDBusConnection::disconnectFromBus(connectionName_);
    }
    // Unique names begin anew on another bus: what was still on its way is not taken for news from there.
    QCoreApplication::removePostedEvents(this);
}

void LiveBus::Forget() {
    listener_ = nullptr;
    EndAnnouncements();
    loss_.stop();
    if (!owner_.isEmpty()) {
        connection_->disconnect(BusName(), BusPath(), BusName(), QStringLiteral("NameOwnerChanged"), {owner_},
                                QString(), this, SLOT(OwnerChanged(QString, QString, QString)));
        owner_.clear();
    }
}

void LiveBus::Lose() {
    if (LiveCamera::Listener* const listener = listener_) {
        Forget();
        listener->Lost();
    }
}

void LiveBus::WaitForRelease() {
    const auto end = std::chrono::steady_clock::now() + limits_.release;
    while (!closing_.isEmpty() && PresentOwner() == closing_) {
        if (std::chrono::steady_clock::now() >= end) {
            Raise(ServiceName(), QStringLiteral("the program that closes does not give up its name"));
        }
        QThread::msleep(ReleasePause);
    }
    closing_.clear();
}

// One question, so that the answer cannot be out of date half way.
QString LiveBus::PresentOwner() {
    const QDBusMessage reply =
        Exchange(BusCall(QStringLiteral("GetNameOwner"), {ServiceName()}), limits_.call);
    if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) {
        return QString();
    }
    return Expect(reply).arguments().value(0).toString();
}

QDBusMessage LiveBus::Exchange(QDBusMessage message, std::chrono::milliseconds limit) {
    message.setAutoStartService(false);
    return connection_->call(message, QDBus::Block, static_cast<int>(limit.count()));
}

void LiveBus::Event(const QDBusMessage& message) {
    if (listener_ == nullptr || message.service() != owner_) {
        return;
    }
    if (message.member() == QLatin1String("BirdViewSave")) {
        listener_->BirdViewSave();
    } else if (message.member() == QLatin1String("WindowHide")) {
        listener_->WindowHide();
    } else {
        closing_ = owner_;
        EndAnnouncements();
        listener_->WindowClose();
    }
}

void LiveBus::OwnerChanged(const QString& name, const QString&, const QString& now) {
    if (name == owner_ && now.isEmpty()) {
        Lose();
    }
}

QtLiveCamera::QtLiveCamera() : QtLiveCamera(Limits()) {}

QtLiveCamera::QtLiveCamera(const Limits& limits) : bus_(std::make_unique<LiveBus>(limits)) {}

QtLiveCamera::~QtLiveCamera() = default;

void QtLiveCamera::Create(Listener& listener) { bus_->Create(listener); }

void QtLiveCamera::Release() { bus_->Leave(); }

void QtLiveCamera::Call(QLatin1String operation) { bus_->Call(operation); }

void QtLiveCamera::Announce(QLatin1String operation) { bus_->Announce({operation, std::nullopt}); }

void QtLiveCamera::Announce(QLatin1String operation, std::int16_t argument) {
    bus_->Announce({operation, argument});
}

}  // namespace travo::platform::qt

#include "QtLiveCamera.moc"
