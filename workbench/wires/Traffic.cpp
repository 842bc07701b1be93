#include "workbench/wires/Traffic.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "workbench/wires/WireLog.h"

namespace workbench {

namespace {

std::string OneWord(std::string_view bytes) {
    std::string word;
    for (const char letter : LogText(bytes)) {
        word.append(letter == ' ' ? "\\x20" : letter == '/' ? "\\x2f" : std::string(1, letter));
    }
    return word;
}

}  // namespace

void Traffic::Take(Time time, std::string_view source, std::string_view kind, std::string_view bytes) {
    std::array<char, 40> milliseconds{};
    std::snprintf(milliseconds.data(), milliseconds.size(), "%.3f",
                  static_cast<double>(time.count()) / 1000.0);
    std::string record = milliseconds.data();
    record.append("/").append(source).append("/").append(kind).append("/").append(OneWord(bytes));
    records_.push_back(std::move(record));
    ++next_;
    if (records_.size() > Kept) {
        records_.pop_front();
    }
}

std::string Traffic::From(std::int64_t serial) const {
    const std::int64_t oldest = next_ - static_cast<std::int64_t>(records_.size());
    const std::int64_t first = std::clamp(serial, oldest, next_);
    const std::int64_t end = std::min(first + static_cast<std::int64_t>(Told), next_);
    std::string text =
        " " + std::to_string(end) + " " + std::to_string(std::max<std::int64_t>(oldest - serial, 0));
    for (std::int64_t place = first; place < end; ++place) {
        text.append(" ").append(records_[static_cast<std::size_t>(place - oldest)]);
    }
    return text;
}

}  // namespace workbench
