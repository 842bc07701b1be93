#include "workbench/window/TruthLine.h"

#include <QAccessible>
#include <QPainter>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/PlanReadout.h"
#include "workbench/window/PlanScale.h"

namespace workbench {

namespace {

constexpr double Left = 12.0;
constexpr double BarGap = 14.0;   // between the scale bar and the strip of heights
constexpr double LabelGap = 8.0;  // between the scale bar and its label
constexpr double ReadoutGap = 24.0;
constexpr double Baseline = 18.5;

QString BarLabel(double scale) {
    return QStringLiteral("%1 units").arg(NumberText(ScaleBarLength(scale), 0));
}

QFont ReadoutFont(bool pointer) { return TextFont(type::Small, pointer ? QFont::DemiBold : QFont::Normal); }

// The hint, or as many of its sentences as there is room for.
QString HintFor(double room) {
    const QFont font = ReadoutFont(false);
    QString hint = ReadoutHint();
    while (!hint.isEmpty() && WidthOf(font, hint) > room) {
        hint = hint.left(hint.lastIndexOf(QLatin1String(". ")) + 1);
    }
    return hint;
}

}  // namespace

TruthLine::TruthLine(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("truth_line"));
    setAccessibleName(QStringLiteral("Place under the pointer"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    refusalTimer_.setSingleShot(true);
    refusalTimer_.setInterval(RefusalStands);
    connect(&refusalTimer_, &QTimer::timeout, this, [this] {
        refusal_.clear();
        Renew();
    });
}

void TruthLine::SetHeightsWidth(int width) {
    heightsWidth_ = width;
    update();
}

void TruthLine::Show(const Scene& scene) {
    if (NumberText(scene.focus.z) != NumberText(focus_)) {
        update();
    }
    focus_ = scene.focus.z;
}

void TruthLine::ShowScale(double scale) {
    scale_ = scale;
    update();
}

void TruthLine::ShowPointer(const QStringList& parts) {
    parts_ = parts;
    Renew();
}

void TruthLine::Tell(const QString& text) {
    told_ = text;
    Renew();
}

// Assistive programs are told all of it, also what there is no room for; not the hint.
void TruthLine::Renew() {
    const QString pointer = parts_.join(QStringLiteral("   "));
    setAccessibleDescription(!refusal_.isEmpty() ? refusal_ : !told_.isEmpty() ? told_ : pointer);
    update();
}

void TruthLine::Refuse(const QString& sentence) {
    refusal_ = sentence;
    refusalTimer_.start();
    Renew();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString TruthLine::Text() const {
    if (!refusal_.isEmpty()) {
        return refusal_;
    }
    if (!told_.isEmpty()) {
        return told_;
    }
    if (parts_.isEmpty()) {
        return HintFor(Room());
    }
    const QFont font = ReadoutFont(true);
    return ReadoutText(
        parts_, [&](const QString& text) { return WidthOf(font, text); }, Room());
}

double TruthLine::BarRight() const { return width() - heightsWidth_ - BarGap; }

// For the readout, left of scale bar and label.
double TruthLine::Room() const {
    const double label = WidthOf(TextFont(type::Fine, QFont::DemiBold), BarLabel(scale_));
    return BarRight() - ScaleBarLength(scale_) * scale_ - LabelGap - label - ReadoutGap - Left;
}

void TruthLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette::Night2);
    painter.fillRect(0, 0, width(), 1, palette::NightHair);
    const QString focus = QStringLiteral("focus %1").arg(NumberText(focus_));
    DrawText(painter, focus, {width() - heightsWidth_ / 2.0, Baseline},
             Fitted(TextFont(type::Small, QFont::DemiBold), focus, heightsWidth_ - 4.0), palette::View,
             Anchor::Middle);
    if (!refusal_.isEmpty()) {
        PaintRefusal(painter);
        return;
    }
    PaintBar(painter);
    PaintReadout(painter);
}

void TruthLine::PaintBar(QPainter& painter) const {
    const double right = BarRight();
    const double left = right - ScaleBarLength(scale_) * scale_;
    painter.setPen(FlatPen(palette::NightInk, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({QPointF(left, 9.5), QPointF(left, 18.5), QPointF(right, 18.5), QPointF(right, 9.5)}));
    DrawText(painter, BarLabel(scale_), {left - LabelGap, Baseline}, TextFont(type::Fine, QFont::DemiBold),
             palette::NightInk, Anchor::End);
}

void TruthLine::PaintReadout(QPainter& painter) const {
    const bool pointer = !parts_.isEmpty() || !told_.isEmpty();
    const QString text = Text();
    DrawText(painter, text, {Left, Baseline}, Fitted(ReadoutFont(pointer), text, Room()),
             pointer ? palette::NightInk : palette::NightText);
}

void TruthLine::PaintRefusal(QPainter& painter) const {
    const double right = width() - heightsWidth_;
    painter.fillRect(QRectF(0.0, 1.0, right, height() - 1.0), palette::Fault);
    DrawText(painter, refusal_, {Left, Baseline},
             Fitted(TextFont(type::Small, QFont::DemiBold), refusal_, right - 2.0 * Left), palette::OnFault);
}

}  // namespace workbench
