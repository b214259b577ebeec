// SPDX-License-Identifier: MIT
// Whether the cost of a step is proportional to what it works on: the same step at growing sizes, each
// measured by what one unit of it takes.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "bench/Targets.h"

// A step that is ready to be taken, as often as wanted, and how many units it works on. Owns what it needs.
struct GrowthStep {
    std::size_t units;
    std::function<void()> take;
};

struct GrowthCase {
    std::string name;
    std::function<GrowthStep(std::size_t size)> prepare;
};

struct GrowthMeasurement {
    std::string name;
    double limit;
    std::vector<double> nanoseconds;  // a unit, by size; shorter when the growth was too much to go on

    double Growth() const { return nanoseconds.back() / nanoseconds.front(); }
};

struct GrowthPlan {
    std::vector<std::size_t> sizes;  // from the smallest on
    std::size_t rounds;              // at each size; their median counts
    double limit;                    // of the growth of a unit's cost from the first size to any other
};

// Throws std::runtime_error, with the name of the case, when its step fails.
GrowthMeasurement MeasureGrowth(const GrowthCase& growth, const GrowthPlan& plan);

// A row for each measurement; `header` has a title and a cell for each size.
std::string GrowthTable(std::vector<std::string> header, const std::vector<GrowthMeasurement>& measurements);
std::vector<Target> GrowthTargets(const std::vector<GrowthMeasurement>& measurements);
