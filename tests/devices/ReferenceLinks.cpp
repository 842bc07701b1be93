#include "devices/ReferenceLinks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace travo::test {

namespace {

// An optional minus and digits whose value lies within the limits.
std::optional<std::int64_t> Number(const std::string& text, std::int64_t lowest, std::int64_t highest) {
    const bool negative = !text.empty() && text[0] == '-';
    const std::string digits = negative ? text.substr(1) : text;
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char digit : digits) {
        value = std::min<std::int64_t>(value * 10 + (digit - '0'), 10000000000);
    }
    value = negative ? -value : value;
    return value < lowest || value > highest ? std::nullopt : std::optional(value);
}

std::optional<std::int64_t> Number32(const std::string& text) { return Number(text, INT32_MIN, INT32_MAX); }
std::optional<std::int64_t> Number16(const std::string& text) { return Number(text, INT16_MIN, INT16_MAX); }

std::vector<std::string> Split(const std::string& text) {
    std::vector<std::string> fields(1);
    for (const char character : text) {
        if (character == ',') {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

bool BeginsForMotor(const std::string& text) {
    const std::string begin = text.substr(0, 2);
    return begin == "RZ" || begin == "MZ" || begin == "RE" || begin == "WZ" || begin == "ZE";
}

bool IsReading(const std::string& seven) {
    const std::size_t start = seven[0] == '+' || seven[0] == '-' ? 1 : 0;
    int points = 0;
    int digits = 0;
    for (std::size_t place = start; place < seven.size(); ++place) {
        if (seven[place] == '.') {
            ++points;
        } else if (seven[place] >= '0' && seven[place] <= '9') {
            ++digits;
        } else {
            return false;
        }
    }
    return points <= 1 && digits > 0;
}

}  // namespace

void ReferenceMirror::Receive(const std::string& bytes, int) {
    if (!bytes.empty()) {
        DivideReceivedLines(bytes);
    }
}

void ReferenceMirror::DivideReceivedLines(std::string text) {
    if (!PendingText_.empty()) {
        text = PendingText_ + text;
        PendingText_.clear();
    }
    std::size_t place = 0;
    for (;;) {
        const std::size_t lineEnd = text.find("\r\n", place);
        if (lineEnd != std::string::npos) {
            ParseReceivedLine(text.substr(place, lineEnd - place));
            place = lineEnd + 2;
            continue;
        }
        const std::size_t carriageReturn = text.find('\r', place);
        if (carriageReturn == std::string::npos) {
            break;
        }
        const std::string candidate = text.substr(place, carriageReturn - place);
        if (!BeginsForMotor(candidate)) {
            break;
        }
        events_.Tell("ergo " + candidate);
        place = carriageReturn + 1;
    }
    if (place < text.size()) {
        PendingText_ = text.substr(place);
    }
}

void ReferenceMirror::ParseReceivedLine(const std::string& line) {
    if (line == LastLine_) {
        return;
    }
    LastLine_ = line;
    if (line.size() >= 4 && !Act(line, line.substr(4))) {
        Error(line, line.substr(4));
    }
}

// False where the line cannot be taken.
bool ReferenceMirror::Act(const std::string& line, const std::string& value) {
    const std::string command = line.substr(1, 3);
    if (line[0] == 'q' || line[0] == 'o') {
        return true;
    }
    if (line[0] == 'n') {
        return command == "ZEN";
    }
    if (line[0] == 's') {
        return command != "SAA" || Status(value);
    }
    const std::vector<std::pair<std::string, std::string>> answers{
        {"D2R", "X "}, {"D1R", "Y "}, {"MGR", "magnification "}, {"PMR", "motor "}};
    for (const auto& [known, event] : answers) {
        if (command == known) {
            const auto number = command[0] == 'D' ? Number32(value) : Number16(value);
            if (!number) {
                return false;
            }
            events_.Tell(event + std::to_string(*number));
        }
    }
    return true;
}

bool ReferenceMirror::Status(const std::string& value) {
    const std::vector<std::string> field = Split(value);
    if (field.size() < 8) {
        return false;
    }
    const auto magnification = Number16(field[4]);
    if (!magnification) {
        return false;
    }
    events_.Tell("magnification " + std::to_string(*magnification));
    const auto x = Number32(field[0]);
    const auto y = Number32(field[1]);
    if (!x || !y) {
        return false;
    }
    events_.Tell("XY " + std::to_string(*x) + " " + std::to_string(*y));
    const auto motor = Number16(field[3]);
    if (!motor) {
        return false;
    }
    events_.Tell("motor " + std::to_string(*motor));
    return Limit(field[5], LimitYShown_, "Movement limit Y") &&
           Limit(field[6], LimitXShown_, "Movement limit X");
}

bool ReferenceMirror::Limit(const std::string& field, bool& shown, const std::string& text) {
    const auto flag = Number32(field);
    if (!flag) {
        return false;
    }
    if (*flag == 0) {
        shown = false;
    } else if (!shown) {
        events_.Tell("box " + text);
        shown = true;
    }
    return true;
}

void ReferenceMirror::Error(const std::string& line, const std::string& value) {
    const char* const texts[] = {"Command Error",
                                 "Parametar Error",
                                 "Timeout Error",
                                 "Reception buffer overflow",
                                 "PCL Error",
                                 "Command overflow",
                                 "Processing prohibition Error",
                                 "Unknown Error"};
    for (int number = 1; number <= 8; ++number) {
        if (value == std::to_string(number)) {
            events_.Tell("box " + line + " : Mirror : " + texts[number - 1]);
        }
    }
}

void ReferenceMotor::Receive(const std::string& bytes, int code) {
    buffer_ += bytes;
    if (code == 2 && !buffer_.empty()) {
        DivideReceivedLines(std::exchange(buffer_, {}));
    }
}

void ReferenceMotor::DivideReceivedLines(std::string text) {
    if (!PendingText_.empty()) {
        text = PendingText_ + text;
        PendingText_.clear();
    }
    std::size_t place = 0;
    for (;;) {
        events_.Tell("serve");
        const std::size_t end = text.find('\r', place);
        if (end == std::string::npos) {
            break;
        }
        ParseReceivedLine(text.substr(place, end - place));
        place = end + 1;
    }
    if (place < text.size()) {
        PendingText_ = text.substr(place);
    }
}

void ReferenceMotor::ParseReceivedLine(const std::string& line) {
    const bool good = line.find('A') != std::string::npos;
    if (good && line.find("Remote Drive Accessory") != std::string::npos) {
        identified_ = true;
    }
    events_.Tell("unlock");
    if (!good) {
        events_.Tell("box " + line + ": Motor : Unknown Error");
    }
}

void ReferenceGauge::Receive(const std::string& bytes, int code) {
    buffer_ += bytes;
    if (code != 3) {
        return;
    }
    const std::string text = std::exchange(PendingText_, {}) + std::exchange(buffer_, {});
    const std::size_t mark = text.find('A');
    if (mark == std::string::npos || text.size() - mark < 8) {
        PendingText_ = text;
        return;
    }
    const std::string seven = text.substr(mark + 1, 7);
    if (!IsReading(seven)) {
        return;
    }
    const double count = std::nearbyint(std::strtod(seven.c_str(), nullptr) * 1000.0);
    if (count >= INT32_MIN && count <= INT32_MAX) {
        events_.Tell("Z " + std::to_string(static_cast<std::int64_t>(count)));
    }
}

}  // namespace travo::test
