#include "diagnostics/readers/DriverReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <array>

#include "diagnostics/readers/ElfSymbols.h"

namespace travo::diagnostics {

namespace {

// In the order in which TRAVO looks for them.
constexpr std::array<const char*, 5> Functions{"DriverGetPosition", "DriverMoveTo", "DriverSelect",
                                               "DriverGetCount", "DriverReconnect"};
constexpr int LoaderLimit = 5000;  // ms

// What the system's loader misses, of what it prints for a library; the first of all.
QString MissedIn(const QString& printed) {
    for (const QString& line : printed.split(QLatin1Char('\n'))) {
        const QString text = line.simplified();
        if (text.endsWith(QStringLiteral("=> not found"))) {
            return QStringLiteral("%1 is not found").arg(text.section(QLatin1Char(' '), 0, 0));
        }
        if (text.startsWith(QStringLiteral("undefined symbol: "))) {
            return text.section(QLatin1Char('\t'), 0, 0).section(QLatin1String(" ("), 0, 0);
        }
    }
    return {};
}

// Empty where nothing is missed, and where the system has no such tool.
QString WhatLoaderMisses(const QString& file) {
    QProcess loader;
    QProcessEnvironment plain = QProcessEnvironment::systemEnvironment();
    plain.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    loader.setProcessEnvironment(plain);
    loader.setProcessChannelMode(QProcess::MergedChannels);
    loader.start(QStringLiteral("ldd"), {QStringLiteral("-r"), file});
    if (!loader.waitForFinished(LoaderLimit)) {
        loader.kill();
        loader.waitForFinished(LoaderLimit);
        return {};
    }
    return MissedIn(QString::fromLocal8Bit(loader.readAll()));
}

NeedlesState StateOf(const DriverFacts& facts, bool isTravoRunning) {
    if (!facts.isThere) {
        return NeedlesState::File;
    }
    if (!facts.loadFailure.isEmpty()) {
        return NeedlesState::Load;
    }
    if (!facts.missingSymbol.isEmpty()) {
        return NeedlesState::Symbol;
    }
    return isTravoRunning ? NeedlesState::Held : NeedlesState::FileOk;
}

}  // namespace

DriverFacts ReadDriver(const QString& programFolder) {
    DriverFacts facts;
    facts.file = QDir(programFolder).absoluteFilePath(QStringLiteral("libManipulatorDriver.so"));
    const QFileInfo there(facts.file);
    facts.isThere = there.exists() && !there.isDir();
    if (!facts.isThere) {
        return facts;
    }
    QFile file(facts.file);
    // A pipe or a device in its place would be waited for.
    if (!there.isFile() || !file.open(QIODevice::ReadOnly)) {
        facts.loadFailure = QStringLiteral("it cannot be read");
        return facts;
    }
    const auto symbols = OfferedSymbols(file.readAll());
    if (!symbols) {
        facts.loadFailure = QStringLiteral("it is no library for this machine");
        return facts;
    }
    facts.loadFailure = WhatLoaderMisses(facts.file);
    for (const char* const function : Functions) {
        if (facts.missingSymbol.isEmpty() && !symbols->contains(function)) {
            facts.missingSymbol = QLatin1String(function);
        }
    }
    return facts;
}

LinkCard NeedlesCard(const DriverFacts& facts, bool isTravoRunning, const Discretion& discretion) {
    const StateText text = Filled(TextOf(StateOf(facts, isTravoRunning)),
                                  {{"FOLDER", discretion.Cleaned(QFileInfo(facts.file).path())},
                                   {"REASON", discretion.Cleaned(facts.loadFailure)},
                                   {"SYMBOL", facts.missingSymbol}});
    LinkCard card{Link::Needles, text, {{QStringLiteral("File"), discretion.Cleaned(facts.file)}}};
    if (facts.isThere && facts.loadFailure.isEmpty()) {
        const QString first = facts.missingSymbol.isEmpty()
                                  ? QStringLiteral("all five functions")
                                  : facts.missingSymbol + QStringLiteral(" is missing");
        card.details.push_back({QStringLiteral("Functions"), first});
    }
    return card;
}

}  // namespace travo::diagnostics
