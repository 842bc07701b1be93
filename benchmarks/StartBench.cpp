// From the start of the process to its first tick, beside an empty window whose timer ticks at once and
// one whose timer has the position loop's period.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

class Starts {
public:
    Starts() {
        QDir(folder_.path()).mkdir(QStringLiteral("runtime"));
        QFile::setPermissions(folder_.filePath(QStringLiteral("runtime")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QFile::copy(QStringLiteral(PROGRAM), Program());
        QFile::copy(QStringLiteral(FIRST_TICK_DRIVER),
                    folder_.filePath(QStringLiteral("libManipulatorDriver.so")));
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.filePath(QStringLiteral("runtime")));
        environment_.insert(QStringLiteral("XDG_DATA_HOME"), folder_.filePath(QStringLiteral("data")));
        if (!environment_.contains(QStringLiteral("DISPLAY"))) {
            environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        }
    }

    QString Program() const { return folder_.filePath(QStringLiteral("TRAVO")); }

    // Seconds until the process has ended by itself; below 0 where it did not end well.
    double Time(const QString& program, const QStringList& arguments) const {
        QProcess process;
        process.setProcessEnvironment(environment_);
        QElapsedTimer time;
        time.start();
        process.start(program, arguments);
        const bool ended = process.waitForFinished(30000);
        const double seconds = static_cast<double>(time.nsecsElapsed()) * 1e-9;
        const bool well = ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        if (!ended) {
            process.kill();
            process.waitForFinished();
        }
        return well ? seconds : -1.0;
    }

private:
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
};

const Starts& TheStarts() {
    static const Starts starts;
    return starts;
}

void Measure(benchmark::State& run, const QString& program, const QStringList& arguments) {
    for ([[maybe_unused]] auto _ : run) {
        const double seconds = TheStarts().Time(program, arguments);
        if (seconds < 0.0) {
            run.SkipWithError("the process did not end at its first tick");
            return;
        }
        run.SetIterationTime(seconds);
    }
}

void ProgramToItsFirstTick(benchmark::State& run) { Measure(run, TheStarts().Program(), {}); }

void EmptyWindowToATickAfter200ms(benchmark::State& run) {
    Measure(run, QStringLiteral(EMPTY_WINDOW), {QStringLiteral("200")});
}

void EmptyWindowToATickAtOnce(benchmark::State& run) {
    Measure(run, QStringLiteral(EMPTY_WINDOW), {QStringLiteral("0")});
}

void FifteenStarts(benchmark::internal::Benchmark* starts) {
    starts->Iterations(1)->Repetitions(15)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(ProgramToItsFirstTick)->Apply(FifteenStarts);
BENCHMARK(EmptyWindowToATickAfter200ms)->Apply(FifteenStarts);
BENCHMARK(EmptyWindowToATickAtOnce)->Apply(FifteenStarts);

}  // namespace

int main(int argumentCount, char** arguments) {
    QCoreApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
