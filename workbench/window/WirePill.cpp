#include "workbench/window/WirePill.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double TextLeft = 26;
constexpr double Beside = 34;  // of the text: lamp and margins
constexpr double LampX = 14;

QFont NameFont() { return TextFont(type::Button, QFont::DemiBold); }
QFont WordFont() { return TextFont(type::Least, QFont::Normal); }
}  // namespace

WirePill::WirePill(const QString& objectName, const QString& name, QWidget* parent)
    : QWidget(parent), name_(name) {
    InstallBenchAccess();
    setObjectName(objectName);
    setAccessibleName(name);
}

void WirePill::Show(State state, const QString& word) {
    if (state_ == state && word_ == word) {
        return;
    }
    state_ = state;
    word_ = word;
    setAccessibleName(name_ + QStringLiteral(": ") + word_);
    update();
}

int WirePill::WidthFor(const QString& longestWord) const {
    return static_cast<int>(
        std::ceil(std::max(WidthOf(NameFont(), name_), WidthOf(WordFont(), longestWord)) + Beside));
}

void WirePill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF place(rect());
    const bool isBad = state_ == State::Bad;
    PaintBox(painter, place, palette::Pill, isBad ? palette::Alarm : palette::PillEdge, 4);
    const double middle = place.height() / 2;
    PaintLamp(painter, middle);
    const double room = place.width() - TextLeft - 4;
    Write(painter, {name_, {TextLeft, middle - 1.5}, NameFont(), palette::OnSlate, Anchor::Start, room});
    Write(painter, {word_, {TextLeft, middle + 11}, WordFont(), palette::SecondLine, Anchor::Start, room});
}

void WirePill::PaintLamp(QPainter& painter, double middle) const {
    if (state_ == State::Good) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Lamp);
        painter.drawEllipse(QPointF(LampX, middle), 5, 5);
        return;
    }
    painter.setBrush(Qt::NoBrush);
    if (state_ == State::Quiet) {
        painter.setPen(QPen(palette::NightText, 1.8));
        painter.drawEllipse(QPointF(LampX, middle), 4.4, 4.4);
        return;
    }
    painter.setPen(QPen(palette::Alarm, 2.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(LampX - 4.5, middle - 4.5), QPointF(LampX + 4.5, middle + 4.5));
    painter.drawLine(QPointF(LampX + 4.5, middle - 4.5), QPointF(LampX - 4.5, middle + 4.5));
}

}  // namespace workbench
