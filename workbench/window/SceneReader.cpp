#include "workbench/window/SceneReader.h"

#include <QDateTime>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <string_view>
#include <vector>

namespace workbench {

namespace {

// Walks through the words of an answer. A word that is missing or is no number spoils it for good.
class Answer {
public:
    explicit Answer(std::string_view text) : rest_(text) {
        if (Word() != "ok") {
            good_ = false;
        }
    }

    std::string_view Word() {
        const std::size_t begin = rest_.find_first_not_of(' ');
        if (begin == std::string_view::npos) {
            good_ = false;
            return {};
        }
        const std::size_t end = std::min(rest_.find(' ', begin), rest_.size());
        const std::string_view word = rest_.substr(begin, end - begin);
        rest_.remove_prefix(end);
        return word;
    }
    double Real() { return Number<double>(); }
    int Whole() { return Number<int>(); }
    std::int64_t Large() { return Number<std::int64_t>(); }
    bool Flag() { return Whole() != 0; }
    QPointF Plan() {
        const double x = Real();
        return {x, Real()};
    }
    Place Triple() {
        const QPointF plan = Plan();
        return {plan.x(), plan.y(), Real()};
    }
    bool AtEnd() const { return rest_.find_first_not_of(' ') == std::string_view::npos; }
    bool Good() const { return good_; }

private:
    template <typename Value>
    Value Number() {
        const std::string_view word = Word();
        Value value{};
        const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (failure != std::errc() || end != word.data() + word.size()) {
            good_ = false;
            return {};
        }
        return value;
    }

    std::string_view rest_;
    bool good_ = true;
};

// A blank and a slash stand in a record as escapes; all other escapes stay as a log has them.
std::string BytesOf(std::string_view text) {
    std::string bytes;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const std::string_view four = text.substr(place, 4);
        if (four == "\\x20" || four == "\\x2f") {
            bytes += four == "\\x20" ? ' ' : '/';
            place += 3;
        } else if (text.substr(place, 2) == "\\\\") {
            bytes += "\\\\";
            ++place;
        } else {
            bytes += text[place];
        }
    }
    return bytes;
}

// "12.345/mirror/in/cD2A94\r"
bool TakeRecord(std::vector<TrafficRecord>& records, std::string_view word) {
    const std::size_t first = word.find('/');
    const std::size_t second = word.find('/', first + 1);
    const std::size_t third = word.find('/', second + 1);
    if (first == std::string_view::npos || second == std::string_view::npos ||
        third == std::string_view::npos) {
        return false;
    }
    TrafficRecord record;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + first, record.time);
    if (failure != std::errc() || end != word.data() + first) {
        return false;
    }
    record.source = word.substr(first + 1, second - first - 1);
    record.kind = word.substr(second + 1, third - second - 1);
    record.bytes = BytesOf(word.substr(third + 1));
    records.push_back(std::move(record));
    return true;
}

void TakeTraffic(Scene& scene, Answer& answer) {
    scene.trafficNext = answer.Large();
    scene.trafficLost = answer.Large();
    while (answer.Good() && !answer.AtEnd()) {
        // A record that cannot be read is no reason to lose the others.
        TakeRecord(scene.traffic, answer.Word());
    }
}

void TakeCamera(Scene& scene, Answer& answer) {
    scene.view = answer.Plan();
    scene.magnification = answer.Whole();
    const double width = answer.Real();
    scene.field = {width, answer.Real()};
    scene.focus.z = answer.Real();
    const int needles = answer.Whole();
    for (int number = 1; answer.Good() && number <= needles; ++number) {
        const bool connected = answer.Flag();
        const Place tip = answer.Triple();
        const QPointF rear = answer.Plan();
        if (number <= static_cast<int>(scene.needles.size())) {
            SceneNeedle& needle = scene.needles[static_cast<std::size_t>(number - 1)];
            needle.connected = connected;
            needle.tip = tip;
            needle.rear = rear;
        }
    }
    scene.cells.resize(static_cast<std::size_t>(std::clamp(answer.Whole(), 0, 100)));
    for (SceneCell& cell : scene.cells) {
        cell.centre = answer.Triple();
        cell.radius = answer.Real();
    }
}

void TakeTip(Scene& scene, std::size_t needle, Answer& answer) {
    scene.needles[needle].tip = answer.Triple();
    scene.needles[needle].rest = answer.Triple();
}

void TakeMoving(Scene& scene, Answer& answer) {
    for (SceneNeedle& needle : scene.needles) {
        needle.moving = answer.Flag();
    }
}

void TakeCells(Scene& scene, Answer& answer) {
    for (std::size_t cell = 0; answer.Good() && !answer.AtEnd(); ++cell) {
        scene.cells.resize(std::max(scene.cells.size(), cell + 1));
        scene.cells[cell].mirrorX = answer.Whole();
        scene.cells[cell].mirrorY = answer.Whole();
        scene.cells[cell].centre = answer.Triple();
    }
}

void TakeCrossings(Scene& scene, Answer& answer) {
    scene.crossingsInAll = answer.Whole();
    answer.Whole();  // how many pairs are crossed now
    scene.crossings.clear();
    while (answer.Good() && !answer.AtEnd()) {
        SceneCrossing crossing;
        crossing.needleA = answer.Whole();
        crossing.needleB = answer.Whole();
        crossing.time = answer.Real();
        crossing.place = answer.Plan();
        scene.crossings.push_back(crossing);
    }
}

void TakeLanding(Scene& scene, Answer& answer) {
    SceneLanding landing;
    landing.count = answer.Whole();
    landing.worst = answer.Real();
    if (landing.count > 0 && answer.Good() && !answer.AtEnd()) {
        landing.needle = answer.Whole();
        landing.cell = answer.Whole();
        landing.distance = answer.Real();
        landing.height = answer.Real();
        landing.time = answer.Real();
        landing.centre = answer.Plan();
    }
    scene.landing = landing;
}

void TakeMirror(Scene& scene, Answer& answer) {
    scene.mirror.now = answer.Plan();
    scene.mirror.rest = answer.Plan();
    scene.mirror.motorsOn = answer.Flag();
    scene.mirror.limitX = answer.Flag();
    scene.mirror.limitY = answer.Flag();
}

void TakeFocus(Scene& scene, Answer& answer) {
    scene.focus.z = answer.Real();
    scene.focus.rest = answer.Real();
    scene.focus.counts = answer.Whole();
    scene.focus.countsAtRest = answer.Whole();
}

void TakeGauge(Scene& scene, Answer& answer) {
    scene.gauge = answer.Real();
    scene.gaugeZero = answer.Real();
}

void TakeWires(Scene& scene, Answer& answer) {
    scene.wires.clear();
    while (answer.Good() && !answer.AtEnd()) {
        SceneWire wire;
        wire.name = answer.Word();
        wire.port = answer.Word();
        wire.cableIn = answer.Flag();
        wire.open = answer.Flag();
        scene.wires.push_back(wire);
    }
}

template <typename Value>
std::map<std::string, Value> Named(Answer& answer) {
    std::map<std::string, Value> values;
    while (answer.Good() && !answer.AtEnd()) {
        const std::string name(answer.Word());
        values[name] = static_cast<Value>(answer.Large());
    }
    return values;
}

void TakeFaults(Scene& scene, Answer& answer) {
    scene.faults.clear();
    while (!answer.AtEnd()) {
        scene.faults.emplace_back(answer.Word());
    }
}

using Taker = void (*)(Scene&, Answer&);

const std::map<std::string_view, Taker>& Takers() {
    static const std::map<std::string_view, Taker> takers = {
        {"camera state", TakeCamera},
        {"camera running", [](Scene& scene, Answer& answer) { scene.cameraRunning = answer.Flag(); }},
        {"world tip 1", [](Scene& scene, Answer& answer) { TakeTip(scene, 0, answer); }},
        {"world tip 2", [](Scene& scene, Answer& answer) { TakeTip(scene, 1, answer); }},
        {"world tip 3", [](Scene& scene, Answer& answer) { TakeTip(scene, 2, answer); }},
        {"world tip 4", [](Scene& scene, Answer& answer) { TakeTip(scene, 3, answer); }},
        {"world moving", TakeMoving},
        {"world cells", TakeCells},
        {"world crossings", TakeCrossings},
        {"world landing", TakeLanding},
        {"mirror state", TakeMirror},
        {"magnification", [](Scene& scene, Answer& answer) { scene.magnification = answer.Whole(); }},
        {"focus state", TakeFocus},
        {"gauge state", TakeGauge},
        {"gauge keys", [](Scene& scene, Answer& answer) { scene.gaugeKeys = answer.Flag(); }},
        {"wire list", TakeWires},
        {"fault list", TakeFaults},
        {"fault left", [](Scene& scene, Answer& answer) { scene.faultsLeft = Named<int>(answer); }},
        {"hardware selected", [](Scene& scene, Answer& answer) { scene.selected = answer.Whole(); }},
        {"counters", [](Scene& scene, Answer& answer) { scene.counters = Named<std::int64_t>(answer); }},
    };
    return takers;
}

Taker TakerOf(std::string_view question) {
    if (question.starts_with("traffic ")) {
        return TakeTraffic;
    }
    if (question.starts_with("world counts ")) {
        return [](Scene& scene, Answer& answer) { scene.counts = answer.Triple(); };
    }
    const auto found = Takers().find(question);
    return found == Takers().end() ? nullptr : found->second;
}

// When the bench's time was 0, as time of the day.
void TakeClock(Scene& scene, const std::string& text) {
    Answer answer(text);
    const double milliseconds = answer.Real();
    if (answer.Good()) {
        scene.beganAt = QDateTime::currentMSecsSinceEpoch() - std::llround(milliseconds);
    }
}

}  // namespace

bool TakeAnswer(Scene& scene, const std::string& question, const std::string& text) {
    const Taker taker = TakerOf(question);
    if (taker == nullptr) {
        return false;
    }
    Answer answer(text);
    if (!answer.Good()) {
        return false;
    }
    Scene taken = scene;
    taker(taken, answer);
    if (!answer.Good()) {
        return false;
    }
    scene = std::move(taken);
    return true;
}

Scene ReadScene(const Ask& ask, const Scene& before) {
    static const std::vector<std::string> questions = {
        "camera state", "world tip 1",     "world tip 2",    "world tip 3",      "world tip 4",
        "world moving", "world crossings", "world landing",  "mirror state",     "magnification",
        "focus state",  "gauge state",     "gauge keys",     "wire list",        "fault list",
        "fault left",   "counters",        "camera running", "hardware selected"};
    Scene scene = before;
    scene.traffic.clear();
    scene.trafficLost = 0;
    if (scene.beganAt == 0) {
        TakeClock(scene, ask("world clock"));
    }
    if (scene.cells.empty()) {
        TakeAnswer(scene, "world cells", ask("world cells"));
    }
    for (const std::string& question : questions) {
        TakeAnswer(scene, question, ask(question));
    }
    for (const std::string& question :
         {"world counts " + std::to_string(scene.picked), "traffic " + std::to_string(scene.trafficNext)}) {
        TakeAnswer(scene, question, ask(question));
    }
    return scene;
}

}  // namespace workbench
