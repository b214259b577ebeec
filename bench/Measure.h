// SPDX-License-Identifier: MIT
// Readers of profiles, timed against each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/Readers.h"
#include "bench/Rounds.h"

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
