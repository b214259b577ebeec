// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Folders.h"
#include "Json.h"
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
    bool asJson = false;
};

// A profile and what the encoder lacks for it.
struct Availability {
    kmString id;
    std::vector<kmMissingAbility> missing;
};

std::string Describe(const kmMissingAbility& missing) {
    const std::string setting = missing.option.empty() ? "output format" : kmUtf8FromText(missing.option);
    return setting + ' ' + kmUtf8FromText(missing.value) + ": " + kmUtf8FromText(missing.sentence);
}

Availability Judge(const kmProfile& profile, const kmEncoderAbilities& abilities) {
    return {profile.GetID(), kmFindMissingAbilities(profile, KM_DIALECT_FFMPEG, abilities)};
}

std::vector<Availability> JudgeAll(const kmEncoderAbilities& abilities, const kmString& folder) {
    std::vector<Availability> all;
    for (const kmProfileInfo& info : LoadCatalogue(folder).GetProfiles())
        all.push_back(Judge(LoadProfile(folder, info.GetID()), abilities));
    return all;
}

void PrintRows(const std::vector<Availability>& all) {
    std::vector<TableRow> rows;
    for (const Availability& each : all) {
        std::string id = kmUtf8FromPath(each.id);
        if (each.missing.empty()) rows.push_back({{id, "runs"}});
        for (const kmMissingAbility& missing : each.missing) {
            rows.push_back({{id, Describe(missing)}});
            id.clear();
        }
    }
    PrintTable(rows, 0, {{"ID", "Runs, or what is missing"}});
}

void PrintAsJson(const std::vector<Availability>& all) {
    Json profiles = Json::array();
    for (const Availability& each : all) {
        Json missing = Json::array();
        for (const kmMissingAbility& ability : each.missing)
            missing.push_back({{"option", JsonText(ability.option)},
                               {"value", JsonText(ability.value)},
                               {"needed", JsonText(ability.needed)},
                               {"sentence", JsonText(ability.sentence)}});
        profiles.push_back(
            {{"id", JsonPath(each.id)}, {"runs", each.missing.empty()}, {"missing", std::move(missing)}});
    }
    PrintJson({{"profiles", std::move(profiles)}});
}

void ShowAvailable(const AvailableArguments& arguments, const kmString& folder) {
    const kmEncoderAbilities abilities = ReadAbilities(arguments.encoder);
    const bool isOne = !arguments.id.empty();
    const std::vector<Availability> all =
        isOne ? std::vector{Judge(LoadNamedProfile(folder, arguments.id), abilities)}
              : JudgeAll(abilities, folder);
    arguments.asJson ? PrintAsJson(all) : PrintRows(all);
    if (isOne && !all.front().missing.empty()) throw Failure({});
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
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(A profile "runs", or the settings are listed whose codec or format the encoder lacks. Nothing else is
ever taken instead.

Exit status: 1 when the one profile that was asked for does not run.

Examples:
  kmprofile available
  kmprofile available "Holiday Clips" --encoder /opt/ffmpeg/bin/ffmpeg)");
    command->callback(
        [arguments, &global] { ShowAvailable(*arguments, FindProfilesFolder(global.folder).path); });
}
