// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Failure.h"
#include "Paths.h"
#include "Printable.h"
#include "Table.h"
#include "Views.h"
#include "kmFolders.h"
#include "kmIconParser.h"
#include "kmText.h"

namespace {

struct ListArguments {
    std::string group;
    std::string idFilter;
    std::string groupFilter;
};

// By owner as well: a user profile may have the ID of a system profile.
using Records = std::map<std::pair<bool, kmString>, const kmProfileInfo*>;

Records RecordsOf(kmManager& catalogue) {
    Records records;
    for (const kmProfileInfo& info : catalogue.GetProfiles()) {
        records.emplace(std::pair(info.IsSystem(), info.GetID()), &info);
    }
    return records;
}

TableRow RowOf(const kmProfileInfo& info, const kmIconParser& icons) {
    const kmString id = info.GetID();
    const std::int32_t index = icons.GetIconIndex(id.c_str(), false);
    return {{kmUtf8FromText(info.GetName()), kmUtf8FromPath(id), OwnerName(info.IsSystem()),
             kmUtf8FromText(icons.GetImageFileName(id.c_str(), false)),
             index < 0 ? std::string("no icon") : std::to_string(index)}};
}

TableSection SectionOf(const kmGroup& group, bool isSystem, const Records& records,
                       const kmIconParser& icons) {
    TableSection section;
    for (const kmString& id : group.GetProfileIDs()) {
        const auto record = records.find({isSystem, id});
        if (record != records.end()) section.rows.push_back(RowOf(*record->second, icons));
    }
    const std::size_t count = section.rows.size();
    section.heading = kmUtf8FromText(group.GetName()) + " (" + std::to_string(count) +
                      (count == 1 ? " profile)" : " profiles)");
    return section;
}

void List(const ListArguments& arguments, bool oneGroup, const kmString& folder) {
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.SetIDFilter(kmPathFromUtf8(arguments.idFilter).c_str());
    catalogue.SetGroupFilter(kmTextFromUtf8(arguments.groupFilter).c_str());
    LoadCatalogue(folder);
    const Records records = RecordsOf(catalogue);
    const kmIconParser& icons = *catalogue.GetIconParser();
    const auto isWanted = [&](const kmGroup& group) {
        return !oneGroup || kmUtf8FromText(group.GetName()) == arguments.group;
    };
    std::vector<TableSection> sections;
    for (const kmGroup& group : catalogue.GetSystemGroups()) {
        if (isWanted(group)) sections.push_back(SectionOf(group, true, records, icons));
    }
    if (isWanted(catalogue.GetUserGroup())) {
        sections.push_back(SectionOf(catalogue.GetUserGroup(), false, records, icons));
    }
    if (sections.empty()) throw Failure("no group " + Quoted(arguments.group));
    PrintSections(sections, kIndent);
}

}  // namespace

void AddListCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ListArguments>();
    CLI::App* command = app.add_subcommand("list", "List the profiles in their groups");
    CLI::Option* group =
        command->add_option("--group", arguments->group, "Only this group")->type_name("NAME");
    command
        ->add_option("--id-filter", arguments->idFilter,
                     "Take only the system profiles of these IDs (A|B), or all others (~A|B)")
        ->type_name("TEXT");
    command
        ->add_option("--group-filter", arguments->groupFilter,
                     "Take only the system profiles of these groups, likewise")
        ->type_name("TEXT");
    command->footer(
        R"(Each line: name, ID, owner, and the icon's image file and index. The user's profiles stand in the last
group, "User Defined". Of two filters the one for IDs counts; letter case is free in both.

Examples:
  kmprofile list
  kmprofile list --group "User Defined"
  kmprofile list --group-filter "~PSP|Zune")");
    command->callback([arguments, group, &global] {
        List(*arguments, group->count() != 0, ProfilesFolder(global.folder));
    });
}
