// SPDX-License-Identifier: MIT
// The middle of several measurements, and how far they lie apart.
#pragma once

#include <vector>

struct Quartiles {
    double low = 0;
    double median = 0;
    double high = 0;
};

Quartiles QuartilesOf(std::vector<double> values);

// Where the median lies of all values that could have been measured: with 95 % between `low` and `high`,
// whatever their distribution, if the measurements are independent. A single figure lies at itself.
struct Interval {
    Interval(double value) : low(value), median(value), high(value) {}
    Interval(double lowest, double middle, double highest) : low(lowest), median(middle), high(highest) {}

    double low;
    double median;
    double high;
};

Interval IntervalOf(std::vector<double> values);
