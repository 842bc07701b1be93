#include "workbench/window/BenchType.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

constexpr int SmallestText = 4;

QFont FontOf(const QStringList& families, double pixels, QFont::Weight weight) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
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
    while (fitted.pixelSize() > SmallestText && WidthOf(fitted, text) > width) {
        fitted.setPixelSize(fitted.pixelSize() - 1);
    }
    return fitted;
}

}  // namespace workbench
