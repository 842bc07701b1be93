#include "workbench/window/TruthTools.h"

#include <QPainter>
#include <QShortcut>
#include <utility>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/PlanScale.h"

namespace workbench {

namespace {

constexpr int FromRight = 8;
constexpr int Apart = 4;
constexpr int ToolTop = 6;
constexpr int ToolHeight = 28;
constexpr int ZoomWidth = 28;
constexpr int TitleLeft = 12;
constexpr int ShortTitleUnder = 460;
constexpr double SignSize = 17.0;

int WidthOfTool(const QString& text) {
    if (text.size() == 1) {
        return ZoomWidth;
    }
    if (text == QLatin1String("All")) {
        return 40;
    }
    return text == QLatin1String("Needle") ? 60 : 46;
}

}  // namespace

TruthTool::TruthTool(const ControlName& name, const QString& text, QWidget* parent)
    : BenchButton(name, text, parent) {}

void TruthTool::PaintButton(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lit = isChecked();
    painter.setBrush(lit ? palette::SimTag : (isDown() ? palette::Night : palette::Grid2));
    painter.setPen(FlatPen(lit ? palette::NightInk : palette::NightDim, 1.0));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4.0, 4.0);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(FlatPen(lit ? palette::SimInk : palette::NightInk, 2.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.0, 3.0, -3.0, -3.0), 2.0, 2.0);
    }
    const bool sign = text().size() == 1;
    const QFont font =
        Fitted(TextFont(sign ? SignSize : type::Button, QFont::DemiBold), text(), width() - 6.0);
    DrawText(painter, text(), {width() / 2.0, sign ? 20.0 : 19.0}, font,
             lit ? palette::SimInk : palette::NightInk, Anchor::Middle);
}

TruthTools::TruthTools(std::function<void(PlanFollow)> chosen, std::function<void(double)> zoomed,
                       QWidget* parent)
    : QWidget(parent), chosen_(std::move(chosen)), zoomed_(std::move(zoomed)) {
    setObjectName(QStringLiteral("truth_tools"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    AddZoom({QStringLiteral("zoom_out"), QStringLiteral("Zoom out"), QStringLiteral("-")},
            QStringLiteral("−"), Qt::Key_Minus, 1.0 / ZoomStep);
    AddZoom({QStringLiteral("zoom_in"), QStringLiteral("Zoom in"), QStringLiteral("+")}, QStringLiteral("+"),
            Qt::Key_Plus, ZoomStep);
    AddFollow(QStringLiteral("fit_needle"), QStringLiteral("Needle"), Qt::Key_N, PlanFollow::Needle);
    AddFollow(QStringLiteral("fit_view"), QStringLiteral("View"), Qt::Key_V, PlanFollow::View);
    AddFollow(QStringLiteral("fit_dish"), QStringLiteral("Dish"), Qt::Key_D, PlanFollow::Dish);
    AddFollow(QStringLiteral("fit_all"), QStringLiteral("All"), Qt::Key_A, PlanFollow::All);
    ShowFollow(PlanFollow::All);
}

void TruthTools::AddTool(TruthTool* tool, Qt::Key key, const std::function<void()>& pressed) {
    tools_ += tool;
    connect(tool, &QAbstractButton::clicked, this, [pressed] { pressed(); });
    connect(new QShortcut(key, this), &QShortcut::activated, this, [pressed] { pressed(); });
    tool->setToolTip(QStringLiteral("%1 (%2)").arg(tool->accessibleName(), tool->AccessibleKeys()));
}

void TruthTools::AddFollow(const QString& name, const QString& text, Qt::Key key, PlanFollow follow) {
    auto* tool = new TruthTool({name, text, QKeySequence(key).toString()}, text, this);
    tool->setCheckable(true);
    follows_ += {tool, follow};
    AddTool(tool, key, [this, follow] { chosen_(follow); });
}

void TruthTools::AddZoom(const ControlName& name, const QString& text, Qt::Key key, double factor) {
    AddTool(new TruthTool(name, text, this), key, [this, factor] { zoomed_(factor); });
}

void TruthTools::ShowFollow(PlanFollow follow) {
    for (const auto& [tool, its] : follows_) {
        tool->setChecked(its == follow);
    }
}

QString TruthTools::TitleFor(int width) {
    return width < ShortTitleUnder ? QStringLiteral("Truth") : QStringLiteral("The truth, seen from above");
}

void TruthTools::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette::Night2);
    painter.fillRect(0, height() - 1, width(), 1, palette::NightHair);
    const double room = tools_.first()->x() - 2.0 * TitleLeft;
    const QString title = TitleFor(width());
    DrawText(painter, title, {TitleLeft, 25.5}, Fitted(TextFont(type::Caption, QFont::DemiBold), title, room),
             palette::NightInk);
}

void TruthTools::resizeEvent(QResizeEvent*) {
    int right = width() - FromRight;
    for (auto tool = tools_.rbegin(); tool != tools_.rend(); ++tool) {
        const int wide = WidthOfTool((*tool)->text());
        (*tool)->setGeometry(right - wide, ToolTop, wide, ToolHeight);
        right -= wide + Apart;
    }
}

}  // namespace workbench
