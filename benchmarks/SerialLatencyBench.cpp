// From the byte on the wire to the value in the shared state, with all three links busy, beside a
// bare read of the same line and beside the time that the line takes on a real wire.
#include <benchmark/benchmark.h>
#include <poll.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/clsDebugLog.h"
#include "devices/links/clsCommunication.h"
#include "platform/PseudoTerminal.h"
#include "platform/qt/QtMachine.h"

namespace travo::bench {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using test::PseudoTerminal;

constexpr int Samples = 5000;
constexpr int Openings = 300;
constexpr double BitsOnTheWire = 10;  // of a byte: start, 8 data, stop
constexpr double Speed = 9600;        // bits a second of mirror controller and motor
constexpr int LimitMilliseconds = 2000;
// What the other lines carry at their full speed: an answer of the motor, a reading of the gauge.
constexpr microseconds MotorPeriod(2083);
constexpr microseconds GaugePeriod(41667);
constexpr microseconds StatusPeriod(100000);

double WireMicroseconds(const std::string& bytes) {
    return static_cast<double>(bytes.size()) * BitsOnTheWire / Speed * 1e6;
}

std::string AnswerX(std::int32_t x) { return "aD2R" + std::to_string(x) + "\r\n"; }

// The three instruments, on a thread of their own as they are boxes of their own.
class Instruments {
public:
    Instruments() : thread_([this] { Run(); }) {}
    ~Instruments() {
        over_ = true;
        thread_.join();
    }
    Instruments(const Instruments&) = delete;
    Instruments& operator=(const Instruments&) = delete;

    // Has the mirror controller report that X a moment later.
    void Report(std::int32_t x) { wanted_ = x; }
    Clock::time_point SentAt() const { return Clock::time_point(Clock::duration(sentAt_)); }

    PseudoTerminal mirror, gauge, motor;

private:
    void Run() {
        while (!over_) {
            const auto now = Clock::now();
            Every(MotorPeriod, nextMotor_, now, [this] { motor.Send("A\r"); });
            Every(GaugePeriod, nextGauge_, now, [this] { gauge.Send("A+01.234\r\n"); });
            Every(StatusPeriod, nextStatus_, now, [this] {
                mirror.Send("sSAA" + std::to_string(x_) + "," + std::to_string(++y_ % 180) +
                            ",0,1,2,0,0,0\r\n");
            });
            gauge.Receive();
            motor.Receive();
            if (mirror.Receive().find("rD2R\r") != std::string::npos) {
                Send(++x_);
            }
            if (const std::int32_t wanted = wanted_; wanted != reported_) {
                // The program sleeps by then, as it does between the lines of an instrument.
                std::this_thread::sleep_for(microseconds(std::uniform_int_distribution(100, 1000)(random_)));
                reported_ = wanted;
                Send(wanted);
            }
            std::this_thread::sleep_for(microseconds(50));
        }
    }
    void Send(std::int32_t x) {
        x_ = x;
        sentAt_ = Clock::now().time_since_epoch().count();
        mirror.Send(AnswerX(x));
    }
    template <typename Procedure>
    static void Every(microseconds period, Clock::time_point& next, Clock::time_point now,
                      Procedure procedure) {
        if (now >= next) {
            next = now + period;
            procedure();
        }
    }

    std::atomic<bool> over_ = false;
    std::atomic<std::int32_t> wanted_ = 0;
    std::atomic<Clock::rep> sentAt_ = 0;
    std::int32_t reported_ = 0;
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
    Clock::time_point nextMotor_, nextGauge_, nextStatus_;
    std::minstd_rand random_;
    std::thread thread_;
};

// The program's side: real links on real ports, the view's X watched.
class Program : private SharedState::Listener, private clsCommunication::Listener {
public:
    explicit Program(const Instruments& instruments) {
        QDir(folder_.path()).mkdir(QStringLiteral("ports"));
        Pin(1, instruments.mirror);
        Pin(2, instruments.gauge);
        Pin(3, instruments.motor);
        links.MagnescalePortOpen(2);
        links.MotorPortOpen(3);
    }
    // Serves events until an X has come that is as asked; nothing where it does not come.
    template <typename Predicate>
    std::optional<Clock::time_point> Await(Predicate isIt) {
        QTimer limit;
        limit.setSingleShot(true);
        limit.start(LimitMilliseconds);
        while (!isIt(state.CurrentXYZ(0)) && limit.isActive()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        return limit.isActive() ? std::optional(changedAt_) : std::nullopt;
    }

private:
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override { changedAt_ = Clock::now(); }
    void checkMotor(std::int16_t) override {}
    void ControlONOFF(bool) override {}
    void PortLost(Instrument) override {}
    void LineDropped(Instrument) override {}
    void Pin(int number, const PseudoTerminal& wire) {
        QFile::link(wire.Device(), folder_.filePath(QStringLiteral("ports/com%1").arg(number)));
    }

    QTemporaryDir folder_;
    platform::qt::QtMachine qt_{folder_.path()};
    platform::Machine machine_ = qt_.Seams();
    clsDebugLog log_{machine_.clock};
    FailureHandler failures_{log_, machine_.boxes};
    Clock::time_point changedAt_;

public:
    SharedState state{*this};
    clsCommunication links{{{machine_.driverLibrary, machine_.clock, machine_.eventLoop, machine_.pointer},
                            machine_.serialPorts,
                            machine_.eventLoop},
                           state,
                           failures_,
                           *this};
};

// Takes the samples of one benchmark, and tells median and 99th percentile in microseconds.
class Sampling {
public:
    explicit Sampling(benchmark::State& state) : state_(state) {}
    void Add(Clock::duration time) {
        const double seconds = std::chrono::duration<double>(time).count();
        state_.SetIterationTime(seconds);
        microseconds_.push_back(seconds * 1e6);
    }
    void Tell(const std::string& onTheWire) {
        if (microseconds_.empty()) {
            return;
        }
        std::sort(microseconds_.begin(), microseconds_.end());
        state_.counters["median_us"] = microseconds_[microseconds_.size() / 2];
        state_.counters["p99_us"] = microseconds_[microseconds_.size() * 99 / 100];
        state_.counters["wire_us"] = WireMicroseconds(onTheWire);
    }

private:
    benchmark::State& state_;
    std::vector<double> microseconds_;
};

void ByteOnTheWireToSharedState(benchmark::State& state) {
    Instruments instruments;
    Program program(instruments);
    program.links.MirrorPortOpen(1);
    program.Await([](std::int32_t x) { return x != NoPositionValue; });
    Sampling sampling(state);
    std::int32_t x = 1000;
    for ([[maybe_unused]] auto _ : state) {
        instruments.Report(++x);
        const auto changedAt = program.Await([x](std::int32_t now) { return now == x; });
        if (!changedAt) {
            state.SkipWithError("the value has not come");
            return;
        }
        sampling.Add(*changedAt - instruments.SentAt());
    }
    sampling.Tell(AnswerX(x));
}

bool ReadUntil(int wire, const std::string& line) {
    std::string text;
    std::array<char, 256> block;
    pollfd ready{wire, POLLIN, 0};
    while (text.find(line) == std::string::npos) {
        const ssize_t size =
            ::poll(&ready, 1, LimitMilliseconds) == 1 ? ::read(wire, block.data(), block.size()) : 0;
        if (size <= 0) {
            return false;
        }
        text.append(block.data(), static_cast<std::size_t>(size));
    }
    return true;
}

void ByteOnTheWireToABareRead(benchmark::State& state) {
    Instruments instruments;
    const int wire = ::open(instruments.mirror.Device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
    Sampling sampling(state);
    std::int32_t x = 1000;
    for ([[maybe_unused]] auto _ : state) {
        instruments.Report(++x);
        if (!ReadUntil(wire, AnswerX(x))) {
            state.SkipWithError("the line has not come");
            break;
        }
        sampling.Add(Clock::now() - instruments.SentAt());
    }
    ::close(wire);
    sampling.Tell(AnswerX(x));
}

void OpeningAPortToTheFirstValue(benchmark::State& state) {
    Instruments instruments;
    Program program(instruments);
    Sampling sampling(state);
    for ([[maybe_unused]] auto _ : state) {
        program.links.MirrorPortClose();
        program.state.CurrentXYZ(0, NoPositionValue);
        const auto start = Clock::now();
        program.links.MirrorPortOpen(1);
        const auto changedAt = program.Await([](std::int32_t x) { return x != NoPositionValue; });
        if (!changedAt) {
            state.SkipWithError("the value has not come");
            return;
        }
        sampling.Add(*changedAt - start);
    }
    // The four commands up to the question, and its answer.
    sampling.Tell("cSAS1\rrWER\rrPMR\rrD2R\r" + AnswerX(1000));
}

BENCHMARK(ByteOnTheWireToSharedState)->UseManualTime()->Iterations(Samples)->Unit(benchmark::kMicrosecond);
BENCHMARK(ByteOnTheWireToABareRead)->UseManualTime()->Iterations(Samples)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpeningAPortToTheFirstValue)->UseManualTime()->Iterations(Openings)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace travo::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
