// A megabyte of the mirror controller's status lines through the link, beside std::getline and
// std::from_chars on the same bytes. The goal is at most three times their time.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/state/FailureHandler.h"
#include "devices/links/clsMirror.h"
#include "support/FakeMachine.h"

namespace travo::bench {
namespace {

// What the lines said, so that both sides can be seen to have read all of it.
struct Reading {
    std::int64_t lines = 0;
    std::int64_t weighted = 0;  // of every value, by the place of its line

    void Take(std::int32_t x, std::int32_t y, std::int32_t motor, std::int32_t magnification) {
        ++lines;
        weighted += (lines % 1000) * (x + 3 * std::int64_t{y} + 5 * motor + 7 * magnification);
    }
    bool operator==(const Reading&) const = default;
};

// A megabyte in which no line equals the one before it, as while the mirror travels.
std::string StatusLines() {
    std::string text;
    for (int line = 0; text.size() < 1000000; ++line) {
        text += "sSAA" + std::to_string(line % 361 - 180) + "," + std::to_string((line * 7) % 361 - 180) +
                ",0," + std::to_string(line % 2) + "," + std::to_string(line % 3 + 1) + ",0,0,0\r\n";
    }
    return text;
}

class Receiver : public clsMirror::Receiver {
public:
    void ReceiveMirrorXData(std::int32_t) override {}
    void ReceiveMirrorYData(std::int32_t) override {}
    void ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) override {
        x_ = PositionX;
        y_ = PositionY;
    }
    void ReceiveMagnificationData(std::int16_t Magnification) override { magnification_ = Magnification; }
    // The last of the three that a status line brings.
    void ReceiveMotorData(std::int16_t ONOFF) override { reading.Take(x_, y_, ONOFF, magnification_); }
    void MotorErgoConnect(std::string_view) override {}
    void PortLost(Instrument) override {}
    void LineDropped(Instrument) override {}

    Reading reading;

private:
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
    std::int32_t magnification_ = 0;
};

// The link on a port that hands over so many bytes at a time.
Reading OfLink(const std::string& text, std::size_t pieceSize) {
    test::FakeMachine machine;
    clsDebugLog log(machine.clock);
    FailureHandler failures(log, machine.boxes);
    Receiver receiver;
    clsMirror link(machine.serialPorts, failures, receiver);
    const std::string_view all = text;
    for (std::size_t place = 0; place < all.size(); place += pieceSize) {
        machine.serialPorts.created.front()->Receive(all.substr(place, pieceSize));
    }
    return receiver.reading;
}

Reading OfPeer(const std::string& text) {
    Reading reading;
    std::istringstream stream(text);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.size() < 5 || line.compare(0, 4, "sSAA") != 0) {
            continue;
        }
        std::array<std::int32_t, 8> field{};
        const char* place = line.data() + 4;
        const char* const end = line.data() + line.size();
        for (std::int32_t& value : field) {
            const auto [stop, error] = std::from_chars(place, end, value);
            if (error != std::errc() || stop == end) {
                break;
            }
            place = stop + 1;  // over the comma, or the CR behind the last
        }
        reading.Take(field[0], field[1], field[3], field[4]);
    }
    return reading;
}

void RequireEqual() {
    const std::string text = StatusLines();
    const Reading peer = OfPeer(text);
    if (peer.lines < 10000 || OfLink(text, text.size()) != peer || OfLink(text, 64) != peer) {
        std::fprintf(stderr, "The link and its peer read different values.\n");
        std::exit(1);
    }
}

void Link(benchmark::State& state) {
    const std::string text = StatusLines();
    const auto pieceSize = state.range(0) == 0 ? text.size() : static_cast<std::size_t>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(OfLink(text, pieceSize));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Peer(benchmark::State& state) {
    const std::string text = StatusLines();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(OfPeer(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK(Link)->Name("clsMirror, 1 MB at once")->Arg(0);
BENCHMARK(Link)->Name("clsMirror, 64 bytes at a time")->Arg(64);
BENCHMARK(Link)->Name("clsMirror, 1 byte at a time")->Arg(1);
BENCHMARK(Peer)->Name("std::getline and std::from_chars");

}  // namespace
}  // namespace travo::bench

int main(int argumentCount, char** arguments) {
    travo::bench::RequireEqual();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
