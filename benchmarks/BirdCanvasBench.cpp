// One composition of the bird's-eye view, with all that it can show, beside a plain copy of its canvas.
// The goal is at most twice the copy's time. Then its canvas at the window's size, beside Qt's own
// smooth scaling.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "Pairs.h"
#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdScaler.h"

namespace travo::bench {
namespace {

QImage Still(int width, int height) {
    QImage still(width, height, QImage::Format_RGB32);
    std::mt19937 random(5);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(still.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = 0xFF000000U | (random() % 256) * 0x010101U;
        }
    }
    return still;
}

BirdScene FullScene() {
    BirdScene scene;
    scene.chkMirror = true;
    scene.intBirdMagnification = 2;
    scene.view = ViewPlace({20, 30, 0}, 2);
    scene.intTotalManipulatorNumber = NeedleCount - 1;
    const PositionXYZ roots[] = {{-9000, -7000, 0}, {9000, -6500, 0}, {-8000, 9500, 0}, {300, 12000, 0}};
    for (std::int32_t i = 0; i < NeedleCount; ++i) {
        const auto needle = static_cast<std::size_t>(i);
        scene.needles[needle] = NeedlePlace({-150 + 100 * i, 80 - 60 * i, i - 1}, {0, 0, 0}, roots[needle]);
    }
    for (std::int32_t i = 0; i < CellCount; ++i) {
        scene.cells[static_cast<std::size_t>(i)] = CellPlace({100 - 40 * i, 10 * i - 30, 0});
    }
    return scene;
}

struct Pictures {
    BirdCanvas canvas{QStringLiteral(SKIN_HOME)};
    BirdScene scene = FullScene();
    QImage still = Still(640, 480);
    QImage composed = canvas.Compose(still, scene).copy();
    QImage copied = QImage(composed.size(), QImage::Format_RGB32);

    void Compose() { benchmark::DoNotOptimize(canvas.Compose(still, scene).constBits()); }
    // With a still that has been written to, so that the ground is drawn anew.
    void ComposeAnew() {
        benchmark::DoNotOptimize(still.bits());
        Compose();
    }
    void Copy() {
        std::memcpy(copied.bits(), composed.constBits(), static_cast<std::size_t>(composed.sizeInBytes()));
        benchmark::ClobberMemory();
    }
};

// Ends the program where a still as large as the canvas, with nothing on it, does not come out as its copy,
// or a marker is missing.
void Compare() {
    BirdCanvas canvas(QStringLiteral(SKIN_HOME));
    const QImage still = Still(CanvasSize, CanvasSize);
    const bool isCopied = canvas.Compose(still, BirdScene()) == still;
    const BirdMarkers markers(QStringLiteral(SKIN_HOME));
    if (!isCopied || markers.Needle(11).mask.isNull() || markers.Cell(15).mask.isNull() ||
        markers.View(2).mask.isNull()) {
        std::fprintf(stderr, "The composition differs from the copy, or has no markers.\n");
        std::exit(1);
    }
}

void Compose(benchmark::State& state) {
    Pictures pictures;
    for ([[maybe_unused]] auto _ : state) {
        pictures.Compose();
    }
}

void Copy(benchmark::State& state) {
    Pictures pictures;
    for ([[maybe_unused]] auto _ : state) {
        pictures.Copy();
    }
}

void AgainstCopy(benchmark::State& state, void (Pictures::*compose)()) {
    Pictures pictures;
    std::vector<double> ours;
    std::vector<double> copies;
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(Microseconds([&] { (pictures.*compose)(); }));
        copies.push_back(Microseconds([&] { pictures.Copy(); }));
    }
    state.counters["ours_us"] = Median(ours);
    state.counters["copy_us"] = Median(copies);
    state.counters["ratio"] = MedianRatio(ours, copies);
}

// To the size of the window on a screen of scale 1, and of 1.5.
void Scale(benchmark::State& state) {
    const Pictures pictures;
    const auto side = static_cast<int>(state.range(0));
    QImage target(side, side, QImage::Format_RGB32);
    BirdScaler scaler;
    for ([[maybe_unused]] auto _ : state) {
        scaler.Scale(pictures.composed, target);
        benchmark::ClobberMemory();
    }
}

void ScaleByQt(benchmark::State& state) {
    const Pictures pictures;
    const auto side = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(
            pictures.composed.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
}

BENCHMARK(Compose)->Name("BirdCanvas::Compose")->Unit(benchmark::kMicrosecond);
BENCHMARK(Copy)->Name("Copy of the canvas")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(AgainstCopy, OnTheSameStill, &Pictures::Compose)->Unit(benchmark::kMicrosecond);
// After a change of still, bars or shift.
BENCHMARK_CAPTURE(AgainstCopy, OnAnotherStill, &Pictures::ComposeAnew)->Unit(benchmark::kMicrosecond);
BENCHMARK(Scale)->Name("BirdScaler")->Arg(378)->Arg(567)->Unit(benchmark::kMicrosecond);
BENCHMARK(ScaleByQt)->Name("QImage::scaled, smooth")->Arg(378)->Arg(567)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace travo::bench

int main(int argumentCount, char** arguments) {
    travo::bench::Compare();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
