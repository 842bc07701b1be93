#include "workbench/window/WireReader.h"

#include <QStringList>
#include <optional>

#include "workbench/window/BenchText.h"
#include "workbench/window/WireWords.h"

namespace workbench {

namespace {

QString NotKnown() { return QStringLiteral("not known"); }

// What a log writes for CR and LF, at the end of a record.
QString WithoutLineEnds(QString bytes) {
    while (bytes.endsWith(QLatin1String("\\r")) || bytes.endsWith(QLatin1String("\\n"))) {
        bytes.chop(2);
    }
    return bytes;
}

WireMeaning Event(const QString& bytes, const QString& text, bool bad) {
    WireMeaning meaning;
    meaning.bytes = bytes;
    meaning.text = text;
    meaning.bad = bad;
    return meaning;
}

QString RefusedStatus(int status) {
    const QString refused = QStringLiteral("refused: status %1").arg(NumberText(status, 0));
    switch (status) {
        case -1:
            return refused + QStringLiteral(", made to fail");
        case -2:
            return refused + QStringLiteral(", not connected");
        case -3:
            return refused + QStringLiteral(", a target outside 0 to 25000");
        default:
            return refused;
    }
}

QString CallText(const QString& name, const QStringList& call, const QStringList& answer) {
    if (name == QLatin1String("getposition") && answer.size() == 5) {
        return QStringList(answer.mid(2)).join(QLatin1Char(' '));
    }
    if (name == QLatin1String("getcount") && answer.size() == 2) {
        return QStringLiteral("%1 connected").arg(answer[1]);
    }
    if (name == QLatin1String("reconnect") && answer.size() == 1) {
        return QStringLiteral("status %1").arg(answer[0]);
    }
    if (name == QLatin1String("select") && call.size() == 2 && answer.size() == 2) {
        return QStringLiteral("needle %1, answer %2").arg(call[1], answer[1]);
    }
    if (name == QLatin1String("moveto") && answer.size() == 3) {
        return QStringLiteral("needle %1, %2 s to go").arg(answer[1], NumberText(answer[2].toDouble()));
    }
    return NotKnown();
}

// "moveto 9900 12500 12500 = 0 2 0.100"
WireMeaning CallMeaning(const QString& bytes) {
    WireMeaning meaning;
    const QString divider = QStringLiteral(" = ");
    const qsizetype place = bytes.indexOf(divider);
    meaning.bytes = place < 0 ? bytes : bytes.left(place);
    const QStringList call = meaning.bytes.split(QLatin1Char(' '));
    const QStringList answer =
        place < 0 ? QStringList() : bytes.mid(place + divider.size()).split(QLatin1Char(' '));
    bool good = false;
    const int status = answer.isEmpty() ? 0 : answer[0].toInt(&good);
    const QString& name = call[0];
    meaning.refusal = good && status < 0;
    meaning.bad = meaning.refusal;
    meaning.text =
        !good ? NotKnown() : (meaning.refusal ? RefusedStatus(status) : CallText(name, call, answer));
    if (name == QLatin1String("getposition") || name == QLatin1String("getcount")) {
        meaning.question = QStringLiteral("driver:") + name;
        // Another needle is another kind: its counts are no newer value of these.
        meaning.kind = answer.size() == 5 ? answer[1] : QString();
        meaning.asks = true;
        meaning.answers = true;
    }
    return meaning;
}

WireMeaning WorldMeaning(const QString& bytes) {
    const QStringList words = bytes.split(QLatin1Char(' '));
    if (words[0] == QLatin1String("crossing") && words.size() == 5) {
        return Event(words[0],
                     QStringLiteral("shafts %1 and %2 met at X %3, Y %4")
                         .arg(words[1], words[2], NumberText(words[3].toDouble(), 0),
                              NumberText(words[4].toDouble(), 0)),
                     true);
    }
    if (words[0] == QLatin1String("arrived") && words.size() == 5) {
        const QString from = words[2] == QLatin1String("0") ? QStringLiteral("the centre of the view")
                                                            : QStringLiteral("cell %1").arg(words[2]);
        return Event(words[0],
                     QStringLiteral("needle %1 landed %2 from %3")
                         .arg(words[1], NumberText(words[3].toDouble()), from),
                     false);
    }
    if (words[0] == QLatin1String("arrived") && words.size() == 2) {
        return Event(words[0], QStringLiteral("needle %1 has arrived").arg(words[1]), false);
    }
    return Event(bytes, NotKnown(), false);
}

// The port was opened or shut, the cable pulled out or plugged in.
WireMeaning NoteMeaning(const QString& bytes) {
    if (bytes == QLatin1String("open")) {
        return Event(bytes, QStringLiteral("the port was opened"), false);
    }
    if (bytes == QLatin1String("shut")) {
        return Event(bytes, QStringLiteral("the port was shut"), false);
    }
    if (bytes == QLatin1String("cable out")) {
        return Event(bytes, QStringLiteral("the cable was pulled out: fault Cable out"), true);
    }
    if (bytes == QLatin1String("cable in")) {
        return Event(bytes, QStringLiteral("the cable was plugged in"), false);
    }
    return Event(bytes, NotKnown(), false);
}

bool IsReading(const QString& line) { return GaugeAnswerText(line).has_value(); }

// What tells one held back answer from another, so that a silent poll fills one line and not the list.
QString KindOfSilence(const QString& line) {
    return IsReading(line) || line.startsWith(QLatin1String("sSAA")) ? line.left(1) : line;
}

WireMeaning FaultMeaning(const std::string& source, const QString& bytes) {
    const QString name = bytes.section(QLatin1Char(' '), 0, 0);
    const QString line = WithoutLineEnds(bytes.section(QLatin1Char(' '), 1));
    const QString whole = line.isEmpty() ? name : name + QLatin1Char(' ') + line;
    if (name == QLatin1String("silent")) {
        WireMeaning meaning = Event(whole, QStringLiteral("the answer is held back: fault Silent"), true);
        meaning.question = QString::fromStdString(source) + QStringLiteral(":silent");
        meaning.kind = KindOfSilence(line);
        meaning.answers = true;
        return meaning;
    }
    if (name == QLatin1String("garbled")) {
        return Event(whole, QStringLiteral("one byte of this line was changed: fault Garble"), true);
    }
    if (name == QLatin1String("cut")) {
        return Event(whole, QStringLiteral("the end of this line was lost: fault Cut"), true);
    }
    if (name == QLatin1String("noise")) {
        return Event(whole, QStringLiteral("%1 bytes of any value: fault Noise").arg(line), true);
    }
    if (name == QLatin1String("flood")) {
        return Event(whole, QStringLiteral("%1 lines that nobody asked for: fault Flood").arg(line), true);
    }
    return Event(bytes, NotKnown(), false);
}

std::optional<QString> LineText(const TrafficRecord& record, const QString& line) {
    const bool toInstrument = record.kind == "in";
    if (record.source == "mirror") {
        if (!toInstrument && record.kind != "out") {
            // A line of the Ergo unit, alone or in one write with a status line.
            const auto ergo = MotorCommandText(line);
            return ergo.has_value() ? ergo : MirrorAnswerText(line);
        }
        return toInstrument ? MirrorCommandText(line) : MirrorAnswerText(line);
    }
    if (record.source == "motor") {
        return toInstrument ? MotorCommandText(line) : MotorAnswerText(line);
    }
    return toInstrument ? GaugeCommandText(line) : GaugeAnswerText(line);
}

// A status line is of one kind while all but the place stays as it is.
QString KindOfStatus(const QString& line) { return line.section(QLatin1Char(','), 2); }

WireMeaning LineMeaning(const TrafficRecord& record, const QString& bytes) {
    WireMeaning meaning;
    meaning.bytes = WithoutLineEnds(bytes);
    const auto text = LineText(record, meaning.bytes);
    meaning.text = text.value_or(NotKnown());
    const bool fromInstrument = record.kind != "in";
    meaning.refusal = fromInstrument && text.has_value() && text->startsWith(QLatin1String("refused"));
    meaning.bad = fromInstrument && (meaning.refusal || !text.has_value());
    if (record.source == "gauge" && (meaning.bytes == QLatin1String("Ar") || fromInstrument)) {
        meaning.question = QStringLiteral("gauge:Ar");
        meaning.kind = text.has_value() ? QString() : NotKnown();
        meaning.asks = !fromInstrument;
        meaning.answers = fromInstrument;
    } else if (record.kind == "out" && meaning.bytes.startsWith(QLatin1String("sSAA"))) {
        meaning.question = QStringLiteral("mirror:status");
        meaning.kind = KindOfStatus(meaning.bytes);
        meaning.answers = true;
    }
    return meaning;
}

}  // namespace

Way WayOf(const TrafficRecord& record) {
    if (record.kind == "in" || record.kind == "call") {
        return Way::ToInstrument;
    }
    return record.kind == "note" || record.kind == "event" ? Way::Event : Way::FromInstrument;
}

WireMeaning MeaningOf(const TrafficRecord& record) {
    const QString bytes = QString::fromStdString(record.bytes);
    if (record.source == "driver") {
        return CallMeaning(bytes);
    }
    if (record.source == "world") {
        return WorldMeaning(bytes);
    }
    if (record.kind == "note") {
        return NoteMeaning(bytes);
    }
    return record.kind == "event" ? FaultMeaning(record.source, bytes) : LineMeaning(record, bytes);
}

bool TouchesNext(const TrafficRecord& record) {
    return record.kind == "event" && (record.bytes.starts_with("garbled") || record.bytes.starts_with("cut"));
}

}  // namespace workbench
