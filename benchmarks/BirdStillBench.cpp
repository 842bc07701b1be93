// Contrast and brightness of a still of 640 by 480 pixels, beside OpenCV's look-up table on the same
// picture of four channels. The goal is not to be slower. The still is grey, as the camera's are: then one
// table to a channel gives what we make from the red channel alone. The peer's tables are ready before it
// is timed; ours is part of the call.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <opencv2/core.hpp>
#include <random>
#include <vector>

#include "Pairs.h"
#include "experiment/bird/BirdStill.h"

namespace travo::bench {
namespace {

constexpr int Width = 640;
constexpr int Height = 480;
constexpr std::int32_t Brightness = 23;
constexpr std::int32_t Contrast = 41;

PixelBuffer GreyStill() {
    PixelBuffer still(Width - 1, Height - 1);
    std::mt19937 random(4);
    for (std::uint32_t& pixel : still.Pixels()) {
        pixel = 0xFF000000U | (random() % 256) * 0x010101U;
    }
    return still;
}

// The three colours' table by the formula; the fourth channel as it is.
cv::Mat Tables(std::int32_t brightness, std::int32_t contrast) {
    const double k = std::tan((contrast + 256) / 512.0 * 3.14159265358979 / 2);
    cv::Mat tables(1, 256, CV_8UC4);
    for (int value = 0; value < 256; ++value) {
        const double bright = std::rint(std::rint((value - 128) * k + 128) + brightness);
        const auto grey = static_cast<unsigned char>(std::min(std::max(bright, 0.0), 255.0));
        tables.at<cv::Vec4b>(0, value) = cv::Vec4b(grey, grey, grey, static_cast<unsigned char>(value));
    }
    return tables;
}

struct Stills {
    PixelBuffer raw = GreyStill();
    PixelBuffer display = raw;
    cv::Mat peerRaw{Height, Width, CV_8UC4, raw.Pixels().data()};
    cv::Mat peerDisplay{Height, Width, CV_8UC4};
    cv::Mat tables = Tables(Brightness, Contrast);

    void Ours() {
        ContrastAndBrightness(raw, display, Brightness, Contrast);
        benchmark::ClobberMemory();
    }
    void Peers() {
        cv::LUT(peerRaw, tables, peerDisplay);
        benchmark::ClobberMemory();
    }
};

// Ends the program where a byte differs.
void Compare() {
    Stills stills;
    for (const std::int32_t contrast : {-256, -100, -1, 0, 1, 41, 200, 255, 256}) {
        for (const std::int32_t brightness : {-255, -23, 0, 23, 255}) {
            ContrastAndBrightness(stills.raw, stills.display, brightness, contrast);
            cv::LUT(stills.peerRaw, Tables(brightness, contrast), stills.peerDisplay);
            const auto* const peers = stills.peerDisplay.ptr<std::uint32_t>();
            const auto ours = stills.display.Pixels();
            if (!std::equal(ours.begin(), ours.end(), peers)) {
                std::fprintf(stderr, "The still differs from OpenCV's at contrast %d, brightness %d.\n",
                             contrast, brightness);
                std::exit(1);
            }
        }
    }
}

void Ours(benchmark::State& state) {
    Stills stills;
    for ([[maybe_unused]] auto _ : state) {
        stills.Ours();
    }
}

// OpenCV takes as many threads as there are processors unless told otherwise: 0 leaves it at that.
void Peer(benchmark::State& state) {
    cv::setNumThreads(state.range(0) == 0 ? -1 : 1);
    Stills stills;
    for ([[maybe_unused]] auto _ : state) {
        stills.Peers();
    }
}

void OursAgainstPeer(benchmark::State& state) {
    cv::setNumThreads(state.range(0) == 0 ? -1 : 1);
    Stills stills;
    std::vector<double> ours;
    std::vector<double> peers;
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(Microseconds([&] { stills.Ours(); }));
        peers.push_back(Microseconds([&] { stills.Peers(); }));
    }
    state.counters["ours_us"] = Median(ours);
    state.counters["lut_us"] = Median(peers);
    state.counters["ratio"] = MedianRatio(ours, peers);
}

BENCHMARK(Ours)->Name("ContrastAndBrightness")->Unit(benchmark::kMicrosecond);
BENCHMARK(Peer)->Name("cv::LUT, its own threads")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(Peer)->Name("cv::LUT, one thread")->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(OursAgainstPeer)->Name("In turn, its own threads")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(OursAgainstPeer)->Name("In turn, one thread")->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace travo::bench

int main(int argumentCount, char** arguments) {
    travo::bench::Compare();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
