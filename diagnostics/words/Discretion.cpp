#include "diagnostics/words/Discretion.h"

#include <QDir>
#include <QRegularExpression>
#include <QSysInfo>

namespace travo::diagnostics {

namespace {

// Letters, digits and what joins them in names count as one word.
QString WithoutWord(const QString& text, const QString& word, const QString& instead) {
    if (word.isEmpty()) {
        return text;
    }
    const QRegularExpression alone(
        QStringLiteral("(?<![\\w-])%1(?![\\w-])").arg(QRegularExpression::escape(word)),
        QRegularExpression::UseUnicodePropertiesOption);
    return QString(text).replace(alone, instead);
}

}  // namespace

Discretion Discretion::OfThisRun() {
    const QString user = qEnvironmentVariable("USER", qEnvironmentVariable("LOGNAME"));
    return {QDir::homePath(), user, QSysInfo::machineHostName()};
}

QString Discretion::Cleaned(const QString& text) const {
    QString cleaned = text;
    if (home.size() > 1) {
        const QRegularExpression path(
            QStringLiteral("(?<![\\w/])%1(?![\\w-]|\\.\\w)").arg(QRegularExpression::escape(home)),
            QRegularExpression::UseUnicodePropertiesOption);
        cleaned.replace(path, QStringLiteral("~"));
    }
    return WithoutWord(WithoutWord(cleaned, user, QStringLiteral("USER")), host, QStringLiteral("HOST"));
}

}  // namespace travo::diagnostics
