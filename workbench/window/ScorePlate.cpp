#include "workbench/window/ScorePlate.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/ScoreRead.h"
#include "workbench/window/WireReader.h"

namespace workbench {

namespace {

constexpr int RightMargin = 12;
constexpr int ForgetTop = 10;
constexpr int ForgetWidth = 60;
constexpr int ForgetHeight = 26;
constexpr int NumberWidth = 92;
constexpr int DividerBefore = 2;  // a number's label begins with the line to the left of it

}  // namespace

ScorePlate::ScorePlate(Ask ask, QWidget* parent)
    : QWidget(parent),
      ask_(std::move(ask)),
      landing_(new ScoreLanding(this)),
      crossings_(new ScoreNumber(QStringLiteral("crossings"), QStringLiteral("Crossings"), this)),
      refused_(new ScoreNumber(QStringLiteral("refusals"), QStringLiteral("Refusals"), this)),
      forget_(new BenchPush({QStringLiteral("forget"), QStringLiteral("Forget"), QString()},
                            QStringLiteral("Forget"), this)) {
    setObjectName(QStringLiteral("score"));
    setAccessibleName(QStringLiteral("Score"));
    forget_->TextPixels(type::Small);
    connect(forget_, &QAbstractButton::clicked, this, [this] { Forget(); });
}

void ScorePlate::Show(const Scene& scene) {
    refusals_ += static_cast<int>(
        std::count_if(scene.traffic.begin(), scene.traffic.end(),
                      [](const TrafficRecord& record) { return MeaningOf(record).refusal; }));
    landing_->Show(scene.landing);
    crossings_->Show(scene.crossingsInAll, scene.crossingsInAll > 0);
    refused_->Show(refusals_, false);
}

void ScorePlate::Forget() {
    for (const char* line : {"world crossings forget", "counters forget", "world landing forget"}) {
        ask_(line);
    }
    refusals_ = 0;
    refused_->Show(refusals_, false);
}

void ScorePlate::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPlate(painter, QRectF(rect()), palette::Ground, palette::Hair);
}

void ScorePlate::resizeEvent(QResizeEvent*) {
    int right = width() - RightMargin - ForgetWidth;
    forget_->setGeometry(right, ForgetTop, ForgetWidth, ForgetHeight);
    for (ScoreNumber* number : {refused_, crossings_}) {
        right -= NumberWidth;
        number->setGeometry(right - DividerBefore, 0, NumberWidth, height());
    }
    landing_->setGeometry(0, 0, right, height());
}

}  // namespace workbench
