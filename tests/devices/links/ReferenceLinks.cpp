#include "devices/links/ReferenceLinks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace travo::test {

namespace {

constexpr std::size_t LongestLine = 65536;

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
    text = std::exchange(PendingText_, {}) + text;
    std::string dropUpTo = std::exchange(dropUpTo_, {});
    std::size_t place = 0;
    int dropped = 0;
    for (;;) {
        if (!dropUpTo.empty()) {
            const std::size_t end = text.find(dropUpTo, place);
            if (end == std::string::npos) {
                place = text.size() - (dropUpTo == "\r\n" && text.ends_with('\r') ? 1 : 0);
                break;
            }
            place = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
            dropUpTo.clear();
        }
        const std::size_t lineEnd = text.find("\r\n", place);
        const std::size_t carriageReturn = text.find('\r', place);
        const bool isForMotor = BeginsForMotor(text.substr(place, 2));
        if (lineEnd != std::string::npos) {
            if (lineEnd - place > LongestLine) {
                ++dropped;
            } else {
                ParseReceivedLine(text.substr(place, lineEnd - place));
            }
            place = lineEnd + 2;
        } else if (carriageReturn != std::string::npos && isForMotor) {
            if (carriageReturn - place > LongestLine) {
                ++dropped;
            } else {
                events_.Tell("ergo " + text.substr(place, carriageReturn - place));
            }
            place = carriageReturn + 1;
        } else if (text.size() - place > LongestLine + (text.ends_with('\r') ? 1 : 0)) {
            ++dropped;
            dropUpTo = isForMotor ? "\r" : "\r\n";
        } else {
            break;
        }
    }
    if (place < text.size() || !dropUpTo.empty()) {
        PendingText_ = text.substr(place);
        dropUpTo_ = dropUpTo;
    }
    for (; dropped > 0; --dropped) {
        events_.Tell("dropped");
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
    return Limit(field[5], LimitYShown_, LimitYUp_, "Movement limit Y") &&
           Limit(field[6], LimitXShown_, LimitXUp_, "Movement limit X");
}

bool ReferenceMirror::Limit(const std::string& field, bool& shown, bool& isUp, const std::string& text) {
    const auto flag = Number32(field);
    if (!flag) {
        return false;
    }
    if (*flag == 0) {
        shown = false;
    } else if (!shown && !isUp) {
        isUp = true;
        events_.Tell("box " + text);
        isUp = false;
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
    text = std::exchange(PendingText_, {}) + text;
    bool dropping = std::exchange(dropping_, false);
    std::size_t place = 0;
    int dropped = 0;
    events_.Tell("serve");
    for (std::size_t end = 0; (end = text.find('\r', place)) != std::string::npos; place = end + 1) {
        const bool isTooLong = end - place > LongestLine;
        if (std::exchange(dropping, false)) {
            continue;
        }
        if (isTooLong) {
            ++dropped;
        } else {
            ParseReceivedLine(text.substr(place, end - place));
            events_.Tell("serve");
        }
    }
    if (!dropping && text.size() - place > LongestLine) {
        dropping = true;
        ++dropped;
    }
    if (dropping) {
        dropping_ = true;
        PendingText_.clear();
    } else if (place < text.size()) {
        dropping_ = false;
        PendingText_ = text.substr(place);
    }
    for (; dropped > 0; --dropped) {
        events_.Tell("dropped");
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
        const std::size_t noise = std::min(mark, text.size());
        PendingText_ = noise > LongestLine ? text.substr(noise) : text;
        if (noise > LongestLine && !std::exchange(hasDropped_, true)) {
            events_.Tell("dropped");
        }
        return;
    }
    hasDropped_ = false;
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
