// Both maps of a needle, all three axes each way, beside a 3 by 3 product of Eigen with the same
// conversion and the same range tests. The goal is at most 1.05 of its time and no allocation.
#include <benchmark/benchmark.h>

#include <Eigen/Core>
#include <Eigen/LU>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "CalibratedNeedles.h"

namespace {

long allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace travo::bench {
namespace {

constexpr std::size_t Places = 1024;

// A needle's maps as Eigen states them, with the change of sign folded into the matrices.
struct EigenMap {
    Eigen::Matrix3d forward;
    Eigen::Matrix3d backward;
    Eigen::Vector3d center;
    PositionXYZ zero;

    static EigenMap Of(const CalibrationMap& map) {
        EigenMap eigen;
        const std::array columns{&map.CalibAxisX, &map.CalibAxisY, &map.CalibAxisZ};
        for (Eigen::Index axis = 0; axis < 3; ++axis) {
            const auto row = static_cast<std::size_t>(axis);
            for (Eigen::Index k = 0; k < 3; ++k) {
                eigen.forward(axis, k) = columns[static_cast<std::size_t>(k)]->Unit[row];
            }
            eigen.center(axis) = map.ManiCenter[row];
        }
        eigen.backward = eigen.forward.inverse();
        if (!map.ManiDirect) {
            eigen.forward.row(0) *= -1.0;
            eigen.backward.col(0) *= -1.0;
        }
        eigen.zero = map.PosZero();
        return eigen;
    }

    PositionXYZ ToCommon(const PositionXYZ& p) const {
        const Eigen::Vector3d difference = Eigen::Vector3d(p[0], p[1], p[2]) - center;
        const Eigen::Vector3d common = forward * difference + Eigen::Vector3d(zero[0], zero[1], zero[2]);
        return {convert(common[0]), convert(common[1]), convert(common[2])};
    }

    PositionXYZ ToManipulator(const PositionXYZ& p) const {
        const Eigen::Vector3d difference(Difference(p[0], zero[0]), Difference(p[1], zero[1]),
                                         Difference(p[2], zero[2]));
        const Eigen::Vector3d manipulator = backward * difference + center;
        return {convert(manipulator[0]), convert(manipulator[1]), convert(manipulator[2])};
    }
};

struct ThereAndBack {
    PositionXYZ common;
    PositionXYZ manipulator;
    bool operator==(const ThereAndBack&) const = default;
};

// The needle to map, where it stands, and where it is to go.
struct Task {
    std::int32_t needle;
    PositionXYZ manipulator;
    PositionXYZ common;
};

class Maps {
public:
    Maps() {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            eigen_[static_cast<std::size_t>(needle)] = EigenMap::Of(CoefficientsOf(needle));
        }
        for (std::size_t place = 0; place < Places; ++place) {
            const auto needle = static_cast<std::int32_t>(place % NeedleCount);
            tasks_.push_back({needle, needles_.InManipulatorRange(), needles_.InField(needle, 5000)});
        }
    }

    ThereAndBack Ours(const Task& task) const {
        const clsNeedleMove& needles = needles_.needles;
        return {{needles.Calibration(task.needle, 0, task.manipulator),
                 needles.Calibration(task.needle, 1, task.manipulator),
                 needles.Calibration(task.needle, 2, task.manipulator)},
                {needles.InverseCalibration(task.needle, 0, task.common),
                 needles.InverseCalibration(task.needle, 1, task.common),
                 needles.InverseCalibration(task.needle, 2, task.common)}};
    }

    ThereAndBack Eigens(const Task& task) const {
        const EigenMap& map = eigen_[static_cast<std::size_t>(task.needle)];
        return {map.ToCommon(task.manipulator), map.ToManipulator(task.common)};
    }

    void AllOurs() const {
        for (const Task& task : tasks_) {
            benchmark::DoNotOptimize(Ours(task));
        }
    }

    void AllEigens() const {
        for (const Task& task : tasks_) {
            benchmark::DoNotOptimize(Eigens(task));
        }
    }

    // Ends the program where a result differs.
    void Compare() const {
        for (const Task& task : tasks_) {
            if (!(Ours(task) == Eigens(task))) {
                std::fprintf(stderr, "The maps of needle %d differ from Eigen's.\n", task.needle);
                std::abort();
            }
        }
    }

private:
    // The same calibration once more, since the coefficients are the needle's own affair.
    CalibrationMap CoefficientsOf(std::int32_t needle) const {
        CalibrationMap::Points points{};
        CalibrationMap map;
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            const auto column = static_cast<std::size_t>(axis);
            for (std::size_t point = 0; point < points.size(); ++point) {
                points[point][column] = needles_.needles.ManipulatorCalibrationPosXYZ(
                    needle, axis, static_cast<std::int32_t>(point));
            }
            map.PosZero(column, needles_.needles.PosZero(needle, axis));
        }
        map.Calculate(points);
        return map;
    }

    CalibratedNeedles needles_{1};
    std::array<EigenMap, NeedleCount> eigen_;
    std::vector<Task> tasks_;
};

const Maps& TheMaps() {
    static const Maps maps;
    return maps;
}

void PerItem(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Places));
}

void BothMapsOurs(benchmark::State& state) {
    const Maps& maps = TheMaps();
    const long before = allocations;
    for ([[maybe_unused]] auto _ : state) {
        maps.AllOurs();
    }
    state.counters["allocations"] = static_cast<double>(allocations - before);
    PerItem(state);
}

void BothMapsEigen(benchmark::State& state) {
    const Maps& maps = TheMaps();
    for ([[maybe_unused]] auto _ : state) {
        maps.AllEigens();
    }
    PerItem(state);
}

// The two in turn, so that a change of the processor's speed meets both alike.
void BothMapsOursAgainstEigen(benchmark::State& state) {
    const Maps& maps = TheMaps();
    std::vector<double> ours;
    std::vector<double> eigen;
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(NanosecondsEach(Places, [&] { maps.AllOurs(); }));
        eigen.push_back(NanosecondsEach(Places, [&] { maps.AllEigens(); }));
    }
    state.counters["ours_ns"] = Median(ours);
    state.counters["eigen_ns"] = Median(eigen);
    state.counters["ratio"] = MedianRatio(ours, eigen);
}

BENCHMARK(BothMapsOurs);
BENCHMARK(BothMapsEigen);
BENCHMARK(BothMapsOursAgainstEigen);

}  // namespace
}  // namespace travo::bench

int main(int argc, char** argv) {
    travo::bench::TheMaps().Compare();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
