// SPDX-License-Identifier: MIT
// Measures whether costs are proportional to the size of what they are spent on.
#include <malloc.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/GrowthCases.h"
#include "bench/Table.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
    bool quick = false;
    std::size_t rounds = 3;
    std::string only;
    std::string report;
    bool check = false;
};

// The limits are far above what caches, sorting and a noisy machine make of the same cost. A step that grows
// with the square exceeds them long before the largest size, and with the first sizes close together at once.
constexpr double kTextLimit = 6;
constexpr double kProfileLimit = 15;

constexpr std::size_t kUnitsAKilobyte = 500;

struct Sizes {
    std::vector<std::size_t> kilobytes;
    std::vector<std::size_t> items;
};

const Sizes kQuickSizes{{100, 1000, 8000}, {1000, 40000}};
const Sizes kSizes{{100, 1000, 8000, 60000}, {1000, 6000, 40000}};  // files above 64 MB are not read

// One run: its tables go into the report, and the targets are collected for the end.
class Run {
public:
    explicit Run(const Arguments& arguments) : m_arguments(arguments) {}

    void Add(const char* title, const std::vector<GrowthCase>& cases, const std::vector<std::size_t>& sizes,
             std::size_t unit, double limit) {
        std::vector<std::string> header{title};
        GrowthPlan plan{{}, m_arguments.rounds, limit};
        for (const std::size_t size : sizes) {
            header.push_back(std::to_string(size));
            plan.sizes.push_back(size * unit);
        }
        std::vector<GrowthMeasurement> rows;
        for (const GrowthCase& growth : cases) {
            if (growth.name.find(m_arguments.only) == std::string::npos) continue;
            rows.push_back(MeasureGrowth(growth, plan));
        }
        m_report.Add(GrowthTable(std::move(header), rows) + "\n");
        for (Target& target : GrowthTargets(rows)) m_targets.push_back(std::move(target));
    }

    bool Finish() {
        m_report.Add(TargetsText(m_targets));
        if (!m_arguments.report.empty()) {
            fs::create_directories(m_arguments.report);
            m_report.Write(fs::path(m_arguments.report) / "growth.md");
        }
        return !m_arguments.check || AreMet(m_targets);
    }

private:
    const Arguments& m_arguments;
    Report m_report;
    std::vector<Target> m_targets;
};

bool MeasureAll(const Arguments& arguments) {
    const Sizes& sizes = arguments.quick ? kQuickSizes : kSizes;
    Run run(arguments);
    run.Add("ns a unit of text, by KB", TextCases(), sizes.kilobytes, kUnitsAKilobyte, kTextLimit);
    run.Add("ns each, by number", ProfileCases(), sizes.items, 1, kProfileLimit);
    return run.Finish();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures whether costs grow in proportion.");
    Arguments arguments;
    app.add_flag("--quick", arguments.quick, "Small sizes alone");
    app.add_option("--rounds", arguments.rounds, "Rounds to measure");
    app.add_option("--only", arguments.only, "Measure the rows alone whose names hold this");
    app.add_option("--report", arguments.report, "Write the tables into this folder");
    app.add_flag("--check", arguments.check, "Fail when a cost grows out of proportion");
    CLI11_PARSE(app, argc, argv);
    // All sizes get their memory alike: otherwise small blocks are reused, and large ones are new every time.
    mallopt(M_MMAP_THRESHOLD, 32 * 1024);
    try {
        if (MeasureAll(arguments)) return 0;
        std::fputs("A cost grows out of proportion.\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
