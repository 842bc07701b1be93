#include "workbench/window/BenchText.h"

#include <QDateTime>
#include <cmath>

namespace workbench {

namespace {

QDateTime TimeOf(std::int64_t beganAt, double time) {
    return QDateTime::fromMSecsSinceEpoch(beganAt + static_cast<std::int64_t>(std::floor(time)));
}

}  // namespace

QString NumberText(double value, int places) {
    QString text = QString::number(std::abs(value), 'f', places);
    const bool nothing = text.toDouble() == 0.0;
    if (value < 0.0 && !nothing) {
        text.prepend(QChar(0x2212));
    }
    return text;
}

QString ClockText(std::int64_t beganAt, double time) {
    return TimeOf(beganAt, time).toString(QStringLiteral("HH:mm:ss"));
}

QString ClockTextFine(std::int64_t beganAt, double time) {
    return TimeOf(beganAt, time).toString(QStringLiteral("HH:mm:ss.zzz"));
}

}  // namespace workbench
