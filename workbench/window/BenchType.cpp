#include "workbench/window/BenchType.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <algorithm>

namespace workbench {

namespace {

constexpr double SmallestText = 4.0;
constexpr double SmallerBy = 0.5;
constexpr double PointsPerInch = 72.0;
constexpr double UsualDotsPerInch = 96.0;

// A font's height in pixels is a whole number; in points it need not be.
double PointsOf(double pixels) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dots = screen == nullptr ? UsualDotsPerInch : screen->logicalDotsPerInchY();
    return pixels * PointsPerInch / dots;
}

QFont FontOf(const QStringList& families, double pixels, QFont::Weight weight) {
    QFont font;
    font.setFamilies(families);
    font.setPointSizeF(PointsOf(std::max(1.0, pixels)));
    font.setWeight(weight);
    return font;
}

}  // namespace

QFont TextFont(double pixels, QFont::Weight weight) {
    static const QStringList stack = {QStringLiteral("Open Sans"), QStringLiteral("Segoe UI"),
                                      QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans"),
                                      QStringLiteral("sans-serif")};
    return FontOf(stack, pixels, weight);
}

QFont MonoFont(double pixels, QFont::Weight weight) {
    static const QStringList stack = {QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Consolas"),
                                      QStringLiteral("monospace")};
    return FontOf(stack, pixels, weight);
}

double WidthOf(const QFont& font, const QString& text) { return QFontMetricsF(font).horizontalAdvance(text); }

QFont Fitted(const QFont& font, const QString& text, double width) {
    QFont fitted = font;
    while (fitted.pointSizeF() > PointsOf(SmallestText) && WidthOf(fitted, text) > width) {
        fitted.setPointSizeF(std::max(PointsOf(SmallestText), fitted.pointSizeF() - PointsOf(SmallerBy)));
    }
    return fitted;
}

}  // namespace workbench
