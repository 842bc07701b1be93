// Serial ports on Qt's.
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/SerialPort.h"
#include "platform/qt/SerialLine.h"

namespace travo::platform::qt {

// Qt reports a reception once and not again from an event loop that runs inside that report. So
// the report only queues a call, and that call is what becomes OnComm: bytes that come while a
// message box of the port's owner is up are told during it. Calls inside calls are bounded; beyond
// that bytes wait in the port and are told on the way out.
//
// On a line without modem signals each reception counts as a change of Clear To Send as well, told
// behind it. With them the line is asked every 10 ms.
//
// Bytes that OnComm leaves in the port are told again with the next reception, and at once only
// where OnComm took some of them: an owner that wants none is not called over and over.
class QtSerialPort : public SerialPort {
public:
    static constexpr int MostNestedCalls = 16;
    // Input beyond this stays with the system, and lost is what the system cannot hold.
    static constexpr std::int64_t MostUnreadBytes = 1024 * 1024;
    // An output that would take the unsent bytes beyond this is dropped, whole.
    static constexpr std::size_t MostUnsentBytes = 64 * 1024;

    QtSerialPort(QString programFolder, std::function<void()> OnComm, std::function<void()> OnLost,
                 ReadClearToSend readClearToSend);
    // Closes the port; allowed inside OnComm.
    ~QtSerialPort() override;
    QtSerialPort(const QtSerialPort&) = delete;
    QtSerialPort& operator=(const QtSerialPort&) = delete;

    void CommPort(std::int16_t number) override { number_ = number; }
    void Settings(std::string_view settings) override { settings_ = settings; }
    // No handshaking and text mode are all that can be had.
    void Handshaking(int handshaking) override { handshaking_ = handshaking; }
    void InputLen(int length) override { inputLength_ = length; }
    void InputMode(int mode) override { inputMode_ = mode; }
    void RThreshold(int characters) override;

    void PortOpen(bool open) override;
    bool PortOpen() const override;
    int InBufferCount() const override;
    std::string Input() override;
    void Output(std::string_view bytes) override;
    int CommEvent() const override;

private:
    class Line;

    void Open();
    void Close();

    QString programFolder_;
    std::int16_t number_ = 1;
    std::string settings_ = "9600,N,8,1";
    int handshaking_ = NoHandshaking;
    int inputLength_ = 0;
    int inputMode_ = TextMode;
    // Shared with the calls of OnComm that are under way, which may outlive the port.
    std::shared_ptr<Line> line_;
};

class QtSerialPorts : public SerialPorts {
public:
    // The program folder holds the folder ports. The last argument is for lines that a test makes up.
    explicit QtSerialPorts(QString programFolder, ReadClearToSend readClearToSend = ClearToSendOf);
    std::unique_ptr<SerialPort> Create(std::function<void()> OnComm, std::function<void()> OnLost) override;

private:
    QString programFolder_;
    ReadClearToSend readClearToSend_;
};

}  // namespace travo::platform::qt
