#include "workbench/wires/LineFaults.h"

#include <algorithm>
#include <utility>

namespace workbench {

std::optional<WireLine> LineFaults::Befall(WireLine line) {
    if (silent_) {
        return std::nullopt;
    }
    if (garbledLines_ > 0 && !line.bytes.empty()) {
        --garbledLines_;
        std::uniform_int_distribution<std::size_t> places(0, line.bytes.size() - 1);
        char& byte = line.bytes[places(chance_)];
        byte = AnyByteBut(byte);
    }
    if (const auto cut = std::exchange(cut_, std::nullopt)) {
        line.bytes.resize(std::min(*cut, line.bytes.size()));
    }
    return line.bytes.empty() ? std::nullopt : std::optional(std::move(line));
}

WireLine LineFaults::Noise(std::size_t bytes) {
    WireLine noise;
    for (std::size_t place = 0; place < bytes; ++place) {
        noise.bytes += AnyByteBut('\0');
    }
    return noise;
}

void LineFaults::Clear() {
    silent_ = false;
    garbledLines_ = 0;
    cut_.reset();
}

char LineFaults::AnyByteBut(char byte) {
    std::uniform_int_distribution<int> any(1, 255);
    return static_cast<char>(static_cast<unsigned char>(byte) + any(chance_));
}

}  // namespace workbench
