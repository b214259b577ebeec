// SPDX-License-Identifier: MIT
// What the micro-benchmarks tell of their measurements.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bench/Quartiles.h"
#include "bench/Targets.h"

struct MicroResult {
    std::string name;
    std::vector<double> nanoseconds;  // an operation, one value a repetition
    double allocations = 0;
    std::int64_t index = 0;  // in the order in which the benchmarks were registered
};

// Collects the repetitions of each benchmark, and prints nothing.
class MicroCollector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    // In the order of their indices.
    const std::vector<MicroResult>& Results() const { return m_results; }

private:
    void Add(const Run& run);

    std::vector<MicroResult> m_results;
};

std::string MicroTable(const std::vector<MicroResult>& results);

// Every repetition, as comma-separated values.
std::string MicroData(const std::vector<MicroResult>& results);

// The targets whose benchmarks were run.
std::vector<Target> MicroTargets(const std::vector<MicroResult>& results);
