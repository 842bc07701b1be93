#include "workbench/window/FocusPlate.h"

#include <QMenu>
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "workbench/window/BenchIcon.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/SceneReader.h"

namespace workbench {

namespace {
constexpr int KeyCounts = 100;
constexpr int FineKeyCounts = 10;
constexpr double UnitsADisplayUnit = 1000;  // the display shows thousands of Z units
constexpr double HighestDisplay = 99.999;
}  // namespace

QString GaugeText(double reading) {
    const double shown = std::clamp(reading / UnitsADisplayUnit, -HighestDisplay, HighestDisplay);
    const bool isBelow = std::lround(shown * UnitsADisplayUnit) < 0;
    return (isBelow ? QStringLiteral("−") : QStringLiteral("+")) +
           QStringLiteral("%1").arg(std::abs(shown), 6, 'f', 3, QLatin1Char('0'));
}

FocusPlate::FocusPlate(Hand hand, QWidget* parent)
    : BenchPlate(QStringLiteral("focusPlate"), QStringLiteral("Focus, gauge and Ergo unit"), parent),
      hand_(std::move(hand)) {
    Captions({{12, 19, QStringLiteral("Focus wheel"), type::Button, palette::Ink2},
              {148, 19, QStringLiteral("Gauge"), type::Button, palette::Ink2},
              {248, 19, QStringLiteral("Ergo unit"), type::Button, palette::Ink2}});
    AddFocus();
    AddGauge();
    AddErgo();
}

void FocusPlate::AddFocus() {
    wheel_ = new FocusWheel([this](int counts) { Jog(counts); }, this);
    wheel_->setGeometry(12, 26, 124, 34);
    z_ = new NumberRead(QStringLiteral("focusZ"), QStringLiteral("Focus Z"), QStringLiteral("Z"), this);
    z_->setGeometry(12, 64, 76, 26);
    auto* halt = new BenchPush({QStringLiteral("halt"), QStringLiteral("Stop focus"), {}},
                               QStringLiteral("Stop"), this);
    halt->setGeometry(92, 64, 44, 26);
    halt->TextPixels(type::Small);
    QObject::connect(halt, &QAbstractButton::clicked, this, [this] { Jog(0); });
}

void FocusPlate::AddGauge() {
    gauge_ =
        new NumberRead(QStringLiteral("gauge"), QStringLiteral("Gauge"), {}, this, NumberRead::Kind::Display);
    gauge_->setGeometry(148, 26, 88, 34);
    zero_ = new BenchPush({QStringLiteral("zero"), QStringLiteral("Gauge zero"), {}}, QStringLiteral("Zero"),
                          this);
    zero_->setGeometry(148, 64, 88, 26);
    zero_->TextPixels(type::Small);
    QObject::connect(zero_, &QAbstractButton::clicked, this, [this] { hand_.say("gauge zero"); });
}

void FocusPlate::AddErgo() {
    int x = 248;
    for (const bool isUp : {true, false}) {
        auto* button =
            new BenchPush(isUp ? ControlName{QStringLiteral("ergoUp"), QStringLiteral("Ergo up"), {}}
                               : ControlName{QStringLiteral("ergoDown"), QStringLiteral("Ergo down"), {}},
                          {}, this);
        button->setGeometry(x, 26, 44, 34);
        button->Draw([isUp](QPainter& painter, const QPointF& middle, const QColor& ink) {
            PaintChevron(painter, middle, 18, isUp ? 0 : 180, ink);
        });
        QObject::connect(button, &QAbstractButton::clicked, this,
                         [this, isUp] { SayErgo(isUp ? "RZ1000" : "RZ-1000"); });
        x += 48;
    }
    more_ = new BenchPush({QStringLiteral("ergoMore"), QStringLiteral("Ergo unit, more"), {}},
                          QStringLiteral("More…"), this);
    more_->setGeometry(248, 64, 92, 26);
    more_->TextPixels(type::Small);
    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("ergoMenu"));
    AddErgoLine(*menu_, QStringLiteral("To zero MZ0"), "MZ0");
    AddErgoLine(*menu_, QStringLiteral("Where WZ"), "WZ");
    AddErgoLine(*menu_, QStringLiteral("Zero ZE"), "ZE");
    AddErgoLine(*menu_, QStringLiteral("Reset RE"), "RE");
    menu_->addSeparator();
    together_ = menu_->addAction(QStringLiteral("In one write"));
    together_->setCheckable(true);
    QObject::connect(more_, &QAbstractButton::clicked, this,
                     [this] { menu_->popup(more_->mapToGlobal(QPoint(0, more_->height()))); });
}

void FocusPlate::AddErgoLine(QMenu& menu, const QString& text, const std::string& line) {
    QObject::connect(menu.addAction(text), &QAction::triggered, this, [this, line] { SayErgo(line); });
}

void FocusPlate::SayErgo(const std::string& line) {
    hand_.say((together_->isChecked() ? "ergo together " : "ergo ") + line);
}

void FocusPlate::Jog(int counts) { hand_.say("focus jog " + std::to_string(counts)); }

void FocusPlate::HoldWheel(bool upward, bool fine) {
    const int counts = (upward ? 1 : -1) * (fine ? FineKeyCounts : KeyCounts);
    held_.Begin([this, counts] { Jog(counts); },
                [this] {
                    // "ok", Z now, Z at rest, counts now, counts at rest.
                    Scene scene;
                    TakeAnswer(scene, "focus state", hand_.ask("focus state"));
                    return scene.focus.counts == scene.focus.countsAtRest;
                });
}

void FocusPlate::LetGo() { held_.End(); }

void FocusPlate::Show(const Scene& scene) {
    wheel_->Show(scene.focus.counts);
    z_->Show(NumberText(scene.focus.z, 1));
    gauge_->Show(GaugeText(scene.gauge));
    const QString zero = QStringLiteral("Its zero is at Z %1").arg(NumberText(scene.gaugeZero, 1));
    if (gauge_->toolTip() != zero) {
        gauge_->setToolTip(zero);
    }
    zero_->ShowText(scene.gaugeKeys ? QStringLiteral("Zero") : QStringLiteral("Keys locked"));
    if (zero_->isEnabled() != scene.gaugeKeys) {
        zero_->setEnabled(scene.gaugeKeys);
    }
}

}  // namespace workbench
