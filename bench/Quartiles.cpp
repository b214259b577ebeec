// SPDX-License-Identifier: MIT
#include "bench/Quartiles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

Quartiles QuartilesOf(std::vector<double> values) {
    if (values.empty()) return {};
    std::sort(values.begin(), values.end());
    const auto at = [&values](std::size_t quarters) { return values[(values.size() - 1) * quarters / 4]; };
    return {at(1), at(2), at(3)};
}

// How many of the measurements lie below the true median is a matter of so many tosses of a coin, and nearly
// normally distributed.
Interval IntervalOf(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    constexpr double kDeviations = 1.96;
    const auto count = static_cast<double>(values.size());
    const double below = std::floor((count - kDeviations * std::sqrt(count)) / 2);
    const auto rank = static_cast<std::size_t>(std::max(below, 1.0)) - 1;
    return {values[rank], values[(values.size() - 1) / 2], values[values.size() - 1 - rank]};
}
