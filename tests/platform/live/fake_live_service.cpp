// A live camera program that misbehaves as told. Its one argument is a folder with these files:
// "processes" gets its process number, "calls" each call that it receives, and "scenario" says, at the
// start and at each call, how it behaves. The operations of "/Control" are the operator at its side.
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QTimer>

namespace {

constexpr int SlowAnswer = 150;  // ms
constexpr int LateAnswer = 600;
constexpr int Linger = 200;

QString ServiceName() { return QStringLiteral("TRAVOLive.Live"); }

class FakeService : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit FakeService(const QString& folder) : folder_(folder), bus_(QDBusConnection::sessionBus()) {
        Note(QStringLiteral("processes"), QString::number(QCoreApplication::applicationPid()));
        bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                     QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                     SLOT(End()));
    }

    void Start() {
        if (Scenario() == QLatin1String("ends at once")) {
            _exit(1);
        } else if (Scenario() == QLatin1String("never comes up")) {
            return;
        } else if (Scenario() == QLatin1String("slow")) {
            QTimer::singleShot(SlowAnswer, this, [this] { TakeName(); });
        } else {
            TakeName();
        }
    }

    QString introspect(const QString&) const override { return QString(); }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        if (message.path() == QLatin1String("/Control")) {
            Work(message);
        } else {
            Answer(message);
        }
        return true;
    }

public Q_SLOTS:
    void End() { _exit(0); }

private:
    void TakeName() {
        bus_.registerVirtualObject(QStringLiteral("/Control"), this);
        if (Scenario() != QLatin1String("empty")) {
            bus_.registerVirtualObject(QStringLiteral("/Live"), this);
        }
        bus_.registerService(ServiceName());
    }

    void Answer(const QDBusMessage& message) {
        QString call = message.member();
        if (!message.arguments().isEmpty()) {
            call += QLatin1Char(' ') + message.arguments().at(0).toString();
        }
        if (!message.signature().isEmpty()) {
            call += QLatin1Char(' ') + message.signature();
        }
        Note(QStringLiteral("calls"), call);
        const QString scenario = Scenario();
        if (scenario == QLatin1String("dies")) {
            End();
        } else if (scenario == QLatin1String("refuses")) {
            bus_.send(message.createErrorReply(QStringLiteral("TRAVOLive.Refused"), QStringLiteral("no")));
        } else if (scenario == QLatin1String("slow")) {
            QTimer::singleShot(SlowAnswer, this, [this, message] { bus_.send(message.createReply()); });
        } else if (scenario == QLatin1String("late")) {
            QTimer::singleShot(LateAnswer, this, [this, message] { bus_.send(message.createReply()); });
        } else if (scenario == QLatin1String("tells first")) {
            Tell(QStringLiteral("BirdViewSave"));
            bus_.send(message.createReply());
        } else if (scenario != QLatin1String("hangs")) {
            bus_.send(message.createReply());
        }
    }

    void Work(const QDBusMessage& message) {
        const QString wish = message.member();
        if (wish == QLatin1String("Die")) {
            End();
        } else if (wish == QLatin1String("ReleaseName")) {
            bus_.unregisterService(ServiceName());
        } else {
            Tell(wish);
            if (wish == QLatin1String("WindowClose")) {
                Close();
            }
        }
        // Whoever gets the answer knows that the wish has reached the bus.
        bus_.send(message.createReply());
    }

    void Close() {
        if (Scenario() == QLatin1String("lingers")) {
            QTimer::singleShot(Linger, this, [this] { bus_.unregisterService(ServiceName()); });
        } else if (Scenario() != QLatin1String("stays")) {
            bus_.unregisterService(ServiceName());
        }
    }

    void Tell(const QString& event) {
        bus_.send(QDBusMessage::createSignal(QStringLiteral("/Live"), ServiceName(), event));
    }

    QString Scenario() const {
        QFile file(QDir(folder_).filePath(QStringLiteral("scenario")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    void Note(const QString& file, const QString& line) const {
        QFile out(QDir(folder_).filePath(file));
        if (out.open(QIODevice::WriteOnly | QIODevice::Append)) {
            out.write(line.toUtf8() + '\n');
        }
    }

    QString folder_;
    QDBusConnection bus_;
};

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    FakeService service(application.arguments().value(1));
    service.Start();
    return QCoreApplication::exec();
}

#include "fake_live_service.moc"
