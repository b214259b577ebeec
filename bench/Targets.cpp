// SPDX-License-Identifier: MIT
#include "bench/Targets.h"

#include <algorithm>

#include "bench/Table.h"

std::string TargetsText(const std::vector<Target>& targets) {
    std::string text;
    for (const Target& target : targets) {
        const Interval& value = target.value;
        text.append(target.IsMissed()    ? "- MISSED:   "
                    : target.IsInDoubt() ? "- in doubt: "
                                         : "- met:      ");
        text.append(target.what).append(": ").append(Fixed(value.median, 2));
        if (value.low != value.high)
            text.append(" (")
                .append(Fixed(value.low, 2))
                .append(" to ")
                .append(Fixed(value.high, 2))
                .append(")");
        text.append(", at most ").append(Fixed(target.limit, 2)).append("\n");
    }
    return text;
}

bool AreMet(const std::vector<Target>& targets) {
    return std::none_of(targets.begin(), targets.end(),
                        [](const Target& target) { return target.IsMissed(); });
}
