// SPDX-License-Identifier: MIT
#include "bench/Quartiles.h"

#include <algorithm>
#include <cstddef>

Quartiles QuartilesOf(std::vector<double> values) {
    if (values.empty()) return {};
    std::sort(values.begin(), values.end());
    const auto at = [&values](std::size_t quarters) { return values[(values.size() - 1) * quarters / 4]; };
    return {at(1), at(2), at(3)};
}
