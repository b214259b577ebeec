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
