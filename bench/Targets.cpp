// SPDX-License-Identifier: MIT
#include "bench/Targets.h"

#include <algorithm>

#include "bench/Table.h"

std::string TargetsText(const std::vector<Target>& targets) {
    std::string text;
    for (const Target& target : targets) {
        text.append(target.IsMet() ? "- met:    " : "- MISSED: ").append(target.what).append(": ");
        text.append(Fixed(target.value, 2)).append(", at most ").append(Fixed(target.limit, 2)).append("\n");
    }
    return text;
}

bool AreMet(const std::vector<Target>& targets) {
    return std::all_of(targets.begin(), targets.end(), [](const Target& target) { return target.IsMet(); });
}
