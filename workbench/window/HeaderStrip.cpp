#include "workbench/window/HeaderStrip.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

constexpr int BarsHeight = 4;
constexpr int SwitchWidth = 118;
constexpr int SwitchHeight = 28;
constexpr int PillHeight = 31;
constexpr int PillGap = 4;
constexpr double TagLeft = 152;
constexpr double TagWidth = 112;
constexpr double TagHeight = 24;
constexpr double SentenceLeft = 124;  // from the tag's left

struct WireName {
    const char* wire;
    const char* object;
    const char* name;
};
constexpr std::array<WireName, 3> Wires{{{"mirror", "wire_mirror", "Mirror"},
                                         {"gauge", "wire_gauge", "Gauge"},
                                         {"motor", "wire_motor", "Motor"}}};

void PaintMark(QPainter& painter, double middle) {
    painter.setPen(QPen(palette::SimLit, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(24, middle), 10.5, 10.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::SimLit);
    painter.drawPolygon(
        QPolygonF({QPointF(33, middle - 14), QPointF(37, middle - 10), QPointF(23, middle + 2)}));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(22.5, middle + 2.5), 2, 2);
}

void PaintTag(QPainter& painter, double middle) {
    const QRectF tag(TagLeft, middle - TagHeight / 2, TagWidth, TagHeight);
    painter.setPen(Qt::white);
    painter.setBrush(palette::SimTag);
    painter.drawRoundedRect(tag.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    PaintBars(painter, QRectF(tag.left() + 2, middle - 10, 16, 20));
    Write(painter, {QStringLiteral("SIMULATED"),
                    {tag.left() + 65, middle + 4.7},
                    TextFont(type::Button, QFont::Bold),
                    palette::SimInk,
                    Anchor::Middle,
                    86});
}

}  // namespace

HeaderStrip::HeaderStrip(std::function<void()> switchCard, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("headerStrip"));
    setAccessibleName(QStringLiteral("How the wires stand"));
    for (std::size_t wire = 0; wire < Wires.size(); ++wire) {
        wires_.at(wire) = new WirePill(QString::fromLatin1(Wires.at(wire).object),
                                       QString::fromLatin1(Wires.at(wire).name), this);
        wires_.at(wire)->Show(WirePill::State::Quiet, QStringLiteral("shut"));
    }
    driver_ = new WirePill(QStringLiteral("wire_driver"), QStringLiteral("Driver"), this);
    driver_->Show(WirePill::State::Quiet, QStringLiteral("quiet"));
    camera_ = new WirePill(QStringLiteral("wire_camera"), QStringLiteral("Camera"), this);
    camera_->Show(WirePill::State::Quiet, QStringLiteral("not running"));
    lesson_ =
        new BenchSwitch({QStringLiteral("lesson"), QStringLiteral("First ten minutes"), QStringLiteral("F1")},
                        QStringLiteral("Ten minutes"), this);
    QObject::connect(lesson_, &QAbstractButton::clicked, this, std::move(switchCard));
}

void HeaderStrip::ShowCard(bool shown) { lesson_->ShowLatched(shown); }

void HeaderStrip::ShowSmall(bool small) {
    small_ = small;
    Place();
    update();
}

void HeaderStrip::resizeEvent(QResizeEvent*) { Place(); }

// From the right end. The pills keep their widths whatever they say.
void HeaderStrip::Place() {
    const int middle = (height() - BarsHeight) / 2;
    int x = width() - (small_ ? 8 : 12) - SwitchWidth;
    lesson_->setGeometry(x, middle - SwitchHeight / 2, SwitchWidth, SwitchHeight);
    const auto put = [&x, middle](WirePill& pill, const QString& longest) {
        const int wide = pill.WidthFor(longest);
        x -= wide + PillGap;
        pill.setGeometry(x, middle - PillHeight / 2 - 1, wide, PillHeight);
    };
    put(*camera_, QStringLiteral("not running"));
    put(*driver_, QStringLiteral("quiet"));
    for (std::size_t wire = wires_.size(); wire > 0; --wire) {
        put(*wires_.at(wire - 1), QStringLiteral("cable out"));
    }
}

void HeaderStrip::Show(const Scene& scene, std::int64_t now) {
    for (std::size_t wire = 0; wire < Wires.size(); ++wire) {
        ShowWire(*wires_.at(wire), scene, Wires.at(wire).wire);
    }
    ShowDriver(scene, now);
    camera_->Show(scene.cameraRunning ? WirePill::State::Good : WirePill::State::Quiet,
                  scene.cameraRunning ? QStringLiteral("on") : QStringLiteral("not running"));
}

void HeaderStrip::ShowWire(WirePill& pill, const Scene& scene, const std::string& wire) {
    const auto found = std::find_if(scene.wires.begin(), scene.wires.end(),
                                    [&wire](const SceneWire& each) { return each.name == wire; });
    if (found == scene.wires.end()) {
        return;
    }
    if (!found->cableIn) {
        pill.Show(WirePill::State::Bad, QStringLiteral("cable out"));
    } else if (found->open) {
        pill.Show(WirePill::State::Good, QStringLiteral("open"));
    } else {
        pill.Show(WirePill::State::Quiet, QStringLiteral("shut"));
    }
}

void HeaderStrip::ShowDriver(const Scene& scene, std::int64_t now) {
    std::int64_t calls = 0;
    for (const auto& [name, count] : scene.counters) {
        calls += count;
    }
    // What was called before the window came, or was forgotten, is no call of now.
    if (calls > calls_ && calls_ >= 0) {
        called_ = now;
    }
    calls_ = calls;
    const bool isOn = called_ && now - *called_ < QuietAfter;
    driver_->Show(isOn ? WirePill::State::Good : WirePill::State::Quiet,
                  isOn ? QStringLiteral("on") : QStringLiteral("quiet"));
}

void HeaderStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, palette::HeaderHigh);
    fill.setColorAt(1, palette::Slate);
    painter.fillRect(rect(), fill);
    painter.fillRect(QRectF(0, height() - BarsHeight - 1, width(), 1), palette::SlateEdge);
    PaintBars(painter, QRectF(0, height() - BarsHeight, width(), BarsHeight));
    const double middle = (height() - BarsHeight) / 2.0;
    PaintMark(painter, middle);
    Write(painter, {QStringLiteral("Workbench"),
                    {46, middle + 6.3},
                    TextFont(type::Heading, QFont::DemiBold),
                    palette::OnSlate,
                    Anchor::Start,
                    TagLeft - 50});
    PaintTag(painter, middle);
    if (!small_) {
        Write(painter, {QStringLiteral("Nothing here is real, but TRAVO cannot tell."),
                        {TagLeft + SentenceLeft, middle + 4.7},
                        TextFont(type::Button, QFont::Normal),
                        palette::SecondLine,
                        Anchor::Start,
                        wires_.front()->x() - TagLeft - SentenceLeft - PillGap});
    }
}

}  // namespace workbench
