#include "devices/links/ManipulatorRecord.h"

#include <string_view>
#include <utility>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

// The part of a record up to the next comma; the record then begins behind it.
std::string_view TakeField(std::string_view& record) {
    const std::size_t comma = record.find(',');
    const std::string_view field = record.substr(0, comma);
    record = comma == std::string_view::npos ? std::string_view{} : record.substr(comma + 1);
    return field;
}

}  // namespace

std::string ManipulatorRecord::Nothing() { return "-1"; }

std::string ManipulatorRecord::Text(std::int32_t index, const PositionXYZ& counts) {
    std::string text = std::to_string(index);
    for (const std::int32_t count : counts) {
        text += ',' + std::to_string(count);
    }
    return text;
}

ManipulatorRecord::ManipulatorRecord(std::string text) : text_(std::move(text)) {}

std::int16_t ManipulatorRecord::Index() const {
    std::string_view rest = text_;
    return ReadInteger16(TakeField(rest));
}

PositionXYZ ManipulatorRecord::Counts() const {
    std::string_view rest = text_;
    TakeField(rest);
    PositionXYZ counts{};
    for (std::int32_t& count : counts) {
        count = ReadInteger32(TakeField(rest));
    }
    return counts;
}

}  // namespace travo
