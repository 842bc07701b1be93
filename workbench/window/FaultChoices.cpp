// The other numbers of the faults.
#include <array>
#include <functional>
#include <map>
#include <utility>

#include "workbench/window/FaultTable.h"

namespace workbench {

namespace {

using Choices = std::vector<FaultChoice>;

QString Number(int number) { return QString::number(number); }

FaultChoice Plain(const QString& menu, const QString& text, const QString& textIsOn, const std::string& on) {
    return {{}, menu, text, textIsOn, on};
}

// How many commands, lines or calls a fault is for.
struct Times {
    const char* menu;
    const char* behind;  // the chip's text
    const char* word;    // of the line
};
constexpr Times Once{"Once", "", "1"};
constexpr Times Thrice{"Three times", " ×3", "3"};
constexpr Times Always{"Always", " ×∞", "always"};

// One number each, as "fault mirror noise 20".
Choices Numbered(const Fault& fault, const std::vector<int>& numbers, const char* unit) {
    const std::string words = fault.on.substr(0, fault.on.rfind(' ') + 1);
    Choices choices;
    for (const int number : numbers) {
        const QString text = fault.text + QLatin1Char(' ') + Number(number);
        choices.push_back(Plain(Number(number) + QString::fromUtf8(unit), text,
                                fault.numbers == "garble" ? fault.text : text,
                                words + std::to_string(number)));
    }
    return choices;
}

Choices Errors(const Fault&) {
    Choices choices;
    for (int error = 1; error <= 8; ++error) {
        const QString text = QStringLiteral("Error ") + Number(error);
        for (const Times& times : {Once, Thrice, Always}) {
            choices.push_back({text, QString::fromUtf8(times.menu), text + QString::fromUtf8(times.behind),
                               text, "fault mirror error " + std::to_string(error) + ' ' + times.word});
        }
    }
    return choices;
}

Choices Fields(const Fault&) {
    Choices choices;
    for (const int fields : {0, 7, 9, 100}) {
        const QString text = Number(fields) + QStringLiteral(" fields");
        for (const Times& times : {Once, Always}) {
            choices.push_back({text, QString::fromUtf8(times.menu), text + QString::fromUtf8(times.behind),
                               text, "fault mirror fields " + std::to_string(fields) + ' ' + times.word});
        }
    }
    return choices;
}

Choices Refusals(const Fault& fault) {
    Choices choices;
    for (const Times& times : {Once, Thrice, Always}) {
        choices.push_back(Plain(QString::fromUtf8(times.menu), fault.text + QString::fromUtf8(times.behind),
                                fault.text, std::string("fault motor refuse ") + times.word));
    }
    return choices;
}

// Any call, or those of one name.
Choices Failures(const std::vector<Times>& often, const QString& textOfAny) {
    constexpr std::array<const char*, 5> Calls{"getposition", "moveto", "select", "getcount", "reconnect"};
    Choices choices;
    for (const Times& times : often) {
        const QString group = often.size() == 1 ? QString() : QString::fromUtf8(times.menu);
        const QString behind = often.size() == 1 ? QString() : QString::fromUtf8(times.behind);
        const QString any = behind.isEmpty() ? textOfAny : QStringLiteral("Fails") + behind;
        const std::string line = std::string("fault driver fail ") + times.word;
        choices.push_back({group, QStringLiteral("Any call"), any, QStringLiteral("Fails"), line});
        for (const char* call : Calls) {
            const QString name = QString::fromLatin1(call);
            choices.push_back({group, name, name + behind, name, line + ' ' + call});
        }
    }
    return choices;
}

Choices Hangs(const Fault& fault) {
    const std::string words = fault.on.substr(0, fault.on.rfind(' ') + 1);
    Choices choices;
    for (const int seconds : {1, 3, 10, 60}) {
        const QString text = QStringLiteral("Hangs %1 s").arg(seconds);
        choices.push_back(
            Plain(QStringLiteral("%1 s").arg(seconds), text, text, words + std::to_string(seconds)));
    }
    return choices;
}

Choices Counts(const Fault&) {
    constexpr std::array<const char*, 4> Texts{"No needle", "1 needle", "2 needles", "3 needles"};
    Choices choices;
    for (std::size_t count = 0; count < Texts.size(); ++count) {
        const QString text = QString::fromLatin1(Texts.at(count));
        choices.push_back(Plain(text, text, text, "fault count " + std::to_string(count)));
    }
    return choices;
}

Choices Ranges(const Fault&) {
    Choices choices;
    for (int needle = 1; needle <= 4; ++needle) {
        const QString text = QStringLiteral("Range ") + Number(needle);
        choices.push_back(Plain(QStringLiteral("Needle ") + Number(needle), text, text,
                                "fault range " + std::to_string(needle)));
    }
    return choices;
}

Choices CameraFailures(const Fault&) {
    return {Plain(QStringLiteral("Once"), QStringLiteral("Fails once"), {}, "camera fail 1"),
            Plain(QStringLiteral("Three times"), QStringLiteral("Fails ×3"), {}, "camera fail 3")};
}

const std::map<std::string, std::function<Choices(const Fault&)>>& Kinds() {
    static const std::map<std::string, std::function<Choices(const Fault&)>> kinds{
        {"noise",
         [](const Fault& fault) {
             return Numbered(fault, {1, 20, 1000}, " bytes");
         }},
        {"garble",
         [](const Fault& fault) {
             return Numbered(fault, {1, 10, 100}, " lines");
         }},
        {"cut",
         [](const Fault& fault) {
             return Numbered(fault, {0, 1, 2, 3, 4, 5, 6, 7, 8}, " bytes");
         }},
        {"flood",
         [](const Fault& fault) {
             return Numbered(fault, {10, 200, 2000}, " lines");
         }},
        {"error", Errors},
        {"fields", Fields},
        {"refuse", Refusals},
        {"fail",
         [](const Fault& fault) {
             return Failures({Once, Thrice}, fault.text);
         }},
        {"always", [](const Fault& fault) { return Failures({Always}, fault.text); }},
        {"hang", Hangs},
        {"count", Counts},
        {"range", Ranges},
        {"cameraHang", Hangs},
        {"cameraFail", CameraFailures}};
    return kinds;
}

}  // namespace

std::vector<FaultChoice> ChoicesOf(const Fault& fault) {
    const auto kind = Kinds().find(fault.numbers);
    return kind == Kinds().end() ? Choices{} : kind->second(fault);
}

}  // namespace workbench
