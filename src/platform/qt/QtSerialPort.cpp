#include "platform/qt/QtSerialPort.h"

#include <QElapsedTimer>
#include <QSerialPort>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/qt/PortClaims.h"
#include "platform/qt/PortNames.h"
#include "platform/qt/SerialSettings.h"

namespace travo::platform::qt {

namespace {

constexpr int ModemPollMilliseconds = 10;
constexpr int BitsForByte = 12;  // at most: start, 8 data, parity, 2 stop
// Closing gives the last words this long to leave the line; they are a few bytes.
constexpr qint64 MostDrainMilliseconds = 100;
constexpr qint64 NanosecondsInSecond = 1'000'000'000;
constexpr qint64 NanosecondsInMillisecond = 1'000'000;

std::runtime_error Refusal(std::int16_t number, const QString& device, const QString& reason) {
    const QString where = device.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(device);
    return std::runtime_error(QStringLiteral("port %1%2: %3").arg(number).arg(where, reason).toStdString());
}

QSerialPort::Parity ParityOf(const SerialSettings& settings) {
    switch (settings.parity) {
        case SerialSettings::Parity::Even:
            return QSerialPort::EvenParity;
        case SerialSettings::Parity::Odd:
            return QSerialPort::OddParity;
        case SerialSettings::Parity::None:
            break;
    }
    return QSerialPort::NoParity;
}

// The hardware knows one stop bit or more, and "more" is one and a half with 5 data bits, else two.
QSerialPort::StopBits StopBitsOf(const SerialSettings& settings) {
    const bool one = settings.stopBits == SerialSettings::StopBits::One;
    return one ? QSerialPort::OneStop : QSerialPort::TwoStop;
}

bool CanBeHad(const SerialSettings& settings) {
    return settings.stopBits != SerialSettings::StopBits::OneAndHalf || settings.dataBits == 5;
}

bool Configure(QSerialPort& port, const SerialSettings& settings) {
    port.setReadBufferSize(QtSerialPort::MostUnreadBytes);
    return CanBeHad(settings) && port.setBaudRate(settings.speed) && port.setParity(ParityOf(settings)) &&
           port.setDataBits(static_cast<QSerialPort::DataBits>(settings.dataBits)) &&
           port.setStopBits(StopBitsOf(settings)) && port.setFlowControl(QSerialPort::NoFlowControl);
}

// After any other error the device is gone, or as good as gone.
bool IsHarmless(QSerialPort::SerialPortError error) {
    return error == QSerialPort::NoError || error == QSerialPort::UnsupportedOperationError ||
           error == QSerialPort::TimeoutError || error == QSerialPort::NotOpenError;
}

}  // namespace

// The port while it is open, and the telling of its events.
class QtSerialPort::Line : public std::enable_shared_from_this<Line> {
public:
    Line(std::function<void()> OnComm, std::function<void()> OnLost, ReadClearToSend readClearToSend)
        : onComm_(std::move(OnComm)),
          onLost_(std::move(OnLost)),
          readClearToSend_(std::move(readClearToSend)) {
        clock_.start();
        poll_.setInterval(ModemPollMilliseconds);
        poll_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&poll_, &QTimer::timeout, [this] { AskClearToSend(); });
    }

    void Threshold(int characters) { threshold_ = characters; }
    // Takes a port that is open.
    void Take(std::unique_ptr<QSerialPort> port);
    void Drain();
    void Close();
    bool IsOpen() const { return port_ != nullptr; }
    int Waiting() const { return port_ ? static_cast<int>(port_->bytesAvailable()) : 0; }
    // So many characters, or all of them at 0.
    std::string Read(int length);
    void Write(std::string_view bytes);
    int CommEvent() const { return commEvent_; }

private:
    // What has happened and is not told yet.
    struct News {
        bool reception = false;
        bool clearToSend = false;
        bool Any() const { return reception || clearToSend; }
    };
    // Counts the calls inside calls; what came beyond their bound is taken up when it ends.
    struct Nesting {
        explicit Nesting(Line& line) : line_(line) { ++line_.depth_; }
        ~Nesting() {
            --line_.depth_;
            line_.Schedule();
        }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
        Line& line_;
    };

    void OnReception();
    void OnError(QSerialPort::SerialPortError error);
    void AskClearToSend();
    void CloseSoon();
    void Lose();
    void Schedule();
    void Deliver();
    void Tell(int event);

    std::function<void()> onComm_;
    std::function<void()> onLost_;
    ReadClearToSend readClearToSend_;
    QObject context_;  // of the queued calls, which end with it
    QTimer poll_;
    std::unique_ptr<QSerialPort> port_;
    std::optional<ClearToSend> clearToSend_;  // as last seen; none on a line without modem signals
    int threshold_ = 0;
    int commEvent_ = 0;
    News news_;
    bool scheduled_ = false;
    int depth_ = 0;
    QElapsedTimer clock_;
    qint64 busyUntil_ = 0;      // nanoseconds of the clock; the line cannot have sent all before
    std::int64_t taken_ = 0;    // bytes read in all
    std::int64_t opening_ = 0;  // tells one opening of the port from the next
};

void QtSerialPort::Line::Take(std::unique_ptr<QSerialPort> port) {
    port_ = std::move(port);
    busyUntil_ = 0;
    ++opening_;
    QObject::connect(port_.get(), &QSerialPort::readyRead, &context_, [this] { OnReception(); });
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, &context_,
                     [this](QSerialPort::SerialPortError error) { OnError(error); });
    clearToSend_ = readClearToSend_(port_->handle());
    if (clearToSend_) {
        poll_.start();
    }
}

// Qt gives a port that it closes its former speed back at once, in the middle of bytes that the line
// still holds. They would arrive as noise.
void QtSerialPort::Line::Drain() {
    const qint64 start = clock_.nsecsElapsed();
    const qint64 end = std::min(busyUntil_, start + MostDrainMilliseconds * NanosecondsInMillisecond);
    while (port_ && clock_.nsecsElapsed() < end) {
        QThread::msleep(1);
    }
}

void QtSerialPort::Line::Close() {
    poll_.stop();
    news_ = {};
    ++opening_;
    if (const std::unique_ptr<QSerialPort> port = std::move(port_)) {
        // Closing may fail on a device that is gone, and says so; that is no news any more.
        port->disconnect(&context_);
        port->close();
    }
}

std::string QtSerialPort::Line::Read(int length) {
    if (!port_) {
        return {};
    }
    const QByteArray bytes = length > 0 ? port_->read(length) : port_->readAll();
    taken_ += bytes.size();
    return bytes.toStdString();
}

void QtSerialPort::Line::Write(std::string_view bytes) {
    if (!port_ || static_cast<std::size_t>(port_->bytesToWrite()) + bytes.size() > MostUnsentBytes) {
        return;
    }
    port_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    // At once: the caller may stand still for seconds, or close the port, before the event loop runs.
    // To a line that takes nothing Qt would report a lost device.
    if (TakesBytes(port_->handle())) {
        port_->flush();
    }
    const qint64 bits = static_cast<qint64>(bytes.size()) * BitsForByte;
    busyUntil_ = std::max(busyUntil_, clock_.nsecsElapsed()) + bits * NanosecondsInSecond / port_->baudRate();
}

void QtSerialPort::Line::OnReception() {
    news_.reception = true;
    Schedule();
}

void QtSerialPort::Line::OnError(QSerialPort::SerialPortError error) {
    if (!IsHarmless(error)) {
        CloseSoon();
    }
}

void QtSerialPort::Line::AskClearToSend() {
    const std::optional<ClearToSend> now = readClearToSend_(port_->handle());
    if (!now) {
        poll_.stop();
        CloseSoon();
        return;
    }
    if (now != clearToSend_) {
        clearToSend_ = now;
        news_.clearToSend = true;
        Schedule();
    }
}

// Not at once: this is called from within the port. The errors that follow the first are not heard.
void QtSerialPort::Line::CloseSoon() {
    QObject::disconnect(port_.get(), &QSerialPort::errorOccurred, &context_, nullptr);
    QMetaObject::invokeMethod(
        &context_,
        [this, opening = opening_] {
            if (opening == opening_) {
                Lose();
            }
        },
        Qt::QueuedConnection);
}

void QtSerialPort::Line::Lose() {
    const std::shared_ptr<Line> alive = shared_from_this();
    Close();
    onLost_();
}

void QtSerialPort::Line::Schedule() {
    if (scheduled_ || !news_.Any() || depth_ >= MostNestedCalls) {
        return;
    }
    scheduled_ = true;
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            scheduled_ = false;
            Deliver();
        },
        Qt::QueuedConnection);
}

void QtSerialPort::Line::Deliver() {
    if (!port_) {
        return;
    }
    const std::shared_ptr<Line> alive = shared_from_this();
    const Nesting nesting(*this);
    const News told = std::exchange(news_, {});
    const std::int64_t opening = opening_;
    const std::int64_t taken = taken_;
    if (told.reception && threshold_ > 0 && Waiting() >= threshold_) {
        Tell(ReceptionEvent);
    }
    if (opening == opening_ && (told.clearToSend || (told.reception && !clearToSend_))) {
        Tell(ClearToSendEvent);
    }
    if (opening == opening_ && taken != taken_ && Waiting() > 0) {
        news_.reception = true;
    }
}

void QtSerialPort::Line::Tell(int event) {
    commEvent_ = event;
    onComm_();
}

QtSerialPort::QtSerialPort(QString programFolder, std::function<void()> OnComm, std::function<void()> OnLost,
                           ReadClearToSend readClearToSend)
    : programFolder_(std::move(programFolder)),
      line_(std::make_shared<Line>(std::move(OnComm), std::move(OnLost), std::move(readClearToSend))) {}

QtSerialPort::~QtSerialPort() { Close(); }

void QtSerialPort::RThreshold(int characters) { line_->Threshold(characters); }

void QtSerialPort::PortOpen(bool open) {
    if (open) {
        Open();
    } else {
        Close();
    }
}

void QtSerialPort::Close() {
    line_->Drain();
    line_->Close();
}

void QtSerialPort::Open() {
    const QString device = PortDevice(programFolder_, number_);
    if (line_->IsOpen()) {
        throw Refusal(number_, device, QStringLiteral("it is open already"));
    }
    if (device.isEmpty()) {
        throw Refusal(number_, device, QStringLiteral("there is no such device"));
    }
    if (handshaking_ != NoHandshaking || inputMode_ != TextMode) {
        throw Refusal(number_, device, QStringLiteral("this handshaking or input mode cannot be had"));
    }
    const SerialSettings settings = ReadSerialSettings(settings_);
    // Qt heeds no lock file but those of its own kind.
    if (IsLockedByAnother(device, UsualLockFolders())) {
        throw Refusal(number_, device, QStringLiteral("another program has locked it"));
    }
    const ExclusiveClaim claim(device);
    if (claim.Claimed()) {
        throw Refusal(number_, device, QStringLiteral("another program has it"));
    }
    auto port = std::make_unique<QSerialPort>();
    port->setPortName(device);
    if (!Configure(*port, settings)) {
        throw Refusal(number_, device, QStringLiteral("these settings cannot be had"));
    }
    if (!port->open(QIODevice::ReadWrite)) {
        throw Refusal(number_, device, port->errorString());
    }
    line_->Take(std::move(port));
}

bool QtSerialPort::PortOpen() const { return line_->IsOpen(); }

int QtSerialPort::InBufferCount() const { return line_->Waiting(); }

std::string QtSerialPort::Input() { return line_->Read(inputLength_); }

void QtSerialPort::Output(std::string_view bytes) { line_->Write(bytes); }

int QtSerialPort::CommEvent() const { return line_->CommEvent(); }

QtSerialPorts::QtSerialPorts(QString programFolder, ReadClearToSend readClearToSend)
    : programFolder_(std::move(programFolder)), readClearToSend_(std::move(readClearToSend)) {}

std::unique_ptr<SerialPort> QtSerialPorts::Create(std::function<void()> OnComm,
                                                  std::function<void()> OnLost) {
    return std::make_unique<QtSerialPort>(programFolder_, std::move(OnComm), std::move(OnLost),
                                          readClearToSend_);
}

}  // namespace travo::platform::qt
