// SPDX-License-Identifier: MIT
// Measures what is done with profiles besides reading them: common items, writing, the whole tool.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/Comparison.h"
#include "bench/MicroData.h"
#include "bench/Table.h"
#include "document/Format.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
    std::size_t files = 2000;
    std::size_t rounds = 41;
    std::uint64_t seed = 1;
    std::string only;
    std::string tool;
    std::string emptyProgram;
    std::string report;
    bool check = false;
};

void ReadOptions(CLI::App& app, Arguments& arguments) {
    app.add_option("--files", arguments.files, "Profiles to generate");
    app.add_option("--rounds", arguments.rounds, "Rounds to measure");
    app.add_option("--seed", arguments.seed, "Of the profiles and of the order in a round");
    app.add_option("--only", arguments.only, "Measure one group alone: lists, writers or programs");
    app.add_option("--tool", arguments.tool, "The tool, and with it");
    app.add_option("--empty-program", arguments.emptyProgram, "a program that does nothing");
    app.add_option("--report", arguments.report, "Write the tables into this folder");
    app.add_flag("--check", arguments.check, "Fail when a target is missed");
}

// Gives access to how a profile writes its settings.
struct ItemWriter : kmProfile {
    void Write(kmProfileItem& item, XMLNode element) { SetValueToFile(item, element); }
};

// The profiles of many choices as files.
void WriteSimpleProfiles(const fs::path& folder, std::size_t count) {
    for (kmProfile& profile : SimpleProfiles(count)) {
        XMLNode root = XMLNode::CreateRoot(format::kRoot, false);
        root.AppendChild(format::kMain, false);
        XMLNode parameter = root.AppendChild(format::kParameter, false);
        for (kmProfileItem& item : profile.GetProfileItems()) {
            ItemWriter().Write(item, parameter.AppendChild(item.GetID().c_str(), false));
        }
        std::size_t length = 0;
        const auto text = root.ToText(/*formatted=*/true, &length);
        std::ofstream file(folder / ("choices" + std::to_string(count--) + ".pf"), std::ios::binary);
        file.write("\xFF\xFE", 2)
            .write(reinterpret_cast<const char*>(text.get()),
                   static_cast<std::streamsize>(length * sizeof(kmChar)));
    }
}

class Run {
public:
    explicit Run(const Arguments& arguments) : m_arguments(arguments) {}

    void CompareLists() {
        const TemporaryProfiles generated(m_arguments.files, m_arguments.seed);
        const ProfileFolder folder = ListProfiles(generated.Path());
        const TemporaryProfiles empty(0, m_arguments.seed);
        WriteSimpleProfiles(empty.Path(), 100);
        const ProfileFolder choices = ListProfiles(empty.Path());
        Add(CommonItems("us a profile, 100 profiles", folder, 100));
        Add(CommonItems("us a profile, 1,000 profiles", folder, 1000));
        Add(CommonItems("us a profile, 100 of 40 settings with 20 choices", choices, 100));
        Add(CommonItems("us a profile, 1,000 of 40 settings with 20 choices", choices, 1000));
    }

    void CompareWriters() {
        const TemporaryProfiles generated(m_arguments.files, m_arguments.seed);
        Add(Writers(ListProfiles(generated.Path())));
    }

    void ComparePrograms() {
        const TemporaryProfiles generated(m_arguments.files, m_arguments.seed);
        const ProfileFolder folder = ListProfiles(generated.Path());
        Add(Listing(folder, m_arguments.tool));
        Add(ArgumentsOf(folder, m_arguments.tool, m_arguments.emptyProgram));
    }

    bool Finish() {
        m_report.Add(TargetsText(m_targets));
        if (!m_arguments.report.empty()) {
            fs::create_directories(m_arguments.report);
            m_report.Write(fs::path(m_arguments.report) / "comparisons.md");
        }
        return !m_arguments.check || AreMet(m_targets);
    }

private:
    void Add(Comparison comparison) {
        TakeTurns(comparison.contenders, m_arguments.rounds, m_arguments.seed);
        m_report.Add(ComparisonTable(comparison) + "\n");
        for (Target& target : ComparisonTargets(comparison)) m_targets.push_back(std::move(target));
    }

    const Arguments& m_arguments;
    Report m_report;
    std::vector<Target> m_targets;
};

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures what is done with profiles besides reading them.");
    Arguments arguments;
    ReadOptions(app, arguments);
    CLI11_PARSE(app, argc, argv);
    const auto isWanted = [&](const char* group) {
        return arguments.only.empty() || arguments.only == group;
    };
    try {
        Run run(arguments);
        if (isWanted("lists")) run.CompareLists();
        if (isWanted("writers")) run.CompareWriters();
        if (isWanted("programs") && !arguments.tool.empty()) run.ComparePrograms();
        if (run.Finish()) return 0;
        std::fputs("A target is missed.\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
