// One tick of the position loop on a driver that answers at once, without a window.
#include <benchmark/benchmark.h>

#include "core/owner/FormMainObjects.h"
#include "core/owner/PositionLoop.h"
#include "core/state/SharedState.h"
#include "platform/PrivateProfile.h"
#include "support/FakeMachine.h"
#include "support/InstrumentsListener.h"

namespace {

using namespace travo;
using namespace travo::test;

// A driver without a journal: what is measured is the loop.
class QuietDriver : public platform::ManipulatorDriver {
public:
    Position DriverGetPosition() override { return {1, {x_++ % 25000, 12000, 5000}}; }
    void DriverMoveTo(std::int32_t, std::int32_t, std::int32_t) override {}
    std::int32_t DriverSelect(std::int32_t) override { return 1; }
    std::int32_t DriverGetCount() override { return 4; }
    void DriverReconnect() override {}

private:
    std::int32_t x_ = 0;
};

class QuietDriverLibrary : public platform::ManipulatorDriverLibrary {
public:
    std::unique_ptr<platform::ManipulatorDriver> Create() override { return std::make_unique<QuietDriver>(); }
};

// No tick reads or writes a setting.
class NoProfile : public platform::PrivateProfile {
public:
    QString GetString(const QString&, const QString&, const QString& value, int, const QString&) override {
        return value;
    }
    std::int32_t GetInt(const QString&, const QString&, std::int32_t value, const QString&) override {
        return value;
    }
    Names GetSectionNames(int, const QString&) override { return {}; }
    Names GetKeyNames(const QString&, int, const QString&) override { return {}; }
    bool Write(const QString&, const std::optional<QString>&, const std::optional<QString>&,
               const QString&) override {
        return true;
    }
};

class Quiet : public SharedState::Listener, public PositionLoop::Listener, public LiveLink::Listener {
public:
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
    void TotalManipulatorNumber(std::int16_t) override {}
    void ManipulatorChange(std::int16_t) override {}
    void ChangeNeedleXYZ(std::int16_t, const PositionXYZ& root) override { benchmark::DoNotOptimize(root); }
    void ChangeZeroPosition() override {}
    void Live_BirdViewSave() override {}
    void Live_WindowHide() override {}
    void Live_WindowClose() override {}
    void LiveDied() override {}
    void ChangeCurrentXYZ(const PositionXYZ& view) override { benchmark::DoNotOptimize(view); }
};

void Calibrate(clsNeedleMove& maps) {
    constexpr std::array<PositionXYZ, 4> points{
        {{10000, 20000, 5000}, {7400, 24000, 6500}, {12600, 24000, 3500}, {10500, 20000, 5866}}};
    for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            maps.ManipulatorCalibrationPosXYZ(
                0, axis, point, points[static_cast<std::size_t>(point)][static_cast<std::size_t>(axis)]);
            maps.PosZero(0, axis, 100);
        }
    }
    maps.CalibrationCalculation(0);
}

void OneTick(benchmark::State& run) {
    FakeMachine standIns;
    InstrumentsListener instruments(standIns.journal);
    QuietDriverLibrary driverLibrary;
    NoProfile profile;
    const platform::Machine machine =
        standIns.Seams(profile, {.camera = nullptr, .driverLibrary = &driverLibrary});
    Quiet quiet;
    SharedState state(quiet);
    FormMainObjects objects(machine, state, instruments, quiet);
    objects.Create();
    Calibrate(*objects.cNeedleMove);
    PositionLoop loop(state, objects, standIns.boxes, standIns.timers, quiet);
    loop.Connect();
    loop.Start();
    for ([[maybe_unused]] auto _ : run) {
        loop.Tick();
    }
    if (state.intManipulatorNumber != 0) {
        run.SkipWithError("the tick has read no needle");
    }
    run.counters["goal_us"] = 20;
}
BENCHMARK(OneTick)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
