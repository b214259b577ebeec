// SPDX-License-Identifier: MIT
// Timing readers against each other on a noisy machine: rounds in which each takes its turn, in an order that
// is shuffled anew for every round. What is compared are ratios within a round, so that a slow minute of the
// machine meets all readers alike.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/Quartiles.h"
#include "bench/Readers.h"

// The processor time of this thread. Nothing here waits for a disk, so on a quiet machine it is the time by
// the clock; on a busy one it leaves out the turns of others.
double ProcessorNanoseconds();

struct Measurement {
    Reader reader;
    std::vector<double> nanoseconds;  // a file, one value a round
};

// Thrown when readers disagree about what is in the folder.
struct CountMismatch {
    std::string message;
};

// What all readers need for the files of one folder.
struct FolderMeasurement {
    std::size_t files;
    std::vector<Measurement> readers;
};

// Reads `folder` once with each reader, unmeasured, then `rounds` times more. Every result is checked.
std::vector<Measurement> MeasureReaders(const ProfileFolder& folder, const std::vector<Reader>& readers,
                                        std::size_t rounds, std::uint64_t seed);

// The same for several folders, shuffled together. Here each measured reading follows an unmeasured one of
// the same folder: what the folder before it left behind, a catalogue above all, is gone by then.
std::vector<FolderMeasurement> MeasureFolders(const std::vector<ProfileFolder>& folders,
                                              const std::vector<Reader>& readers, std::size_t rounds,
                                              std::uint64_t seed);

// The measurement of the reader with that key, or null.
const Measurement* Find(const std::vector<Measurement>& measurements, const std::string& key);

// How much longer `a` took than `b`, round by round.
Quartiles RatiosOf(const Measurement& a, const Measurement& b);
