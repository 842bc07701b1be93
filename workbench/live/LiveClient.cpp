#include "workbench/live/LiveClient.h"

#include <locale>
#include <sstream>

#include "core/ground/Arithmetic.h"

namespace workbench::live {

bool LiveClient::Running() {
    std::string answer;
    return exchange_.Ask("state", ExchangeLimit, answer) == Exchange::Outcome::Answered;
}

LiveClient::State LiveClient::Now() {
    std::istringstream words(Ask("state"));
    words.imbue(std::locale::classic());
    State state;
    std::string name;
    words >> name >> state.visible >> name >> state.overlay >> name >> state.toldMagnification >> name >>
        state.action >> name >> state.attached >> name >> state.callers >> name >> state.saved;
    if (!words) {
        throw travo::NumberFailure("the camera program's answer is not understood");
    }
    return state;
}

std::map<std::string, std::int64_t> LiveClient::Counters() {
    std::istringstream words(Ask("counters"));
    words.imbue(std::locale::classic());
    std::map<std::string, std::int64_t> counters;
    std::string name;
    std::int64_t count = 0;
    while (words >> name >> count) {
        counters[name] = count;
    }
    return counters;
}

void LiveClient::Save() { Ask("save"); }

void LiveClient::Hide() { Ask("hide"); }

void LiveClient::Close() { Ask("close"); }

void LiveClient::Kill() { Ask("kill"); }

void LiveClient::Hang(double seconds) {
    std::ostringstream line;
    line.imbue(std::locale::classic());
    line << "hang " << seconds;
    Ask(line.str());
}

void LiveClient::Fail(std::int32_t calls) { Ask("fail " + std::to_string(calls)); }

std::string LiveClient::Ask(const std::string& line) {
    std::string answer;
    if (exchange_.Ask(line, ExchangeLimit, answer) != Exchange::Outcome::Answered) {
        throw travo::Failure("no camera program answers");
    }
    if (!answer.starts_with("ok")) {
        throw travo::Failure("the camera program refused \"" + line + "\": " + answer);
    }
    return answer.size() > 3 ? answer.substr(3) : std::string();
}

}  // namespace workbench::live
