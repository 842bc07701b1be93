#include "workbench/client/WorkbenchClient.h"

#include <thread>

#include "core/ground/Arithmetic.h"
#include "workbench/client/ClientText.h"

namespace workbench {

namespace {

constexpr std::chrono::milliseconds PollPause{5};

travo::PositionXYZ ReadCounts(const std::string& text) {
    AnswerReader reader(text);
    travo::PositionXYZ counts{};
    for (std::int32_t& count : counts) {
        count = reader.Next<std::int32_t>();
    }
    return counts;
}

// Asks again and again until it is so, or the limit has passed.
template <typename Condition>
bool WaitFor(std::chrono::milliseconds limit, Condition condition) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(PollPause);
    }
    return true;
}

}  // namespace

bool WorkbenchClient::WaitUntilReady(std::chrono::milliseconds limit) {
    return WaitFor(limit, [this] {
        std::string answer;
        return exchange_.Ask("ping", ExchangeLimit, answer) == Exchange::Outcome::Answered;
    });
}

WorkbenchClient::Tip WorkbenchClient::TipOf(std::int32_t needle) {
    AnswerReader reader(Ask(Request("world tip").With(needle).Line()));
    Tip tip;
    tip.now = reader.NextPlace<3>();
    tip.atRest = reader.NextPlace<3>();
    return tip;
}

travo::PositionXYZ WorkbenchClient::CountsOf(std::int32_t needle) {
    return ReadCounts(Ask(Request("world counts").With(needle).Line()));
}

travo::PositionXYZ WorkbenchClient::Aim(std::int32_t needle, const Place& place) {
    return ReadCounts(Ask(Request("world aim").With(needle).With(place).Line()));
}

void WorkbenchClient::Move(std::int32_t needle, const travo::PositionXYZ& counts) {
    Ask(Request("world move").With(needle).With(counts).Line());
}

void WorkbenchClient::Jog(std::int32_t needle, const travo::PositionXYZ& distance) {
    Ask(Request("world jog").With(needle).With(distance).Line());
}

bool WorkbenchClient::AnyNeedleMoves() { return Ask("world moving").find('1') != std::string::npos; }

bool WorkbenchClient::WaitForRest(std::chrono::milliseconds limit) {
    return WaitFor(limit, [this] { return !AnyNeedleMoves(); });
}

WorkbenchClient::Crossings WorkbenchClient::ShaftCrossings() {
    AnswerReader reader(Ask("world crossings"));
    Crossings crossings;
    crossings.inAll = reader.Next<std::int64_t>();
    crossings.pairsCrossedNow = reader.Next<std::int32_t>();
    while (!reader.AtEnd()) {
        Crossing crossing;
        crossing.needleA = reader.Next<std::int32_t>();
        crossing.needleB = reader.Next<std::int32_t>();
        crossing.milliseconds = reader.Next<double>();
        crossing.x = reader.Next<double>();
        crossing.y = reader.Next<double>();
        crossings.last.push_back(crossing);
    }
    return crossings;
}

void WorkbenchClient::ForgetCrossings() { Ask("world crossings forget"); }

std::vector<WorkbenchClient::Cell> WorkbenchClient::Cells() {
    AnswerReader reader(Ask("world cells"));
    std::vector<Cell> cells;
    while (!reader.AtEnd()) {
        Cell cell;
        cell.mirrorX = reader.Next<std::int32_t>();
        cell.mirrorY = reader.Next<std::int32_t>();
        cell.place = reader.NextPlace<3>();
        cells.push_back(cell);
    }
    return cells;
}

std::array<double, 2> WorkbenchClient::ViewCentre(double mirrorX, double mirrorY) {
    AnswerReader reader(Ask(Request("world view").With(mirrorX).With(mirrorY).Line()));
    std::array<double, 2> centre{};
    for (double& coordinate : centre) {
        coordinate = reader.Next<double>();
    }
    return centre;
}

void WorkbenchClient::FailDriverCalls(std::int32_t calls) {
    Ask(Request("fault driver fail").With(calls).Line());
}

void WorkbenchClient::FailDriverAlways() { Ask("fault driver fail always"); }

void WorkbenchClient::HangDriver(double seconds) { Ask(Request("fault driver hang").With(seconds).Line()); }

void WorkbenchClient::ChangeCount(std::int32_t count) { Ask(Request("fault count").With(count).Line()); }

void WorkbenchClient::StrayPosition(std::int32_t needle) { Ask(Request("fault range").With(needle).Line()); }

void WorkbenchClient::ClearFaults() { Ask("fault clear"); }

void WorkbenchClient::SelectAtHardware(std::int32_t needle) {
    Ask(Request("hardware select").With(needle).Line());
}

void WorkbenchClient::MountNeedle(std::int32_t needle, const Mount& mount) {
    Ask(Request("mount").With(needle).With(mount.heading).With(mount.yaw).With(mount.tilt).Line());
}

void WorkbenchClient::WriteSettings(const std::string& path) { Ask("write-settings " + path); }

std::map<std::string, std::int64_t> WorkbenchClient::Counters() {
    AnswerReader reader(Ask("counters"));
    std::map<std::string, std::int64_t> counters;
    while (!reader.AtEnd()) {
        const std::string name = reader.Next<std::string>();
        counters[name] = reader.Next<std::int64_t>();
    }
    return counters;
}

void WorkbenchClient::ForgetCounters() { Ask("counters forget"); }

void WorkbenchClient::Shutdown() { Ask("shutdown"); }

std::string WorkbenchClient::Ask(const std::string& line) {
    std::string answer;
    switch (exchange_.Ask(line, ExchangeLimit, answer)) {
        case Exchange::Outcome::NoWorkbench:
            throw travo::Failure("no workbench is running");
        case Exchange::Outcome::TimedOut:
            throw travo::Failure("the workbench does not answer");
        case Exchange::Outcome::Broken:
            throw travo::Failure("the workbench has gone");
        case Exchange::Outcome::Answered:
            break;
    }
    if (answer.starts_with("error ")) {
        throw travo::Failure("the workbench refused \"" + line + "\": " + answer.substr(6));
    }
    return answer.starts_with("ok ") ? answer.substr(3) : answer == "ok" ? std::string() : answer;
}

}  // namespace workbench
