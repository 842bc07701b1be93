#include "workflows/CtlCalibrationWarning.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {

// In design pixels.
constexpr double EdgeWidth = 1.5;
constexpr double Radius = 4;
constexpr double SignSide = 20;
constexpr double SignMiddle = 26;
constexpr double TextLeft = 46;
constexpr double TextMargin = 10;

}  // namespace

CtlCalibrationWarning::CtlCalibrationWarning(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CtlCalibrationWarning::inipath(const QString& folder) {
    pictures_.Folder(folder);
    update();
}

void CtlCalibrationWarning::paintEvent(QPaintEvent*) {
    const double scale = ScaleAt(QSizeF(size()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double half = EdgeWidth * scale / 2;
    painter.setPen(QPen(palette::CoralDeep, EdgeWidth * scale));
    painter.setBrush(palette::Blush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), Radius * scale,
                            Radius * scale);

    const int side = qRound(SignSide * scale);
    const QPixmap sign = pictures_.Picture(QStringLiteral("icon-warn"), QSize(side, side),
                                           devicePixelRatioF(), SignSide * scale / 24);
    if (!sign.isNull()) {
        painter.drawPixmap(
            QPointF(std::round(SignMiddle * scale - side / 2.0), std::round((height() - side) / 2.0)), sign);
    }

    const QFont font = Fitted(TextFont(type::NameSmall * scale, QFont::DemiBold), text(),
                              width() - (TextLeft + TextMargin) * scale);
    painter.setFont(font);
    painter.setPen(palette::CoralDeepText);
    painter.drawText(QPointF(TextLeft * scale, std::round((height() + QFontMetricsF(font).capHeight()) / 2)),
                     text());
}

}  // namespace travo
