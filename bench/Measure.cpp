// SPDX-License-Identifier: MIT
#include "bench/Measure.h"

#include <time.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

// Compares the counts of the readers of one folder, whichever comes first.
class CountCheck {
public:
    explicit CountCheck(std::size_t files) : m_files(files) {}

    void Compare(const Reader& reader, const Counts& counts) {
        if (counts.files != m_files) Report(reader, "files", counts.files, m_files);
        if (reader.sees == Sight::Files) return;
        const Counts& expected = m_expected.try_emplace(reader.sees, counts).first->second;
        if (counts.elements != expected.elements) {
            Report(reader, "elements", counts.elements, expected.elements);
        }
        if (counts.attributes != expected.attributes) {
            Report(reader, "attributes", counts.attributes, expected.attributes);
        }
        if (counts != expected) Report(reader, "checksum", counts.checksum, expected.checksum);
    }

private:
    [[noreturn]] static void Report(const Reader& reader, const char* what, std::uint64_t got,
                                    std::uint64_t expected) {
        throw CountMismatch{reader.title + " sees " + what + ": " + std::to_string(got) + " instead of " +
                            std::to_string(expected)};
    }

    std::size_t m_files;
    std::map<Sight, Counts> m_expected;
};

double MeasureOnce(const ProfileFolder& folder, const Reader& reader, CountCheck& check) {
    const double start = ProcessorNanoseconds();
    const Counts counts = reader.read(folder);
    const double taken = ProcessorNanoseconds() - start;
    check.Compare(reader, counts);
    return taken / static_cast<double>(folder.files.size());
}

std::vector<Measurement> EmptyMeasurements(const std::vector<Reader>& readers) {
    std::vector<Measurement> measurements;
    for (const Reader& reader : readers) measurements.push_back({reader, {}});
    return measurements;
}

// One reader's turn in one folder.
struct Turn {
    const ProfileFolder* folder;
    CountCheck* check;
    Measurement* measurement;

    double Take() const { return MeasureOnce(*folder, measurement->reader, *check); }
};

void TakeTurns(std::vector<Turn> turns, std::size_t rounds, std::uint64_t seed, bool repeatEach) {
    for (const Turn& turn : turns) turn.Take();
    std::mt19937_64 random(seed);
    for (std::size_t round = 0; round < rounds; ++round) {
        std::shuffle(turns.begin(), turns.end(), random);
        for (const Turn& turn : turns) {
            if (repeatEach) turn.Take();
            turn.measurement->nanoseconds.push_back(turn.Take());
        }
    }
}

}  // namespace

double ProcessorNanoseconds() {
    struct timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

std::vector<Measurement> MeasureReaders(const ProfileFolder& folder, const std::vector<Reader>& readers,
                                        std::size_t rounds, std::uint64_t seed) {
    CountCheck check(folder.files.size());
    std::vector<Measurement> measurements = EmptyMeasurements(readers);
    std::vector<Turn> turns;
    for (Measurement& measurement : measurements) turns.push_back({&folder, &check, &measurement});
    TakeTurns(std::move(turns), rounds, seed, /*repeatEach=*/false);
    return measurements;
}

std::vector<FolderMeasurement> MeasureFolders(const std::vector<ProfileFolder>& folders,
                                              const std::vector<Reader>& readers, std::size_t rounds,
                                              std::uint64_t seed) {
    std::vector<CountCheck> checks;
    std::vector<FolderMeasurement> measurements;
    for (const ProfileFolder& folder : folders) {
        checks.emplace_back(folder.files.size());
        measurements.push_back({folder.files.size(), EmptyMeasurements(readers)});
    }
    std::vector<Turn> turns;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        for (Measurement& measurement : measurements[i].readers) {
            turns.push_back({&folders[i], &checks[i], &measurement});
        }
    }
    TakeTurns(std::move(turns), rounds, seed, /*repeatEach=*/true);
    return measurements;
}

const Measurement* Find(const std::vector<Measurement>& measurements, const std::string& key) {
    const auto found = std::find_if(measurements.begin(), measurements.end(),
                                    [&key](const Measurement& each) { return each.reader.key == key; });
    return found == measurements.end() ? nullptr : &*found;
}

Quartiles RatiosOf(const Measurement& a, const Measurement& b) {
    std::vector<double> ratios(a.nanoseconds.size());
    std::transform(a.nanoseconds.begin(), a.nanoseconds.end(), b.nanoseconds.begin(), ratios.begin(),
                   [](double x, double y) { return x / y; });
    return QuartilesOf(std::move(ratios));
}
