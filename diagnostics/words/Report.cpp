#include "diagnostics/words/Report.h"

#include "diagnostics/words/Summary.h"

namespace travo::diagnostics {

namespace {

constexpr int NameWidth = 10;
constexpr int MarkWidth = 14;

QString Indented(const QString& text) {
    return QString(NameWidth + MarkWidth, QLatin1Char(' ')) + text + QLatin1Char('\n');
}

QString Card(const QString& name, const QString& word, const StateText& text) {
    // A word that fills its column still stands apart from the sentence.
    const QString column = word.size() < MarkWidth ? word.leftJustified(MarkWidth) : word + QLatin1Char(' ');
    QString lines = name.leftJustified(NameWidth) + column + text.sentence + QLatin1Char('\n');
    if (!text.remedy.isEmpty()) {
        lines += Indented(QStringLiteral("> ") + text.remedy);
    }
    return lines;
}

QString LinkLines(const LinkCard& card) {
    QString lines = Card(NameOf(card.link), WordOf(card.text.mark), card.text);
    for (const Detail& detail : card.details) {
        lines += Indented(detail.label + QStringLiteral(": ") + detail.value);
    }
    return lines;
}

QString NeedleLines(const NeedleCard& card) {
    QString lines = Card(QStringLiteral("Needle %1").arg(card.number), card.word, card.text);
    if (card.figures) {
        lines += Indented(FiguresText(*card.figures));
    }
    return lines + Indented(QStringLiteral("Full %1, centre %2").arg(card.full, card.centre));
}

QString FirstLines(const Summary& summary) {
    const bool isNamed = summary.mark == Mark::NeedsYou;
    return summary.sentence + (isNamed ? QStringLiteral(": ") : QStringLiteral("\n")) + summary.second +
           QLatin1Char('\n');
}

}  // namespace

QString FiguresText(const CalibrationFigures& figures) {
    return QString::asprintf(
               "Lengths %.1f, %.1f, %.1f; angles %.1f, %.1f, %.1f; own marks %.1f; there and back %.0f; ",
               figures.lengthX, figures.lengthY, figures.lengthZ, figures.angleXY, figures.angleXZ,
               figures.angleYZ, figures.ownMarks, figures.thereAndBack) +
           (figures.isRightHanded ? QStringLiteral("right-handed") : QStringLiteral("left-handed"));
}

QString ReportOf(const Page& page) {
    QString report = FirstLines(SummaryOf(page));
    for (const LinkCard& card : page.links) {
        report += LinkLines(card);
    }
    for (const NeedleCard& card : page.needles) {
        report += NeedleLines(card);
    }
    report += QStringLiteral("Versions\n");
    for (const Detail& version : page.versions) {
        report += Indented(version.label + QStringLiteral(": ") + version.value);
    }
    report += QStringLiteral("End of the log\n");
    for (const QString& line : page.log) {
        report += Indented(line);
    }
    return report;
}

}  // namespace travo::diagnostics
