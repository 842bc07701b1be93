#include "platform/qt/SerialSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace travo::platform::qt {

namespace {

using Parity = SerialSettings::Parity;
using StopBits = SerialSettings::StopBits;
using Fields = std::array<std::string_view, 4>;

constexpr std::size_t MostSpeedDigits = 9;  // so that it always fits 32 bits

constexpr std::array<std::pair<std::string_view, Parity>, 3> Parities{
    {{"N", Parity::None}, {"E", Parity::Even}, {"O", Parity::Odd}}};
constexpr std::array<std::pair<std::string_view, int>, 4> DataBits{{{"5", 5}, {"6", 6}, {"7", 7}, {"8", 8}}};
constexpr std::array<std::pair<std::string_view, StopBits>, 3> StopBitNames{
    {{"1", StopBits::One}, {"1.5", StopBits::OneAndHalf}, {"2", StopBits::Two}}};

std::optional<Fields> Split(std::string_view text) {
    if (std::count(text.begin(), text.end(), ',') != 3) {
        return std::nullopt;
    }
    Fields fields;
    for (std::string_view& field : fields) {
        const std::size_t comma = std::min(text.find(','), text.size());
        field = text.substr(0, comma);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return fields;
}

std::optional<std::int32_t> Speed(std::string_view text) {
    const bool digits =
        std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
    if (text.empty() || text.size() > MostSpeedDigits || !digits || text.front() == '0') {
        return std::nullopt;
    }
    std::int32_t speed = 0;
    std::from_chars(text.data(), text.data() + text.size(), speed);
    return speed;
}

template <typename Table>
auto Find(const Table& table, std::string_view text) {
    std::optional<typename Table::value_type::second_type> found;
    for (const auto& [name, value] : table) {
        if (name == text) {
            found = value;
        }
    }
    return found;
}

}  // namespace

SerialSettings ReadSerialSettings(std::string_view text) {
    if (const auto fields = Split(text)) {
        const auto speed = Speed((*fields)[0]);
        const auto parity = Find(Parities, (*fields)[1]);
        const auto dataBits = Find(DataBits, (*fields)[2]);
        const auto stopBits = Find(StopBitNames, (*fields)[3]);
        if (speed && parity && dataBits && stopBits) {
            return {*speed, *parity, *dataBits, *stopBits};
        }
    }
    throw std::runtime_error("these are no settings of a serial port: " + std::string(text));
}

}  // namespace travo::platform::qt
