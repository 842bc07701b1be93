// Serial ports whose other end is the test.
#pragma once

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/SerialPort.h"
#include "support/StandIns.h"

namespace travo::test {

class FakeSerialPort : public platform::SerialPort {
public:
    FakeSerialPort(std::function<void()> onComm, std::function<void()> onLost,
                   const std::set<std::int16_t>& missing, Journal& journal)
        : onComm_(std::move(onComm)), onLost_(std::move(onLost)), missing_(missing), journal_(journal) {}

    void CommPort(std::int16_t number) override { commPort = number; }
    void Settings(std::string_view value) override { settings = value; }
    void Handshaking(int value) override { handshaking = value; }
    void InputLen(int value) override { inputLen = value; }
    void InputMode(int value) override { inputMode = value; }
    void RThreshold(int value) override { rThreshold = value; }
    void PortOpen(bool value) override {
        journal_.push_back("port " + std::to_string(commPort) + (value ? " open" : " close"));
        if (value && missing_.contains(commPort)) {
            throw std::runtime_error("the port is missing");
        }
        if (!value && failClose) {
            throw std::runtime_error("the port cannot be closed");
        }
        open = value;
    }
    bool PortOpen() const override { return open; }
    int InBufferCount() const override { return static_cast<int>(buffer.size()); }
    std::string Input() override { return std::exchange(buffer, {}); }
    void Output(std::string_view bytes) override {
        journal_.push_back("port " + std::to_string(commPort) + " > " + std::string(bytes));
        output += bytes;
        if (failOutput) {
            throw std::runtime_error("the port cannot be written");
        }
    }
    int CommEvent() const override { return event; }

    // Bytes arrive and their event is told.
    void Receive(std::string_view bytes, int code = platform::ReceptionEvent) {
        buffer += bytes;
        Tell(code);
    }
    void Tell(int code) {
        event = code;
        onComm_();
    }
    // The cable is pulled: the port closes by itself.
    void Vanish() {
        open = false;
        onLost_();
    }
    // What has been sent since the last call.
    std::string TakeOutput() { return std::exchange(output, {}); }

    std::int16_t commPort = 0;
    std::string settings;
    int handshaking = 0;
    int inputLen = 0;
    int inputMode = 0;
    int rThreshold = 0;
    bool open = false;
    bool failClose = false;
    bool failOutput = false;
    std::string buffer;
    std::string output;
    int event = 0;

private:
    std::function<void()> onComm_;
    std::function<void()> onLost_;
    const std::set<std::int16_t>& missing_;
    Journal& journal_;
};

class FakeSerialPorts : public platform::SerialPorts {
public:
    explicit FakeSerialPorts(Journal& journal) : journal_(journal) {}
    std::unique_ptr<platform::SerialPort> Create(std::function<void()> OnComm,
                                                 std::function<void()> OnLost) override {
        auto port = std::make_unique<FakeSerialPort>(std::move(OnComm), std::move(OnLost), missing, journal_);
        created.push_back(port.get());
        return port;
    }

    std::vector<FakeSerialPort*> created;  // owned by the links
    std::set<std::int16_t> missing;        // numbers that do not open

private:
    Journal& journal_;
};

}  // namespace travo::test
