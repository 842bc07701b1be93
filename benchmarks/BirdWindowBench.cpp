// One refresh of the bird's-eye view's window, from a needle that has been read to its pixels in the window,
// beside a plain widget of the picture's size that paints a ready picture. The goal is a hundredth of the
// position loop's period: 2 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "Pairs.h"
#include "experiment/bird/FormBirdView.h"
#include "support/FakeMachine.h"

namespace travo::bench {
namespace {

constexpr double GoalMicroseconds = 2000;

class Quiet : public SharedState::Listener,
              public FormSkinned::Owner,
              public FormBirdView::Owner,
              public WindowMove {
public:
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
    void FormClose(std::int32_t) override {}
    std::int16_t ExperimentCellNo() const override { return 0; }
    void Start(QWidget&) override {}
};

// All four needles, all eight cells and the view, one needle and one cell blinking.
struct Refresh {
    explicit Refresh(const QSize& size) {
        state.intTotalManipulatorNumber = NeedleCount - 1;
        state.intManipulatorNumber = 1;
        window.chkMirror(true);
        window.ChangeMagnification(2);
        window.ChangeViewXYZ({20, 30, 0});
        for (std::int16_t cell = 0; cell < CellCount; ++cell) {
            window.ChangeCellXYZ(cell, {100 - 40 * cell, 10 * cell - 30, 0});
        }
        window.resize(size);
        window.ShowWindow();
        QApplication::processEvents();
    }

    void Run() {
        ++place;
        state.Needle(1, 0, place % 600 - 300);
        window.ChangeNeedleXYZ(1, state.Needles(), state.CurrentXYZ(), {-9000, -7000, 0});
        QApplication::processEvents();
    }

    QWidget& picBird() const { return *window.findChild<QWidget*>(QStringLiteral("picBird")); }

    Quiet quiet;
    SharedState state{quiet};
    test::FakeMachine machine;
    FormBirdView window{{{quiet, quiet}, state, machine.boxes, quiet}, QStringLiteral(SKIN_HOME)};
    std::int32_t place = 0;
};

class PlainPicture : public QWidget {
public:
    explicit PlainPicture(const QImage& picture) : picture_(picture) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(picture.size());
        show();
        QApplication::processEvents();
    }
    void Run() {
        update();
        QApplication::processEvents();
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(QPointF(0, 0), picture_); }

private:
    QImage picture_;
};

QImage OnScreen(const QWidget& window) {
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

// Ends the program where a refresh does not reach the window, or where what the peer shows is not the same.
void Compare() {
    Refresh refresh(FormBirdView::ClosedSize);
    const QImage before = OnScreen(refresh.window);
    refresh.Run();
    const QImage after = OnScreen(refresh.window);
    const QImage shown = refresh.picBird().grab().toImage().convertToFormat(QImage::Format_RGB32);
    const PlainPicture peer(shown);
    if (before == after || after.copy(refresh.picBird().geometry()) != shown || OnScreen(peer) != shown) {
        std::fprintf(stderr, "A refresh does not reach the window, or the peer shows something else.\n");
        std::exit(1);
    }
}

void RefreshAgainstPlainRepaint(benchmark::State& run) {
    const auto side = static_cast<int>(run.range(0));
    Refresh refresh(QSize(side + 32, side + 105));
    PlainPicture peer(refresh.picBird().grab().toImage());
    std::vector<double> ours;
    std::vector<double> peers;
    for ([[maybe_unused]] auto _ : run) {
        ours.push_back(Microseconds([&] { refresh.Run(); }));
        peers.push_back(Microseconds([&] { peer.Run(); }));
    }
    run.counters["ours_us"] = Median(ours);
    run.counters["repaint_us"] = Median(peers);
    run.counters["ratio"] = MedianRatio(ours, peers);
    run.counters["goal_us"] = GoalMicroseconds;
}

void RefreshHidden(benchmark::State& run) {
    Refresh refresh(FormBirdView::ClosedSize);
    refresh.window.HideWindow();
    for ([[maybe_unused]] auto _ : run) {
        refresh.Run();
    }
    run.counters["goal_us"] = GoalMicroseconds;
}

BENCHMARK(RefreshAgainstPlainRepaint)
    ->Name("One refresh, picture of so many pixels a side")
    ->Arg(378)
    ->Arg(567)
    ->Arg(756)
    ->Arg(1512)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(RefreshHidden)->Name("One refresh while hidden")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace travo::bench

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    travo::bench::Compare();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
