// SPDX-License-Identifier: MIT
#include "bench/Measure.h"

#include <algorithm>
#include <map>
#include <utility>

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

}  // namespace

std::vector<Measurement> MeasureReaders(const ProfileFolder& folder, const std::vector<Reader>& readers,
                                        std::size_t rounds, std::uint64_t seed) {
    CountCheck check(folder.files.size());
    std::vector<Contender> contenders;
    for (const Reader& reader : readers)
        contenders.push_back({reader.title, [&] { return MeasureOnce(folder, reader, check); }, {}});
    TakeTurns(contenders, rounds, seed);
    std::vector<Measurement> measurements;
    for (std::size_t i = 0; i < readers.size(); ++i)
        measurements.push_back({readers[i], std::move(contenders[i].nanoseconds)});
    return measurements;
}

std::vector<FolderMeasurement> MeasureFolders(const std::vector<ProfileFolder>& folders,
                                              const std::vector<Reader>& readers, std::size_t rounds,
                                              std::uint64_t seed) {
    std::vector<CountCheck> checks;
    for (const ProfileFolder& folder : folders) checks.emplace_back(folder.files.size());
    std::vector<Contender> contenders;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        for (const Reader& reader : readers) {
            const auto measure = [&folder = folders[i], &check = checks[i], &reader] {
                MeasureOnce(folder, reader, check);
                return MeasureOnce(folder, reader, check);
            };
            contenders.push_back({reader.title, measure, {}});
        }
    }
    TakeTurns(contenders, rounds, seed);
    std::vector<FolderMeasurement> measurements;
    for (std::size_t i = 0; i < contenders.size(); ++i) {
        const std::size_t reader = i % readers.size();
        if (reader == 0) measurements.push_back({folders[i / readers.size()].files.size(), {}});
        measurements.back().readers.push_back({readers[reader], std::move(contenders[i].nanoseconds)});
    }
    return measurements;
}

const Measurement* Find(const std::vector<Measurement>& measurements, const std::string& key) {
    const auto found = std::find_if(measurements.begin(), measurements.end(),
                                    [&key](const Measurement& each) { return each.reader.key == key; });
    return found == measurements.end() ? nullptr : &*found;
}
