#include "controls/Type.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace travo {

namespace {
constexpr int SmallestText = 4;
}  // namespace

QStringList FontStack() {
    return {QStringLiteral("Open Sans"), QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
            QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")};
}

QFont TextFont(double pixels, QFont::Weight weight) {
    QFont font;
    font.setFamilies(FontStack());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setWeight(weight);
    return font;
}

QFont Fitted(const QFont& font, const QString& text, double width) {
    QFont fitted = font;
    while (fitted.pixelSize() > SmallestText && QFontMetricsF(fitted).horizontalAdvance(text) > width) {
        fitted.setPixelSize(fitted.pixelSize() - 1);
    }
    return fitted;
}

}  // namespace travo
