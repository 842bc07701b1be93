#include "workbench/window/WireWords.h"

#include <QStringList>
#include <array>
#include <cmath>

#include "workbench/window/BenchText.h"

namespace workbench {

namespace {

constexpr double MotorCountsPerUnit = 100.0;
constexpr double GaugeReadingPerUnit = 1000.0;
constexpr int StatusFields = 8;

struct Pair {
    const char* line;
    const char* text;
};

template <std::size_t Size>
std::optional<QString> Found(const std::array<Pair, Size>& pairs, const QString& line) {
    for (const Pair& pair : pairs) {
        if (line == QLatin1String(pair.line)) {
            return QString::fromUtf8(pair.text);
        }
    }
    return {};
}

// The whole number behind the first letters of a line.
std::optional<int> NumberBehind(const QString& line, const QString& letters) {
    bool good = false;
    const int number = line.mid(letters.size()).toInt(&good);
    return good && line.startsWith(letters) ? std::optional(number) : std::nullopt;
}

QString Whole(int number) { return NumberText(number, 0); }

// As few places as a count of the motor needs: "10", "10.5".
QString Units(int counts) {
    const int places = counts % 100 == 0 ? 0 : (counts % 10 == 0 ? 1 : 2);
    return NumberText(std::abs(counts) / MotorCountsPerUnit, places);
}

QString OnOff(const char* what, int number) {
    return QLatin1String(what) + (number == 0 ? QStringLiteral(" off") : QStringLiteral(" on"));
}

// The error numbers of the mirror controller, 1 to 8, as they are shown to the operator.
QString ErrorText(int number) {
    static const std::array<const char*, 8> texts = {"command error",
                                                     "parametar error",
                                                     "timeout error",
                                                     "reception buffer overflow",
                                                     "PCL error",
                                                     "command overflow",
                                                     "processing prohibition error",
                                                     "unknown error"};
    const QString refused = QStringLiteral("refused: error %1").arg(Whole(number));
    return number < 1 || number > 8
               ? refused
               : refused + QStringLiteral(", ") + QLatin1String(texts[static_cast<std::size_t>(number - 1)]);
}

std::optional<QString> StatusText(const QString& value) {
    const QStringList fields = value.split(QLatin1Char(','));
    std::array<int, StatusFields> numbers{};
    if (fields.size() != StatusFields) {
        return {};
    }
    for (int field = 0; field < StatusFields; ++field) {
        bool good = false;
        numbers[static_cast<std::size_t>(field)] = fields[field].toInt(&good);
        if (!good) {
            return {};
        }
    }
    QStringList parts = {Whole(numbers[0]), Whole(numbers[1]), ObjectiveText(numbers[4]),
                         OnOff("motors", numbers[3])};
    if (numbers[6] != 0) {
        parts += QStringLiteral("limit X");
    }
    if (numbers[5] != 0) {
        parts += QStringLiteral("limit Y");
    }
    return QStringLiteral("status: ") + parts.join(QStringLiteral(", "));
}

std::optional<QString> AskedText(const QString& command, const QString& value) {
    bool good = false;
    const int number = value.toInt(&good);
    if (command == QLatin1String("PNM")) {
        return QStringLiteral("program name %1").arg(value);
    }
    if (!good) {
        return {};
    }
    if (command == QLatin1String("D2R")) {
        return QStringLiteral("X is %1").arg(Whole(number));
    }
    if (command == QLatin1String("D1R")) {
        return QStringLiteral("Y is %1").arg(Whole(number));
    }
    if (command == QLatin1String("MGR") && number >= 0 && number <= 3) {
        return QStringLiteral("magnification %1").arg(ObjectiveText(number));
    }
    if (command == QLatin1String("PMR")) {
        return OnOff("motors", number);
    }
    if (command == QLatin1String("WER")) {
        return number == 0 ? QStringLiteral("Ergo unit free") : QStringLiteral("Ergo unit locked");
    }
    return {};
}

std::optional<QString> ArrivedText(const QString& command) {
    static constexpr std::array<Pair, 7> done = {{{"D2A", "X has arrived"},
                                                  {"D1A", "Y has arrived"},
                                                  {"MAG", "done"},
                                                  {"PMS", "done"},
                                                  {"SAS", "done"},
                                                  {"WES", "done"},
                                                  {"ZEN", "done"}}};
    return Found(done, command);
}

}  // namespace

QString ObjectiveText(int magnification) {
    static const std::array<const char*, 4> texts = {"between two objectives", "0.35×", "2×", "4×"};
    return magnification < 0 || magnification > 3
               ? QString()
               : QString::fromUtf8(texts[static_cast<std::size_t>(magnification)]);
}

std::optional<QString> MirrorCommandText(const QString& line) {
    static constexpr std::array<Pair, 6> questions = {{{"rD2R", "where is X?"},
                                                       {"rD1R", "where is Y?"},
                                                       {"rMGR", "which magnification?"},
                                                       {"rPMR", "motors on?"},
                                                       {"rWER", "Ergo unit locked?"},
                                                       {"rPNM", "program name?"}}};
    if (const auto question = Found(questions, line)) {
        return question;
    }
    if (const auto x = NumberBehind(line, QStringLiteral("cD2A"))) {
        return QStringLiteral("tilt X to %1").arg(Whole(*x));
    }
    if (const auto y = NumberBehind(line, QStringLiteral("cD1A"))) {
        return QStringLiteral("tilt Y to %1").arg(Whole(*y));
    }
    const auto index = NumberBehind(line, QStringLiteral("cMAG"));
    if (index.has_value() && *index >= 0 && *index <= 3) {
        return QStringLiteral("magnification %1").arg(ObjectiveText(*index));
    }
    if (const auto motors = NumberBehind(line, QStringLiteral("cPMS"))) {
        return OnOff("motors", *motors);
    }
    if (const auto lines = NumberBehind(line, QStringLiteral("cSAS"))) {
        return OnOff("status lines", *lines);
    }
    return {};
}

std::optional<QString> MirrorAnswerText(const QString& line) {
    if (line.size() < 4) {
        return {};
    }
    const QString command = line.mid(1, 3);
    const QString value = line.mid(4);
    switch (line[0].unicode()) {
        case 'q':
            return ArrivedText(command).has_value() ? std::optional(QStringLiteral("taken")) : std::nullopt;
        case 'o':
            return ArrivedText(command);
        case 'a':
            return AskedText(command, value);
        case 's':
            return command == QLatin1String("SAA") ? StatusText(value) : std::nullopt;
        case 'n': {
            bool good = false;
            const int number = value.toInt(&good);
            return good ? std::optional(ErrorText(number)) : std::nullopt;
        }
        default:
            return {};
    }
}

std::optional<QString> MotorCommandText(const QString& line) {
    static constexpr std::array<Pair, 6> words = {{{"HALT", "stop"},
                                                   {"ZERO", "here is 0"},
                                                   {"ZE", "here is 0"},
                                                   {"WHEREZ", "where is Z?"},
                                                   {"WZ", "where is Z?"},
                                                   {"WHO", "who are you?"}}};
    if (const auto word = Found(words, line)) {
        return word;
    }
    for (const char* letters : {"RELMOVEZ", "RZ"}) {
        if (const auto counts = NumberBehind(line, QLatin1String(letters))) {
            return (*counts < 0 ? QStringLiteral("focus down by %1") : QStringLiteral("focus up by %1"))
                .arg(Units(*counts));
        }
    }
    for (const char* letters : {"MOVEZ", "MZ"}) {
        if (const auto counts = NumberBehind(line, QLatin1String(letters))) {
            return QStringLiteral("focus to %1").arg(Whole(*counts));
        }
    }
    return {};
}

std::optional<QString> MotorAnswerText(const QString& line) {
    if (line == QLatin1String("N")) {
        return QStringLiteral("refused");
    }
    if (line == QLatin1String("A")) {
        return QStringLiteral("done");
    }
    if (line == QLatin1String("ARemote Drive Accessory")) {
        return line.mid(1);
    }
    const auto z = NumberBehind(line, QStringLiteral("A"));
    return z.has_value() ? std::optional(QStringLiteral("Z is %1").arg(Whole(*z))) : std::nullopt;
}

std::optional<QString> GaugeCommandText(const QString& line) {
    static constexpr std::array<Pair, 4> words = {{{"Ar", "asks for a reading"},
                                                   {"ARES", "gauge to zero"},
                                                   {"KEYOFF", "keys locked"},
                                                   {"KEYON", "keys free"}}};
    return Found(words, line);
}

std::optional<QString> GaugeAnswerText(const QString& line) {
    constexpr qsizetype length = 8;  // an A, a sign, and "NN.NNN"
    bool good = false;
    const double units = line.mid(1).toDouble(&good);
    if (!good || line.size() != length || line[0] != QLatin1Char('A')) {
        return {};
    }
    return QStringLiteral("reading %1").arg(NumberText(units * GaugeReadingPerUnit, 0));
}

}  // namespace workbench
