#include "workbench/wires/WireLog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::array<std::pair<std::string_view, WireRecord::Kind>, 5> Kinds = {
    {{"in", WireRecord::Kind::In},
     {"out", WireRecord::Kind::Out},
     {"apart", WireRecord::Kind::Apart},
     {"whole", WireRecord::Kind::Whole},
     {"note", WireRecord::Kind::Note}}};

// The byte of two hexadecimal digits.
std::optional<char> CodeByte(std::string_view digits) {
    unsigned value = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.size() != 2 || failure != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return static_cast<char>(value);
}

std::optional<std::string> Unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] != '\\') {
            bytes += text[place];
            continue;
        }
        const char letter = ++place < text.size() ? text[place] : '\0';
        const auto code =
            letter == 'x' ? CodeByte(text.substr(std::min(place + 1, text.size()), 2)) : std::nullopt;
        if (letter == 'r' || letter == 'n' || letter == '\\') {
            bytes += letter == 'r' ? '\r' : letter == 'n' ? '\n' : '\\';
        } else if (code) {
            bytes += *code;
            place += 2;
        } else {
            return std::nullopt;
        }
    }
    return bytes;
}

}  // namespace

std::string LogText(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        if (byte == '\r') {
            text += "\\r";
        } else if (byte == '\n') {
            text += "\\n";
        } else if (byte == '\\') {
            text += "\\\\";
        } else if (byte >= ' ' && byte < '\x7f') {
            text += byte;
        } else {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\x%02x", static_cast<unsigned char>(byte));
            text += code.data();
        }
    }
    return text;
}

std::string_view KindText(WireRecord::Kind kind) {
    return std::find_if(Kinds.begin(), Kinds.end(), [kind](const auto& one) { return one.second == kind; })
        ->first;
}

std::string RecordText(const WireRecord& record) {
    std::array<char, 40> time{};
    std::snprintf(time.data(), time.size(), "%lld.%03lld", static_cast<long long>(record.time.count() / 1000),
                  static_cast<long long>(record.time.count() % 1000));
    const std::string head = std::string(time.data()).append(" ").append(KindText(record.kind));
    return head + " " + LogText(record.bytes);
}

std::optional<WireRecord> ReadRecord(std::string_view text) {
    const std::size_t afterTime = text.find(' ');
    const std::size_t afterKind =
        afterTime == std::string_view::npos ? afterTime : text.find(' ', afterTime + 1);
    if (afterKind == std::string_view::npos) {
        return std::nullopt;
    }
    double milliseconds = 0.0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + afterTime, milliseconds);
    const std::string_view name = text.substr(afterTime + 1, afterKind - afterTime - 1);
    const auto* kind =
        std::find_if(Kinds.begin(), Kinds.end(), [name](const auto& one) { return one.first == name; });
    auto bytes = Unescaped(text.substr(afterKind + 1));
    const bool timed = failure == std::errc() && end == text.data() + afterTime && milliseconds >= 0.0 &&
                       milliseconds < 1e12;
    if (!timed || kind == Kinds.end() || !bytes) {
        return std::nullopt;
    }
    return WireRecord{Time(std::llround(milliseconds * 1000.0)), kind->second, std::move(*bytes)};
}

std::vector<WireRecord> ReadRecords(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<WireRecord> records;
    std::string line;
    while (std::getline(file, line)) {
        auto record = ReadRecord(line);
        if (!record) {
            throw travo::NumberFailure("this is no record of a wire: " + line);
        }
        records.push_back(std::move(*record));
    }
    if (!file.eof()) {
        throw travo::Failure("the file cannot be read: " + path);
    }
    return records;
}

WireRecord::Kind KindOf(WireLine::Manner manner) {
    switch (manner) {
        case WireLine::Manner::Paced:
            return WireRecord::Kind::Out;
        case WireLine::Manner::Apart:
            return WireRecord::Kind::Apart;
        case WireLine::Manner::Whole:
            return WireRecord::Kind::Whole;
    }
    return WireRecord::Kind::Note;
}

std::optional<WireLine::Manner> MannerOf(WireRecord::Kind kind) {
    switch (kind) {
        case WireRecord::Kind::Out:
            return WireLine::Manner::Paced;
        case WireRecord::Kind::Apart:
            return WireLine::Manner::Apart;
        case WireRecord::Kind::Whole:
            return WireLine::Manner::Whole;
        case WireRecord::Kind::In:
        case WireRecord::Kind::Note:
            break;
    }
    return std::nullopt;
}

void WireLog::Open(const std::string& path) {
    file_.close();
    file_.clear();
    file_.open(path, std::ios::binary | std::ios::trunc);
    if (!file_) {
        throw travo::Failure("the file cannot be written: " + path);
    }
}

void WireLog::Write(const WireRecord& record) {
    if (file_.is_open()) {
        file_ << RecordText(record) << '\n' << std::flush;
    }
}

}  // namespace workbench
