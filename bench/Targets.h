// SPDX-License-Identifier: MIT
// What has to hold, and whether it does.
#pragma once

#include <string>
#include <vector>

// A figure that must not be above its limit.
struct Target {
    std::string what;
    double value;
    double limit;

    bool IsMet() const { return value <= limit; }
};

// A line of a list for each target.
std::string TargetsText(const std::vector<Target>& targets);

bool AreMet(const std::vector<Target>& targets);
