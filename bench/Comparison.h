// SPDX-License-Identifier: MIT
// Groups of contenders that are measured together, and what has to hold of them. Those that are made here
// throw std::runtime_error when anything that is compared fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/Folder.h"
#include "bench/Rounds.h"

struct RatioLimit {
    std::size_t contender;
    std::size_t base;
    double limit;
};

// Ratios in the table are those to the first contender.
struct Comparison {
    std::string title;  // of the table, with the unit
    std::vector<Contender> contenders;
    std::vector<RatioLimit> limits;
};

// A contender that does `work` for that many units; what it takes is the time of this thread.
template <class Work>
Contender Timed(std::string title, std::size_t units, Work work) {
    const auto take = [units, work]() mutable {
        const double start = ProcessorNanoseconds();
        work();
        return (ProcessorNanoseconds() - start) / static_cast<double>(units);
    };
    return {std::move(title), take, {}};
}

std::string ComparisonTable(const Comparison& comparison);
std::vector<Target> ComparisonTargets(const Comparison& comparison);

// Loading so many profiles of a folder, and their common items.
Comparison CommonItems(std::string title, const ProfileFolder& folder, std::size_t count);

// Writing the documents of a folder, which must outlive the comparison.
Comparison Writers(const ProfileFolder& folder);

// The tool over a folder, as a process, and what reads the same files without it.
Comparison Listing(const ProfileFolder& folder, const std::filesystem::path& tool);
Comparison ArgumentsOf(const ProfileFolder& folder, const std::filesystem::path& tool,
                       const std::filesystem::path& emptyProgram);
