// One whole reading of the workbench's window: 22 lines, every 40 ms while anything moves; and the longest of
// them, alone. The physical limit beside it: no reading may hold the wires up for longer than 5 ms, in
// which 4.8 bytes pass at 9600 baud.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "workbench/commands/Bench.h"

namespace workbench {
namespace {

constexpr std::array<const char*, 22> Reading = {
    "camera state", "world tip 1",     "world tip 2",   "world tip 3",  "world tip 4",   "world counts 1",
    "world moving", "world crossings", "world landing", "mirror state", "magnification", "focus state",
    "gauge state",  "gauge keys",      "wire list",     "fault list",   "fault left",    "hardware selected",
    "counters",     "traffic 0",       "world view",    "world clock"};

// A bench after hours: 200 crossings kept, 4000 records of traffic, three ports open, needles that drift.
class BusyBench {
public:
    BusyBench() {
        for (Wire& wire : bench_.instruments.wires) {
            wire.SetOpen(true, now_);
        }
        Say("needle drift 1 30 -20 1");
        Say("needle backlash 2 10 10 10");
        for (int round = 0; round < 300; ++round) {
            Say("world move 1 " + std::to_string(round % 2 == 0 ? 12900 : 9500) + " 12500 12500");
            Say("world move 2 12900 12500 12500");
            Pass(std::chrono::seconds(2));
        }
        for (int record = 0; record < 5000; ++record) {
            bench_.instruments.WireOf(WireName::Mirror).Receive("rD2R\r", now_);
            Pass(std::chrono::milliseconds(10));
            bench_.instruments.WireOf(WireName::Mirror).Transmit(now_);
        }
    }

    std::string Say(const std::string& line) {
        const std::string answer = bench_.commands.Answer(line, now_);
        if (answer.starts_with("error")) {
            std::fprintf(stderr, "%s: %s\n", line.c_str(), answer.c_str());
            std::exit(1);
        }
        return answer;
    }
    void Pass(Time time) { now_ += time; }

private:
    Bench bench_;
    Time now_{0};
};

void OneReading(benchmark::State& state) {
    BusyBench bench;
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        bench.Pass(std::chrono::milliseconds(40));
        for (const char* line : Reading) {
            bytes += static_cast<std::int64_t>(bench.Say(line).size());
        }
    }
    state.SetBytesProcessed(bytes);
}

// While all four needles run, which is when the world has most to look at.
void OneReadingOnTheWay(benchmark::State& state) {
    BusyBench bench;
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        bench.Pass(std::chrono::milliseconds(40));
        for (int needle = 1; needle <= 4; ++needle) {
            bench.Say("world move " + std::to_string(needle) +
                      (++round % 8 < 4 ? " 12600 12550 12400" : " 12000 12450 12600"));
        }
        for (const char* line : Reading) {
            benchmark::DoNotOptimize(bench.Say(line));
        }
    }
}

void OneLine(benchmark::State& state, const char* line) {
    BusyBench bench;
    for ([[maybe_unused]] auto _ : state) {
        bench.Pass(std::chrono::milliseconds(40));
        benchmark::DoNotOptimize(bench.Say(line));
    }
}

BENCHMARK(OneReading)->Name("22 lines, at rest")->Unit(benchmark::kMicrosecond);
BENCHMARK(OneReadingOnTheWay)->Name("22 lines, four needles on the way")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OneLine, crossings, "world crossings")
    ->Name("world crossings, 200 of them")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OneLine, traffic, "traffic 0")->Name("traffic, 40 records")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OneLine, camera, "camera state")->Name("camera state")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace workbench

BENCHMARK_MAIN();
