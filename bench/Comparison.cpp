// SPDX-License-Identifier: MIT
#include "bench/Comparison.h"

#include <utility>

#include "bench/Table.h"

std::string ComparisonTable(const Comparison& comparison) {
    Table table({comparison.title, "lower quartile", "median", "upper quartile", "/ first"});
    const Contender& first = comparison.contenders.front();
    for (const Contender& row : comparison.contenders) {
        const Quartiles time = QuartilesOf(row.nanoseconds);
        const Quartiles ratio = QuartilesOf(RatiosOf(row.nanoseconds, first.nanoseconds));
        table.Add({row.title, Fixed(time.low / 1000, 2), Fixed(time.median / 1000, 2),
                   Fixed(time.high / 1000, 2), Fixed(ratio.median, 2)});
    }
    return table.Text();
}

std::vector<Target> ComparisonTargets(const Comparison& comparison) {
    std::vector<Target> targets;
    for (const RatioLimit& limit : comparison.limits) {
        Target target = RatioTarget(comparison.contenders[limit.contender], comparison.contenders[limit.base],
                                    limit.limit);
        target.what = comparison.title + ": " + target.what;
        targets.push_back(std::move(target));
    }
    return targets;
}
