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
#include "LibraryMessages.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Table.h"
#include "kmFolders.h"
#include "kmIconParser.h"
#include "kmText.h"

namespace {

// Answers for every ID that has no icon of its own, and may be asked for as well.
constexpr const char* kDefaultIcon = "default";

bool IsGroup(kmManager& catalogue, const std::string& name) {
    std::vector<kmGroup> groups = catalogue.GetSystemGroups();
    groups.push_back(catalogue.GetUserGroup());
    groups.push_back(catalogue.GetRecentGroup());
    return std::any_of(groups.begin(), groups.end(),
                       [&name](const kmGroup& group) { return kmUtf8FromText(group.GetName()) == name; });
}

void RequireKnown(kmManager& catalogue, const std::string& id, bool group, const kmString& folder) {
    if (id == kDefaultIcon) return;
    if (group && !IsGroup(catalogue, id)) throw Failure("no group " + Quoted(id));
    const kmString profileID = kmPathFromUtf8(id);
    if (!group && !IsProfile(catalogue, profileID)) LoadProfile(folder, profileID);  // throws with the reason
}

std::string WhyNoIcon(const std::string& id) {
    const kmString indexFile = KM_TEXT("\\pficon.con");
    const std::vector<LibraryMessage>& messages = LibraryMessages();
    const auto fault = std::find_if(messages.begin(), messages.end(), [&](const LibraryMessage& message) {
        return !kmIsWarning(message.code) && message.path.ends_with(indexFile);
    });
    return "no icon for " + Quoted(id) + (fault == messages.end() ? "" : "; " + Describe(*fault));
}

void ShowIcon(const std::string& id, bool group, const kmString& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    RequireKnown(catalogue, id, group, folder);
    const kmIconParser& icons = *catalogue.GetIconParser();
    const kmString key = group ? kmTextFromUtf8(id) : kmPathFromUtf8(id);
    const std::int32_t index = icons.GetIconIndex(key.c_str(), group);
    const kmString image = icons.GetImageFileName(key.c_str(), group);
    if (image.empty()) throw Failure(WhyNoIcon(id));
    std::int32_t width = 0;
    std::int32_t height = 0;
    kmString transparentColor;
    icons.GetIconInfo(width, height, transparentColor, group);
    PrintTable({{{"Image file", kmUtf8FromText(image)}},
                {{"Index", std::to_string(index)}},
                {{"Size", std::to_string(width) + " x " + std::to_string(height)}},
                {{"Transparent colour", kmUtf8FromText(transparentColor)}}},
               0);
}

}  // namespace

void AddIconCommand(CLI::App& app, const GlobalOptions& global) {
    struct IconArguments {
        std::string id;
        bool group = false;
    };
    auto arguments = std::make_shared<IconArguments>();
    CLI::App* command = app.add_subcommand("icon", "Tell which icon belongs to a profile or a group");
    command->add_option("ID", arguments->id, "The profile, or the group's name")->required();
    command->add_flag("--group", arguments->group, "It is a group");
    command->footer(R"(One without an icon of its own has the one called "default".

Examples:
  kmprofile icon "Holiday Clips"
  kmprofile icon "User Defined" --group)");
    command->callback(
        [arguments, &global] { ShowIcon(arguments->id, arguments->group, ProfilesFolder(global.folder)); });
}
