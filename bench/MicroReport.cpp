// SPDX-License-Identifier: MIT
#include "bench/MicroReport.h"

#include <algorithm>

#include "bench/MicroCases.h"
#include "bench/Rounds.h"
#include "bench/Table.h"

namespace {

template <class Results>
auto FindResult(Results& results, const std::string& name) {
    return std::find_if(results.begin(), results.end(),
                        [&name](const MicroResult& result) { return result.name == name; });
}

double CounterOf(const benchmark::BenchmarkReporter::Run& run, const char* name, double otherwise) {
    const auto found = run.counters.find(name);
    return found == run.counters.end() ? otherwise : static_cast<double>(found->second);
}

void AddRatio(std::vector<Target>& targets, const std::vector<MicroResult>& results, const char* name,
              const char* baseName, double limit) {
    const auto row = FindResult(results, name);
    const auto base = FindResult(results, baseName);
    if (row == results.end() || base == results.end()) return;
    const Interval ratio = IntervalOf(RatiosOf(row->nanoseconds, base->nanoseconds));
    targets.push_back({std::string(name) + " / " + baseName, ratio, limit});
}

}  // namespace

void MicroCollector::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration && !run.error_occurred) Add(run);
    }
}

void MicroCollector::Add(const Run& run) {
    auto result = FindResult(m_results, run.run_name.function_name);
    if (result == m_results.end()) {
        // They arrive in the order in which they were measured.
        const auto place = std::find_if(m_results.begin(), m_results.end(), [&run](const MicroResult& other) {
            return other.index > run.family_index;
        });
        result = m_results.insert(place, MicroResult{run.run_name.function_name, {}, 0, run.family_index});
    }
    const double operations = CounterOf(run, kOperations, 1);
    const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    result->nanoseconds.push_back(seconds * 1e9 / operations);
    result->allocations = CounterOf(run, kAllocations, 0) / operations;
}

std::string MicroTable(const std::vector<MicroResult>& results) {
    Table table({"ns an operation", "lower quartile", "median", "upper quartile", "allocations"});
    for (const MicroResult& result : results) {
        const Quartiles time = QuartilesOf(result.nanoseconds);
        table.Add({result.name, Fixed(time.low, 1), Fixed(time.median, 1), Fixed(time.high, 1),
                   Fixed(result.allocations, 0)});
    }
    return table.Text();
}

std::string MicroData(const std::vector<MicroResult>& results) {
    std::string data = "operation,repetition,nanoseconds\n";
    for (const MicroResult& result : results) {
        for (std::size_t i = 0; i < result.nanoseconds.size(); ++i) {
            data += "\"" + result.name + "\"," + std::to_string(i + 1) + "," +
                    Fixed(result.nanoseconds[i], 2) + "\n";
        }
    }
    return data;
}

std::vector<Target> MicroTargets(const std::vector<MicroResult>& results) {
    std::vector<Target> targets;
    const auto arguments = FindResult(results, kArguments);
    if (arguments != results.end()) {
        targets.push_back({std::string(kArguments) + ", allocations", arguments->allocations, 3});
    }
    AddRatio(targets, results, kArguments, kAppending, 4);
    AddRatio(targets, results, kLookUp, kPerfectHash, 2);
    return targets;
}
