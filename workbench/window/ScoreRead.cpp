#include "workbench/window/ScoreRead.h"

#include <QPainter>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/Landing.h"
#include "workbench/window/PlanPen.h"

namespace workbench {

namespace {

constexpr double TextLeft = 14.0;
constexpr double CaptionBaseline = 19.0;
constexpr double NumberSize = 17.0;

QFont CaptionFont() { return TextFont(type::Fine, QFont::DemiBold); }

}  // namespace

ScoreNumber::ScoreNumber(const QString& objectName, const QString& name, QWidget* parent) : QWidget(parent) {
    InstallBenchAccess();
    setObjectName(objectName);
    setAccessibleName(name);
    setAccessibleDescription(AccessibleValue());
}

void ScoreNumber::Show(int number, bool alarms) {
    if (number_ != number || alarms_ != alarms) {
        number_ = number;
        alarms_ = alarms;
        setAccessibleDescription(AccessibleValue());
        update();
    }
}

void ScoreNumber::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(0.0, 8.0, 1.0, height() - 16.0), palette::Hair);
    if (alarms_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Fault);
        painter.drawRoundedRect(QRectF(8.0, 7.0, 78.0, height() - 14.0), 4.0, 4.0);
    }
    DrawText(painter, accessibleName(), {TextLeft + 2.0, CaptionBaseline},
             Fitted(CaptionFont(), accessibleName(), width() - TextLeft - 8.0),
             alarms_ ? palette::OnFault : palette::Ink2);
    DrawText(painter, QString::number(number_), {TextLeft + 2.0, 37.0}, TextFont(NumberSize, QFont::Bold),
             alarms_ ? palette::OnFault : palette::Ink);
}

ScoreLanding::ScoreLanding(QWidget* parent) : QWidget(parent) {
    InstallBenchAccess();
    setObjectName(QStringLiteral("landing"));
    setAccessibleName(QStringLiteral("Last landing"));
    setAccessibleDescription(AccessibleValue());
}

void ScoreLanding::Show(const SceneLanding& landing) {
    if (!(landing == landing_)) {
        landing_ = landing;
        setAccessibleDescription(AccessibleValue());
        update();
    }
}

QString ScoreLanding::AccessibleValue() const {
    const QString detail = LandingDetail(landing_);
    return detail.isEmpty() ? LandingValue(landing_) : LandingValue(landing_) + QLatin1Char(' ') + detail;
}

void ScoreLanding::paintEvent(QPaintEvent*) {
    constexpr double valueGap = 7.0;
    constexpr double rightGap = 12.0;
    QPainter painter(this);
    DrawText(painter, accessibleName(), {TextLeft, CaptionBaseline}, CaptionFont(), palette::Ink2);
    const QString value = LandingValue(landing_);
    if (landing_.count == 0) {
        DrawText(painter, value, {TextLeft, 37.0}, TextFont(type::Caption, QFont::Normal), palette::Ink2);
        return;
    }
    const QFont valueFont = TextFont(type::LandingValue, QFont::Bold);
    DrawText(painter, value, {TextLeft, 38.0}, valueFont, palette::SimDeep);
    const double x = TextLeft + WidthOf(valueFont, value) + valueGap;
    const double room = width() - x - rightGap;
    const QFont font = TextFont(type::Button, QFont::Normal);
    const QString detail = LandingDetail(
        landing_, [&](const QString& text) { return WidthOf(font, text); }, room);
    DrawText(painter, detail, {x, 37.5}, Fitted(font, detail, room), palette::Ink);
}

}  // namespace workbench
