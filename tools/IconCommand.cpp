// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Failure.h"
#include "Findings.h"
#include "Folders.h"
#include "Json.h"
#include "Lookup.h"
#include "Printable.h"
#include "Suggestion.h"
#include "Table.h"
#include "kmFolders.h"
#include "kmIconParser.h"
#include "kmText.h"

namespace {

// Answers for every ID that has no icon of its own, and may be asked for as well.
constexpr const char* kDefaultIcon = "default";

struct IconArguments {
    std::string id;
    bool group = false;
    bool asJson = false;
};

// Its name as the catalogue spells it.
kmString FindGroup(kmManager& catalogue, const std::string& name) {
    std::vector<kmGroup> groups = catalogue.GetSystemGroups();
    groups.push_back(catalogue.GetUserGroup());
    groups.push_back(catalogue.GetRecentGroup());
    std::vector<std::string> known;
    for (const kmGroup& group : groups) {
        if (kmSameName(group.GetName(), kmTextFromUtf8(name))) return group.GetName();
        known.push_back(kmUtf8FromText(group.GetName()));
    }
    throw Failure("no group " + Quoted(name) + DidYouMean(name, known));
}

kmString KeyOf(const IconArguments& arguments, kmManager& catalogue, const kmString& folder) {
    if (arguments.id == kDefaultIcon) return kmTextFromUtf8(arguments.id);
    return arguments.group ? FindGroup(catalogue, arguments.id) : FindProfileID(folder, arguments.id);
}

std::string WhyNoIcon(const std::string& id, const kmString& folder) {
    const kmLoadReport report = kmReportLoad(folder);
    const kmString indexFile = report.folder + KM_TEXT("pficon.con");
    const auto fault = std::find_if(
        report.findings.begin(), report.findings.end(),
        [&](const kmLoadFinding& finding) { return !finding.isUsed && kmSameName(finding.path, indexFile); });
    return "no icon for " + Quoted(id) + (fault == report.findings.end() ? "" : "; " + Describe(*fault));
}

void ShowIcon(const IconArguments& arguments, const kmString& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    const kmString key = KeyOf(arguments, catalogue, folder);
    const kmIconParser& icons = *catalogue.GetIconParser();
    const std::int32_t index = icons.GetIconIndex(key.c_str(), arguments.group);
    const kmString image = icons.GetImageFileName(key.c_str(), arguments.group);
    if (image.empty()) throw Failure(WhyNoIcon(arguments.id, folder));
    std::int32_t width = 0;
    std::int32_t height = 0;
    kmString transparentColor;
    icons.GetIconInfo(width, height, transparentColor, arguments.group);
    if (arguments.asJson)
        return PrintJson({{"imageFile", JsonText(image)},
                          {"index", index},
                          {"width", width},
                          {"height", height},
                          {"transparentColour", JsonText(transparentColor)}});
    PrintTable({{{"Image file", kmUtf8FromText(image)}},
                {{"Index", std::to_string(index)}},
                {{"Size", std::to_string(width) + " x " + std::to_string(height)}},
                {{"Transparent colour", kmUtf8FromText(transparentColor)}}},
               0);
}

}  // namespace

void AddIconCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<IconArguments>();
    CLI::App* command = app.add_subcommand("icon", "Tell which icon belongs to a profile or a group");
    command->add_option("ID", arguments->id, "The profile, or the group's name")->required();
    command->add_flag("--group", arguments->group, "It is a group");
    AddJsonFlag(*command, arguments->asJson);
    command->footer(R"(One without an icon of its own has the one called "default".

Examples:
  kmprofile icon "Holiday Clips"
  kmprofile icon "User Defined" --group)");
    command->callback([arguments, &global] { ShowIcon(*arguments, FindProfilesFolder(global.folder).path); });
}
