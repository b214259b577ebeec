// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Table.h"
#include "conversion/EncoderLists.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

struct AvailableArguments {
    std::string id;
    std::string encoder = "ffmpeg";
};

std::string Describe(const kmMissingAbility& missing) {
    const std::string setting = missing.option.empty() ? "output format" : kmUtf8FromText(missing.option);
    return setting + ' ' + kmUtf8FromText(missing.value) + ": " + kmUtf8FromText(missing.sentence);
}

// Whether it runs.
bool AddRow(std::vector<TableRow>& rows, const kmProfile& profile, const kmEncoderAbilities& abilities) {
    const std::vector<kmMissingAbility> missing =
        kmFindMissingAbilities(profile, KM_DIALECT_FFMPEG, abilities);
    std::string id = kmUtf8FromPath(profile.GetID());
    if (missing.empty()) rows.push_back({{id, "runs"}});
    for (const kmMissingAbility& each : missing) {
        rows.push_back({{id, Describe(each)}});
        id.clear();
    }
    return missing.empty();
}

void ShowAll(const kmEncoderAbilities& abilities, const kmString& folder) {
    std::vector<TableRow> rows;
    for (const kmProfileInfo& info : LoadCatalogue(folder).GetProfiles())
        AddRow(rows, LoadProfile(folder, info.GetID()), abilities);
    PrintTable(rows, 0);
}

void ShowOne(const std::string& id, const kmEncoderAbilities& abilities, const kmString& folder) {
    std::vector<TableRow> rows;
    const bool runs = AddRow(rows, LoadProfile(folder, kmPathFromUtf8(id)), abilities);
    PrintTable(rows, 0);
    if (!runs) throw Failure({});
}

void ShowAvailable(const AvailableArguments& arguments, const kmString& folder) {
    const kmEncoderAbilities abilities = ReadAbilities(arguments.encoder);
    arguments.id.empty() ? ShowAll(abilities, folder) : ShowOne(arguments.id, abilities, folder);
}

}  // namespace

void AddAvailableCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<AvailableArguments>();
    CLI::App* command =
        app.add_subcommand("available", "Print which profiles this machine's encoder can run");
    command->add_option("ID", arguments->id, "One profile (default: all)");
    command
        ->add_option("--encoder", arguments->encoder,
                     "The encoder, ffmpeg or a program that takes its arguments (default: ffmpeg, from PATH)")
        ->type_name("PROGRAM");
    command->footer(
        R"(A profile "runs", or the settings are listed whose codec or format the encoder lacks. Nothing else is
ever taken instead.

Exit status: 1 when the one profile that was asked for does not run.

Examples:
  kmprofile available
  kmprofile available "Holiday Clips" --encoder /opt/ffmpeg/bin/ffmpeg)");
    command->callback([arguments, &global] { ShowAvailable(*arguments, ProfilesFolder(global.folder)); });
}
