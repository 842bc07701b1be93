#include "devices/links/MirrorLine.h"

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr std::size_t CommandSize = 3;
constexpr std::size_t HeadSize = 1 + CommandSize;

// By error number, from 1. The texts are the operators' own.
constexpr std::array<QLatin1String, 8> ErrorTexts{
    QLatin1String(" : Mirror : Command Error"),
    QLatin1String(" : Mirror : Parametar Error"),
    QLatin1String(" : Mirror : Timeout Error"),
    QLatin1String(" : Mirror : Reception buffer overflow"),
    QLatin1String(" : Mirror : PCL Error"),
    QLatin1String(" : Mirror : Command overflow"),
    QLatin1String(" : Mirror : Processing prohibition Error"),
    QLatin1String(" : Mirror : Unknown Error"),
};

}  // namespace

MirrorLine ReadMirrorLine(std::string_view line) {
    if (line.size() < HeadSize) {
        throw NumberFailure("a line of the mirror controller is too short");
    }
    return {line.front(), line.substr(1, CommandSize), line.substr(HeadSize)};
}

StatusFields ReadStatusFields(std::string_view value) {
    StatusFields fields;
    for (std::size_t field = 0; field < StatusFieldCount; ++field) {
        const std::size_t comma = value.find(',');
        fields[field] = value.substr(0, comma);
        if (comma != std::string_view::npos) {
            value.remove_prefix(comma + 1);
        } else if (field + 1 < StatusFieldCount) {
            ThrowBounds();
        }
    }
    return fields;
}

std::optional<QLatin1String> MirrorErrorText(std::string_view value) {
    if (value.size() != 1 || value.front() < '1' || value.front() > '8') {
        return std::nullopt;
    }
    return ErrorTexts[static_cast<std::size_t>(value.front() - '1')];
}

}  // namespace travo
