// SPDX-License-Identifier: MIT
// What has to hold, and whether it does.
#pragma once

#include <string>
#include <vector>

#include "bench/Quartiles.h"

// A figure that must not be above its limit. It is missed when all of its interval is, and in doubt when its
// median alone is: noise must not fail a run, nor pass for a success.
struct Target {
    std::string what;
    Interval value;
    double limit;

    bool IsMissed() const { return value.low > limit; }
    bool IsInDoubt() const { return value.median > limit && !IsMissed(); }
};

// A line of a list for each target.
std::string TargetsText(const std::vector<Target>& targets);

// Whether none is missed.
bool AreMet(const std::vector<Target>& targets);
