// SPDX-License-Identifier: MIT
#include "bench/Rounds.h"

#include <time.h>

#include <algorithm>
#include <random>

double ProcessorNanoseconds() {
    struct timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

void TakeTurns(std::vector<Contender>& contenders, std::size_t rounds, std::uint64_t seed) {
    std::vector<Contender*> order;
    for (Contender& contender : contenders) {
        contender.take();
        order.push_back(&contender);
    }
    std::mt19937_64 random(seed);
    for (std::size_t round = 0; round < rounds; ++round) {
        std::shuffle(order.begin(), order.end(), random);
        for (Contender* contender : order) contender->nanoseconds.push_back(contender->take());
    }
}

std::vector<double> RatiosOf(const std::vector<double>& a, const std::vector<double>& b) {
    std::vector<double> ratios(a.size());
    std::transform(a.begin(), a.end(), b.begin(), ratios.begin(), [](double x, double y) { return x / y; });
    return ratios;
}

Target RatioTarget(const Contender& a, const Contender& b, double limit) {
    return {a.title + " / " + b.title, IntervalOf(RatiosOf(a.nanoseconds, b.nanoseconds)), limit};
}
