// SPDX-License-Identifier: MIT
// Reads folders of profiles in every way that is measured, and tells what each costs.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <deque>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Folder.h"
#include "bench/FolderReport.h"
#include "bench/Measure.h"
#include "bench/Memory.h"
#include "bench/Readers.h"
#include "bench/Table.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
    std::size_t files = 2000;
    std::size_t folders = 5;
    std::size_t rounds = 11;
    std::uint64_t seed = 1;
    std::string folder;
    std::vector<std::string> only;
    bool scaling = false;
    std::vector<std::size_t> sizes{500, 2000, 5000, 15000, 50000};
    std::size_t scalingRounds = 7;
    std::string report;
    bool check = false;
};

void ReadOptions(CLI::App& app, Arguments& arguments) {
    app.add_option("--files", arguments.files, "Profiles to generate");
    app.add_option("--folders", arguments.folders, "How often the profiles are written anew");
    app.add_option("--rounds", arguments.rounds, "Rounds to measure with each of these folders");
    app.add_option("--seed", arguments.seed, "Of the profiles and of the order of the readers");
    app.add_option("--folder", arguments.folder, "Read this folder instead of generating one");
    CLI::Option* only =
        app.add_option("--only", arguments.only, "Measure these readers alone, A,B")->delimiter(',');
    app.add_flag("--scaling", arguments.scaling, "Measure folders of several sizes too");
    app.add_option("--sizes", arguments.sizes, "Those sizes in profiles, A,B")->delimiter(',');
    app.add_option("--scaling-rounds", arguments.scalingRounds, "Rounds to measure them");
    app.add_option("--report", arguments.report, "Write the tables and the data into this folder");
    app.add_flag("--check", arguments.check, "Fail when a target is missed")->excludes(only);
}

std::vector<Reader> ChooseReaders(const std::vector<std::string>& only) {
    std::vector<Reader> readers = OtherReaders();
    for (Reader& own : OwnReaders()) readers.push_back(std::move(own));
    for (Reader& own : FieldReaders()) readers.push_back(std::move(own));
    if (only.empty()) return readers;
    std::erase_if(readers, [&only](const Reader& reader) {
        return std::find(only.begin(), only.end(), reader.key) == only.end();
    });
    return readers;
}

std::string FolderText(const ProfileFolder& folder) {
    const Counts counts = OwnReaders().front().read(folder);
    const auto files = static_cast<double>(folder.files.size());
    const auto average = [files](std::uint64_t sum) { return Fixed(static_cast<double>(sum) / files, 1); };
    return std::to_string(folder.files.size()) + " files; on average " + average(folder.bytes / 1000) +
           " KB, " + average(counts.elements) + " elements, " + average(counts.attributes) +
           " attributes.\n\n";
}

// One run: what it found goes into the report, and the targets are collected for the end.
class Run {
public:
    explicit Run(const Arguments& arguments) : m_arguments(arguments) {
        if (!arguments.report.empty()) fs::create_directories(arguments.report);
    }

    void CompareReaders() {
        std::vector<Measurement> rows;
        for (std::size_t i = 0; i < m_arguments.folders; ++i) {
            std::optional<TemporaryProfiles> generated;
            if (m_arguments.folder.empty()) generated.emplace(m_arguments.files, m_arguments.seed);
            const ProfileFolder folder =
                ListProfiles(generated ? generated->Path() : fs::path(m_arguments.folder));
            if (folder.files.empty()) throw std::runtime_error("no profiles in the folder");
            if (i == 0) m_report.Add(FolderText(folder));
            if (i == 0) CompareMemory(folder);
            Append(rows, MeasureReaders(folder, ChooseReaders(m_arguments.only), m_arguments.rounds,
                                        m_arguments.seed + i));
        }
        m_report.Add(ReadersTable(rows));
        WriteData("readers.csv", ReadersData(rows));
        Collect(ReaderTargets(rows));
    }

    void CompareSizes() {
        std::deque<TemporaryProfiles> generated;  // its elements stay where they are
        std::vector<ProfileFolder> folders;
        for (const std::size_t size : m_arguments.sizes) {
            folders.push_back(ListProfiles(generated.emplace_back(size, m_arguments.seed).Path()));
        }
        const std::vector<FolderMeasurement> sizes =
            MeasureFolders(folders, ChooseReaders({kFloor, kPugixmlSimd, kDocuments, kCatalogue}),
                           m_arguments.scalingRounds, m_arguments.seed);
        m_report.Add("\n" + ScalingTable(sizes));
        WriteData("scaling.csv", ScalingData(sizes));
        Collect(ScalingTargets(sizes));
    }

    bool Finish() {
        m_report.Add("\n" + TargetsText(m_targets));
        if (!m_arguments.report.empty()) m_report.Write(fs::path(m_arguments.report) / "folder.md");
        return !m_arguments.check || AreMet(m_targets);
    }

private:
    // Where the kernel has put the files and the heap the documents makes a difference of its own, which
    // only files that are written anew even out.
    static void Append(std::vector<Measurement>& rows, const std::vector<Measurement>& more) {
        if (rows.empty()) {
            rows = more;
            return;
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            std::vector<double>& all = rows[i].nanoseconds;
            all.insert(all.end(), more[i].nanoseconds.begin(), more[i].nanoseconds.end());
        }
    }

    void CompareMemory(const ProfileFolder& folder) {
        const double library = LibraryBytesPerFileByte(folder);
        const double pugixml = PugixmlBytesPerFileByte(folder);
        m_report.Add("Bytes of memory for each byte of a file: this library " + Fixed(library, 2) +
                     ", pugixml " + Fixed(pugixml, 2) + ".\n\n");
        Collect({{"memory of a document / size of its file", library, 2.2},
                 {"memory of a document / pugixml's", library / pugixml, 1.0}});
    }

    void WriteData(const char* name, const std::string& data) const {
        if (!m_arguments.report.empty()) WriteText(fs::path(m_arguments.report) / name, data);
    }

    void Collect(const std::vector<Target>& targets) {
        m_targets.insert(m_targets.end(), targets.begin(), targets.end());
    }

    const Arguments& m_arguments;
    Report m_report;
    std::vector<Target> m_targets;
};

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures how long folders of profiles take to read.");
    Arguments arguments;
    ReadOptions(app, arguments);
    CLI11_PARSE(app, argc, argv);
    try {
        Run run(arguments);
        run.CompareReaders();
        if (arguments.scaling) run.CompareSizes();
        if (run.Finish()) return 0;
        std::fputs("A target is missed.\n", stderr);
    } catch (const CountMismatch& mismatch) {
        std::fprintf(stderr, "The readers disagree: %s\n", mismatch.message.c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
