// The position of a needle through the driver's library, over a pseudo-terminal, beside a bare write and read
// of the same bytes on the same terminal. Both in turn, so that a change of the processor's speed meets both
// alike.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "Pairs.h"
#include "drivers/gcode/Files.h"
#include "drivers/gcode/Log.h"
#include "drivers/gcode/Needle.h"
#include "drivers/gcode/SerialPort.h"
#include "drivers/gcode/Settings.h"

namespace gcode::bench {
namespace {

using travo::bench::Median;
using travo::bench::MedianRatio;

constexpr int Pairs = 5000;
constexpr char Question = '?';
const std::string Report = "<Idle|MPos:-15.500,-14.500,-13.500|Bf:15,128|FS:0,0>\r\n";

// A grbl that answers at once, on a thread of its own as it is a box of its own.
class Box {
public:
    Box() {
        near_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        std::array<char, 128> name{};
        grantpt(near_);
        unlockpt(near_);
        ptsname_r(near_, name.data(), name.size());
        device = name.data();
        held_ = open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings{};
        tcgetattr(held_, &settings);
        cfmakeraw(&settings);
        tcsetattr(held_, TCSANOW, &settings);
        thread_ = std::thread([this] { Serve(); });
    }
    ~Box() {
        isOver_ = true;
        thread_.join();
        close(held_);
        close(near_);
    }
    Box(const Box&) = delete;
    Box& operator=(const Box&) = delete;

    std::string device;

private:
    void Say(const std::string& text) {
        [[maybe_unused]] const ssize_t sent = write(near_, text.data(), text.size());
    }
    void Serve() {
        std::string line;
        while (!isOver_) {
            pollfd state{near_, POLLIN, 0};
            std::array<char, 256> block{};
            const ssize_t count = poll(&state, 1, 50) > 0 ? read(near_, block.data(), block.size()) : 0;
            for (ssize_t index = 0; index < count; ++index) {
                const char byte = block[static_cast<std::size_t>(index)];
                if (byte == Question) {
                    Say(Report);
                } else if (byte != '\n') {
                    line += byte;
                } else {
                    Say(line == "$$"
                            ? "$13=0\r\n$20=0\r\n$22=1\r\n$110=480\r\n$111=480\r\n$112=480\r\n$120=200\r\n"
                              "$121=200\r\n$122=200\r\nok\r\n"
                            : "[VER:1.1h:]\r\nok\r\n");
                    line.clear();
                }
            }
        }
    }

    int near_ = -1;
    int held_ = -1;
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

bool ReadBare(int terminal) {
    std::string text;
    std::array<char, 256> block{};
    if (write(terminal, &Question, 1) != 1) {
        return false;
    }
    while (text.size() < Report.size()) {
        pollfd state{terminal, POLLIN, 0};
        const ssize_t count = poll(&state, 1, 1000) > 0 ? read(terminal, block.data(), block.size()) : 0;
        if (count <= 0) {
            return false;
        }
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text == Report;
}

NeedleSettings SettingsOf(const std::string& device) {
    return *ReadSettings(
                "[needle 1]\nport = " + device +
                "\ndialect = grbl\ncounts-per-mm = 1000\nx = +X\ny = +Y\nz = +Z\nzero = -25, -25, -25\n")
                .needles[0];
}

void PositionBesideABareExchange(benchmark::State& state) {
    const Box box;
    const Log log("");
    Trust trust("/nonexistent/state");
    SerialPorts ports;
    Needle needle(SettingsOf(box.device), trust, log);
    if (!needle.Open(ports) || needle.Connect(needle.Now() + std::chrono::seconds(2),
                                              needle.Now() + std::chrono::seconds(2)) != Status::Done) {
        state.SkipWithError("no needle");
        return;
    }
    // The driver's claim keeps others out; the bare exchange has a terminal of its own.
    const Box other;
    const int bare = open(other.device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::vector<double> ours;
    std::vector<double> bares;
    for ([[maybe_unused]] auto _ : state) {
        for (int pair = 0; pair < Pairs; ++pair) {
            Counts counts{};
            Status status{};
            bool isRead = false;
            // Each is first as often as the other: what has just run has the processor's favour.
            for (const bool isOurs : {pair % 2 == 0, pair % 2 != 0}) {
                if (isOurs) {
                    ours.push_back(travo::bench::Microseconds([&] { status = needle.Position(counts); }));
                } else {
                    bares.push_back(travo::bench::Microseconds([&] { isRead = ReadBare(bare); }));
                }
            }
            if (status != Status::Done || counts != Counts{9500, 10500, 11500} || !isRead) {
                state.SkipWithError("another position, or none");
                break;
            }
        }
    }
    close(bare);
    state.counters["position_us"] = Median(ours);
    state.counters["bare_us"] = Median(bares);
    state.counters["ratio"] = MedianRatio(ours, bares);
}

BENCHMARK(PositionBesideABareExchange)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gcode::bench

BENCHMARK_MAIN();
