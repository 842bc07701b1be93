#include "diagnostics/words/Summary.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace travo::diagnostics {

namespace {

constexpr std::array<const char*, 11> Counts{"No",  "One",   "Two",   "Three", "Four", "Five",
                                             "Six", "Seven", "Eight", "Nine",  "Ten"};

// With commas and "and".
QString Joined(QStringList names) {
    if (names.size() < 2) {
        return names.join(QString());
    }
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

QStringList LinksWith(const Page& page, Mark mark) {
    QStringList names;
    for (const LinkCard& card : page.links) {
        if (card.text.mark == mark) {
            names << NameOf(card.link);
        }
    }
    return names;
}

QStringList NeedlesInNeed(const Page& page) {
    QStringList numbers;
    for (const NeedleCard& card : page.needles) {
        if (card.text.mark == Mark::NeedsYou) {
            numbers << QString::number(card.number);
        }
    }
    return numbers;
}

QString NamesInNeed(const QStringList& links, const QStringList& needles) {
    if (needles.isEmpty()) {
        return Joined(links);
    }
    const QString calibration =
        QStringLiteral("the calibration of %1 %2")
            .arg(needles.size() == 1 ? QStringLiteral("needle") : QStringLiteral("needles"), Joined(needles));
    return links.isEmpty() ? calibration
                           : links.join(QStringLiteral(", ")) + QStringLiteral(", and ") + calibration;
}

QStringList InTheMidst(const QStringList& names) {
    QStringList texts;
    for (const QString& name : names) {
        texts << QStringLiteral("the ") + name.toLower();
    }
    return texts;
}

QString SecondOf(const Page& page, const QStringList& notSetUp) {
    if (!page.isTravoRunning) {
        return QStringLiteral("TRAVO is not running: what needs an answer shows when it runs.");
    }
    if (notSetUp.isEmpty()) {
        return QStringLiteral("Looked at %1. Nothing on this page moves anything.").arg(page.lookedAt);
    }
    return QStringLiteral("Not set up: %1.").arg(Joined(notSetUp));
}

}  // namespace

QString NameOf(Link link) {
    constexpr std::array<const char*, 6> Names{"Mirror", "Gauge", "Motor", "Needles", "Camera", "Settings"};
    return QLatin1String(Names.at(static_cast<std::size_t>(link)));
}

Summary SummaryOf(const Page& page) {
    const QStringList links = LinksWith(page, Mark::NeedsYou);
    const QStringList needles = NeedlesInNeed(page);
    if (const auto count = static_cast<std::size_t>(links.size() + needles.size()); count > 0) {
        const QString things =
            count == 1 ? QStringLiteral("%1 thing needs you") : QStringLiteral("%1 things need you");
        return {Mark::NeedsYou, things.arg(QLatin1String(Counts.at(count))), NamesInNeed(links, needles)};
    }
    if (const QStringList waiting = LinksWith(page, Mark::Waiting); !waiting.isEmpty()) {
        return {Mark::Waiting, QStringLiteral("Waiting for ") + Joined(InTheMidst(waiting)),
                QStringLiteral("The verdict comes within two seconds.")};
    }
    const QStringList notSetUp = LinksWith(page, Mark::NotSetUp);
    const QString sentence = notSetUp.isEmpty() ? QStringLiteral("All six links work")
                                                : QStringLiteral("All that is set up works");
    return {Mark::Works, sentence, SecondOf(page, notSetUp)};
}

}  // namespace travo::diagnostics
