// SPDX-License-Identifier: MIT
// Timing things against each other on a noisy machine: rounds in which each takes its turn, in an order that
// is shuffled anew for every round. What is compared are ratios within a round, so that a slow minute of the
// machine meets all alike.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/Quartiles.h"
#include "bench/Targets.h"

// The processor time of this thread. Nothing here waits for a disk, so on a quiet machine it is the time by
// the clock; on a busy one it leaves out the turns of others.
double ProcessorNanoseconds();

// One of those that are measured against each other.
struct Contender {
    std::string title;
    std::function<double()> take;     // one turn; gives what a unit took, in nanoseconds
    std::vector<double> nanoseconds;  // one value a round

    double Median() const { return QuartilesOf(nanoseconds).median; }
};

// Every contender once, unmeasured, then `rounds` times more.
void TakeTurns(std::vector<Contender>& contenders, std::size_t rounds, std::uint64_t seed);

// How much longer `a` took than `b`, round by round.
std::vector<double> RatiosOf(const std::vector<double>& a, const std::vector<double>& b);

// That this ratio is at most `limit`.
Target RatioTarget(const Contender& a, const Contender& b, double limit);
