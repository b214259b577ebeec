// SPDX-License-Identifier: MIT
// Measures single operations of the library, and counts their allocations.
#include <benchmark/benchmark.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/MicroCases.h"
#include "bench/MicroReport.h"
#include "bench/Table.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
    std::string report;
    bool check = false;
};

// The repetitions of all benchmarks take turns in shuffled order, so that a slow minute of the machine meets
// all of them alike. What the caller says comes last and therefore counts.
std::vector<std::string> BenchmarkArguments(const char* program, const std::vector<std::string>& others) {
    std::vector<std::string> arguments{program, "--benchmark_repetitions=15", "--benchmark_min_time=0.02",
                                       "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), others.begin(), others.end());
    return arguments;
}

// False after printing what was not understood.
bool InitializeBenchmark(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

bool Run(const Arguments& arguments) {
    RegisterMicroCases();
    MicroCollector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    const std::vector<Target> targets = MicroTargets(collector.Results());
    Report report;
    report.Add(MicroTable(collector.Results()) + "\n" + TargetsText(targets));
    if (!arguments.report.empty()) {
        fs::create_directories(arguments.report);
        report.Write(fs::path(arguments.report) / "micro.md");
        WriteText(fs::path(arguments.report) / "micro.csv", MicroData(collector.Results()));
    }
    return !arguments.check || AreMet(targets);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures single operations. Takes the arguments of Google Benchmark too.");
    Arguments arguments;
    app.add_option("--report", arguments.report, "Write the table and the data into this folder");
    app.add_flag("--check", arguments.check, "Fail when a target is missed");
    app.allow_extras();
    CLI11_PARSE(app, argc, argv);
    if (!InitializeBenchmark(BenchmarkArguments(argv[0], app.remaining()))) return 1;
    try {
        if (Run(arguments)) return 0;
        std::fputs("A target is missed.\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
