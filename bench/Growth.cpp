// SPDX-License-Identifier: MIT
#include "bench/Growth.h"

#include <stdexcept>

#include "bench/Measure.h"
#include "bench/Quartiles.h"
#include "bench/Table.h"

namespace {

double NanosecondsAUnit(const GrowthStep& step, std::size_t rounds) {
    std::vector<double> nanoseconds;
    for (std::size_t round = 0; round < rounds; ++round) {
        const double start = ProcessorNanoseconds();
        step.take();
        nanoseconds.push_back((ProcessorNanoseconds() - start) / static_cast<double>(step.units));
    }
    return QuartilesOf(std::move(nanoseconds)).median;
}

}  // namespace

GrowthMeasurement MeasureGrowth(const GrowthCase& growth, const GrowthPlan& plan) try {
    GrowthMeasurement measurement{growth.name, plan.limit, {}};
    for (const std::size_t size : plan.sizes) {
        measurement.nanoseconds.push_back(NanosecondsAUnit(growth.prepare(size), plan.rounds));
        // The next size could take hours.
        if (measurement.Growth() > plan.limit) break;
    }
    return measurement;
} catch (const std::runtime_error& error) {
    throw std::runtime_error(growth.name + ": " + error.what());
}

std::string GrowthTable(std::vector<std::string> header, const std::vector<GrowthMeasurement>& measurements) {
    const std::size_t sizes = header.size() - 1;
    header.push_back("last / first");
    Table table(std::move(header));
    for (const GrowthMeasurement& measurement : measurements) {
        std::vector<std::string> cells{measurement.name};
        for (const double nanoseconds : measurement.nanoseconds) cells.push_back(Fixed(nanoseconds, 2));
        cells.resize(sizes + 1, "not tried");
        cells.push_back(Fixed(measurement.Growth(), 2));
        table.Add(std::move(cells));
    }
    return table.Text();
}

std::vector<Target> GrowthTargets(const std::vector<GrowthMeasurement>& measurements) {
    std::vector<Target> targets;
    for (const GrowthMeasurement& measurement : measurements) {
        targets.push_back({measurement.name + ", last / first", measurement.Growth(), measurement.limit});
    }
    return targets;
}
