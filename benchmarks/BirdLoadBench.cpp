// The largest still that is taken, 64 million pixels of 32 bits: loaded, shifted and put through both bars,
// beside Qt's reading of the whole file. The goals are 300 ms for each and 150 MB in all.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "Pairs.h"
#include "experiment/bird/FormBirdViewStill.h"

namespace travo::bench {
namespace {

constexpr QSize Largest(8000, 8000);
constexpr BirdShift Middle{0, 0};
constexpr BirdShift Aside{0.31, -0.22};
constexpr double GoalMicroseconds = 300'000;
constexpr double GoalMegabytes = 150;

struct StillOnDisk {
    StillOnDisk() {
        QByteArray head("BM");
        head.resize(54, '\0');
        const auto put = [&](qsizetype place, auto value) { qToLittleEndian(value, head.data() + place); };
        put(10, std::uint32_t{54});
        put(14, std::uint32_t{40});
        put(18, static_cast<std::int32_t>(Largest.width()));
        put(22, static_cast<std::int32_t>(Largest.height()));
        put(26, std::uint16_t{1});
        put(28, std::uint16_t{32});
        QFile file(path);
        bool isWritten = file.open(QIODevice::WriteOnly) && file.write(head) == head.size();
        std::mt19937 random(6);
        QByteArray row(4 * Largest.width(), '\0');
        for (int y = 0; y < Largest.height() && isWritten; ++y) {
            for (qsizetype place = 0; place < row.size(); place += 4) {
                qToLittleEndian(static_cast<std::uint32_t>(random()), row.data() + place);
            }
            isWritten = file.write(row) == row.size();
        }
        if (!isWritten) {
            std::fprintf(stderr, "There is no room for a still of 256 MB.\n");
            std::exit(1);
        }
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("BirdView.bmp"));
};

StillOnDisk& Still() {
    static StillOnDisk still;
    return still;
}

QImage ByQt() {
    QImageReader::setAllocationLimit(300);
    return QImage(Still().path).convertToFormat(QImage::Format_RGB32);
}

long StatusKilobytes(const char* name) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(name, 0) == 0) {
            return std::atol(line.c_str() + std::char_traits<char>::length(name));
        }
    }
    return 0;
}

// Ends the program where a part of the still differs from what Qt reads there.
void Compare() {
    const QImage whole = ByQt();
    FormBirdViewStill still;
    still.Load(Still().path, Middle);
    for (const BirdShift& shift : {Middle, Aside, BirdShift{0.5, 0.5}, BirdShift{-0.5, -0.5}}) {
        const QRect seen = SeenOnCanvas(Largest, shift);
        if (still.Part(shift).picture != whole.copy(seen)) {
            std::fprintf(stderr, "The still differs from Qt's.\n");
            std::exit(1);
        }
    }
}

void LoadLargest(benchmark::State& state) {
    std::vector<double> ours;
    std::vector<double> peers;
    FormBirdViewStill still;
    std::ofstream("/proc/self/clear_refs") << "5" << std::flush;
    const long before = StatusKilobytes("VmHWM:");
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(Microseconds([&] { still.Load(Still().path, Middle); }));
    }
    state.counters["peak_MB"] = static_cast<double>(StatusKilobytes("VmHWM:") - before) / 1000;
    state.counters["goal_MB"] = GoalMegabytes;
    for (int i = 0; i < 3; ++i) {
        peers.push_back(Microseconds([] { benchmark::DoNotOptimize(ByQt()); }));
    }
    state.counters["ours_us"] = Median(ours);
    state.counters["qt_us"] = Median(peers);
    state.counters["goal_us"] = GoalMicroseconds;
}

void ShiftLargest(benchmark::State& state) {
    FormBirdViewStill still;
    still.Load(Still().path, Middle);
    bool isAside = false;
    for ([[maybe_unused]] auto _ : state) {
        isAside = !isAside;
        benchmark::DoNotOptimize(still.Part(isAside ? Aside : Middle).picture.constBits());
    }
    state.counters["goal_us"] = GoalMicroseconds;
}

void ProcessLargest(benchmark::State& state) {
    FormBirdViewStill still;
    still.Load(Still().path, Middle);
    std::int32_t brightness = 0;
    for ([[maybe_unused]] auto _ : state) {
        still.Process(++brightness % 200, 41);
    }
    state.counters["goal_us"] = GoalMicroseconds;
}

BENCHMARK(LoadLargest)->Name("Load of 64 million pixels")->Unit(benchmark::kMicrosecond);
BENCHMARK(ShiftLargest)->Name("Its shift")->Unit(benchmark::kMicrosecond);
BENCHMARK(ProcessLargest)->Name("Its contrast and brightness")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace travo::bench

int main(int argumentCount, char** arguments) {
    travo::bench::Compare();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
