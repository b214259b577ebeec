// SPDX-License-Identifier: MIT
#include "bench/FolderReport.h"

#include "bench/Table.h"

namespace {

std::string Microseconds(double nanoseconds) { return Fixed(nanoseconds / 1000, 2); }

std::string RatioText(const Measurement& row, const Measurement* base) {
    return base == nullptr ? "" : Fixed(QuartilesOf(RatiosOf(row.nanoseconds, base->nanoseconds)).median, 2);
}

// Adds a target unless one of the two readers was left out.
void AddRatio(std::vector<Target>& targets, const std::vector<Measurement>& measurements, const char* key,
              const char* baseKey, double limit) {
    const Measurement* row = Find(measurements, key);
    const Measurement* base = Find(measurements, baseKey);
    if (row == nullptr || base == nullptr) return;
    targets.push_back({row->reader.title + " / " + base->reader.title,
                       IntervalOf(RatiosOf(row->nanoseconds, base->nanoseconds)), limit});
}

std::string FilesText(const FolderMeasurement& folder) { return std::to_string(folder.files); }

Interval GrowthOf(const std::vector<FolderMeasurement>& folders, std::size_t reader) {
    return IntervalOf(
        RatiosOf(folders.back().readers[reader].nanoseconds, folders.front().readers[reader].nanoseconds));
}

}  // namespace

std::string ReadersTable(const std::vector<Measurement>& measurements) {
    const Measurement* floor = Find(measurements, kFloor);
    const Measurement* pugixml = Find(measurements, kPugixml);
    const Measurement* simd = Find(measurements, kPugixmlSimd);
    Table table({"us a file", "lower quartile", "median", "upper quartile", "/ floor", "/ pugixml",
                 "/ pugixml, SIMD"});
    for (const Measurement& row : measurements) {
        const Quartiles time = QuartilesOf(row.nanoseconds);
        table.Add({row.reader.title, Microseconds(time.low), Microseconds(time.median),
                   Microseconds(time.high), RatioText(row, floor), RatioText(row, pugixml),
                   RatioText(row, simd)});
    }
    return table.Text();
}

std::string ReadersData(const std::vector<Measurement>& measurements) {
    std::string data = "reader,round,nanoseconds a file\n";
    for (const Measurement& row : measurements) {
        for (std::size_t round = 0; round < row.nanoseconds.size(); ++round) {
            data += row.reader.key + "," + std::to_string(round + 1) + "," +
                    Fixed(row.nanoseconds[round], 1) + "\n";
        }
    }
    return data;
}

std::vector<Target> ReaderTargets(const std::vector<Measurement>& measurements) {
    std::vector<Target> targets;
    AddRatio(targets, measurements, kDocuments, kPugixml, 0.29);
    AddRatio(targets, measurements, kDocuments, kPugixmlSimd, 0.72);
    AddRatio(targets, measurements, kDocuments, kFloor, 1.65);
    AddRatio(targets, measurements, kCatalogue, kFloor, 1.8);
    AddRatio(targets, measurements, kProfiles, kFloor, 3.0);
    AddRatio(targets, measurements, kProfileFields, kFloor, 3.5);
    AddRatio(targets, measurements, kProfiles, kPugixmlFields, 0.5);
    return targets;
}

std::string ScalingTable(const std::vector<FolderMeasurement>& folders) {
    std::vector<std::string> header{"us a file, by number of files"};
    for (const FolderMeasurement& folder : folders) header.push_back(FilesText(folder));
    header.push_back("last / first");
    Table table(header);
    for (std::size_t reader = 0; reader < folders.front().readers.size(); ++reader) {
        std::vector<std::string> cells{folders.front().readers[reader].reader.title};
        for (const FolderMeasurement& folder : folders) {
            cells.push_back(Microseconds(QuartilesOf(folder.readers[reader].nanoseconds).median));
        }
        cells.push_back(Fixed(GrowthOf(folders, reader).median, 2));
        table.Add(cells);
    }
    return table.Text();
}

std::string ScalingData(const std::vector<FolderMeasurement>& folders) {
    std::string data = "files";
    for (const Measurement& row : folders.front().readers) {
        for (const char* which : {"", " lower", " upper"}) {
            data.append(",").append(row.reader.key).append(which);
        }
    }
    for (const FolderMeasurement& folder : folders) {
        data.append("\n").append(FilesText(folder));
        for (const Measurement& row : folder.readers) {
            const Quartiles time = QuartilesOf(row.nanoseconds);
            for (const double value : {time.median, time.low, time.high}) {
                data.append(",").append(Microseconds(value));
            }
        }
    }
    return data.append("\n");
}

std::vector<Target> ScalingTargets(const std::vector<FolderMeasurement>& folders) {
    constexpr double kMostGrowth = 1.25;
    std::vector<Target> targets;
    const std::vector<Measurement>& rows = folders.front().readers;
    for (std::size_t reader = 0; reader < rows.size(); ++reader) {
        if (rows[reader].reader.key != kDocuments && rows[reader].reader.key != kCatalogue) continue;
        targets.push_back({rows[reader].reader.title + ", a file of " + FilesText(folders.back()) +
                               " / a file of " + FilesText(folders.front()),
                           GrowthOf(folders, reader), kMostGrowth});
    }
    return targets;
}
