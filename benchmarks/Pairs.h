// Two speeds that are measured in turn, so that a change of the processor's speed meets both alike.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>
#include <vector>

namespace travo::bench {

// Nanoseconds that a procedure takes, for each of `count` things that it does.
template <typename Procedure>
double NanosecondsEach(std::size_t count, Procedure&& procedure) {
    const auto start = std::chrono::steady_clock::now();
    procedure();
    const std::chrono::duration<double, std::nano> gone = std::chrono::steady_clock::now() - start;
    return gone.count() / static_cast<double>(count);
}

template <typename Procedure>
double Microseconds(Procedure&& procedure) {
    return NanosecondsEach(1000, std::forward<Procedure>(procedure));
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Of things measured in pairs, one right after the other.
inline double MedianRatio(const std::vector<double>& ours, const std::vector<double>& peers) {
    std::vector<double> ratios;
    for (std::size_t pair = 0; pair < ours.size(); ++pair) {
        ratios.push_back(ours[pair] / peers[pair]);
    }
    return Median(std::move(ratios));
}

}  // namespace travo::bench
