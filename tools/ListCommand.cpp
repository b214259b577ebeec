// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Findings.h"
#include "Folders.h"
#include "Json.h"
#include "Printable.h"
#include "Suggestion.h"
#include "Table.h"
#include "Views.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

struct ListArguments {
    std::string group;
    std::string idFilter;
    std::string groupFilter;
    bool idsOnly = false;
    bool asJson = false;
};

// One group with its records, in its order.
struct ListedGroup {
    std::string name;
    bool isSystem = false;
    std::vector<const kmProfileInfo*> profiles;
};

// By owner as well: a user profile may have the ID of a system profile.
using Records = std::map<std::pair<bool, kmString>, const kmProfileInfo*>;

ListedGroup Resolve(const kmGroup& group, bool isSystem, const Records& records) {
    ListedGroup listed = {kmUtf8FromText(group.GetName()), isSystem, {}};
    for (const kmString& id : group.GetProfileIDs()) {
        const auto record = records.find({isSystem, id});
        if (record != records.end()) listed.profiles.push_back(record->second);
    }
    return listed;
}

std::vector<ListedGroup> AllGroups(kmManager& catalogue) {
    Records records;
    for (const kmProfileInfo& info : catalogue.GetProfiles())
        records.emplace(std::pair(info.IsSystem(), info.GetID()), &info);
    std::vector<ListedGroup> groups;
    for (const kmGroup& group : catalogue.GetSystemGroups()) groups.push_back(Resolve(group, true, records));
    groups.push_back(Resolve(catalogue.GetUserGroup(), false, records));
    return groups;
}

void KeepOnly(std::vector<ListedGroup>& groups, const std::string& name) {
    std::vector<std::string> known;
    for (const ListedGroup& group : groups) known.push_back(group.name);
    const kmString wanted = kmTextFromUtf8(name);
    std::erase_if(groups, [&wanted](const ListedGroup& group) {
        return !kmSameName(kmTextFromUtf8(group.name), wanted);
    });
    if (groups.empty()) throw Failure("no group " + Quoted(name) + DidYouMean(name, known));
}

void PrintGroups(const std::vector<ListedGroup>& groups, kmManager& catalogue) {
    std::vector<TableSection> sections;
    for (const ListedGroup& group : groups) {
        const std::size_t count = group.profiles.size();
        TableSection& section = sections.emplace_back();
        section.heading =
            group.name + " (" + std::to_string(count) + (count == 1 ? " profile)" : " profiles)");
        for (const kmProfileInfo* info : group.profiles) {
            const auto [image, index] = IconOf(catalogue, info->GetID());
            section.rows.push_back(
                {{kmUtf8FromText(info->GetName()), kmUtf8FromPath(info->GetID()), OwnerName(info->IsSystem()),
                  kmUtf8FromText(image), index < 0 ? "no icon" : std::to_string(index)}});
        }
    }
    PrintSections(sections, kIndent, {{"Name", "ID", "Owner", "Icon file", "Icon"}});
}

// Each once, though profiles may stand in several groups.
void PrintIDs(const std::vector<ListedGroup>& groups) {
    std::vector<kmString> printed;
    for (const ListedGroup& group : groups) {
        for (const kmProfileInfo* info : group.profiles) printed.push_back(info->GetID());
    }
    std::sort(printed.begin(), printed.end());
    printed.erase(std::unique(printed.begin(), printed.end()), printed.end());
    for (const kmString& id : printed) {
        if (id.find_first_of(KM_TEXT("\r\n")) != kmString::npos)
            throw Failure(QuotedID(id) + " holds a line break (--json can print it)");
    }
    for (const kmString& id : printed) PrintExactly(kmUtf8FromPath(id));
}

Json JsonOf(const kmProfileInfo& info, kmManager& catalogue) {
    const auto [image, index] = IconOf(catalogue, info.GetID());
    return {{"id", JsonPath(info.GetID())},
            {"name", JsonText(info.GetName())},
            {"description", JsonText(info.GetDesc())},
            {"owner", OwnerName(info.IsSystem())},
            {"extension", JsonText(info.GetExtname())},
            {"iconFile", JsonText(image)},
            {"icon", index < 0 ? Json() : Json(index)}};
}

Json JsonOf(const kmLoadFinding& finding) {
    return {{"fault", kmLoadFaultName(finding.fault)}, {"used", finding.isUsed},
            {"path", JsonPath(finding.path)},          {"other", JsonPath(finding.other)},
            {"line", JsonPosition(finding.line)},      {"column", JsonPosition(finding.column)},
            {"reason", JsonText(finding.reason)}};
}

void PrintAsJson(const std::vector<ListedGroup>& groups, kmManager& catalogue, const kmLoadReport& report) {
    Json json = {{"folder", JsonPath(report.folder)}, {"groups", Json::array()}, {"findings", Json::array()}};
    for (const ListedGroup& group : groups) {
        Json profiles = Json::array();
        for (const kmProfileInfo* info : group.profiles) profiles.push_back(JsonOf(*info, catalogue));
        json["groups"].push_back(
            {{"name", group.name}, {"owner", OwnerName(group.isSystem)}, {"profiles", std::move(profiles)}});
    }
    for (const kmLoadFinding& finding : report.findings) json["findings"].push_back(JsonOf(finding));
    PrintJson(json);
}

// What was asked for, and what leaves no profile out, is nothing to complain of.
bool IsExpected(const kmLoadFinding& finding) {
    return finding.fault == LOAD_FAULT_FILTERED || finding.fault == LOAD_FAULT_NO_ICONS;
}

kmLoadReport Load(const ListArguments& arguments, kmManager& catalogue, const kmString& folder) {
    catalogue.SetIDFilter(kmPathFromUtf8(arguments.idFilter).c_str());
    catalogue.SetGroupFilter(kmTextFromUtf8(arguments.groupFilter).c_str());
    kmLoadReport report = kmLoadWithReport(catalogue, folder);
    const bool isListed =
        std::none_of(report.findings.begin(), report.findings.end(), [&report](const kmLoadFinding& finding) {
            return (finding.fault == LOAD_FAULT_FOLDER_MISSING ||
                    finding.fault == LOAD_FAULT_FOLDER_UNREADABLE) &&
                   finding.path == report.folder;
        });
    if (!isListed) RequireFolder(folder);  // says why
    return report;
}

std::vector<kmString> PartsOf(const std::string& filter) {
    std::vector<kmString> parts;
    std::istringstream rest(filter);
    for (std::string part; std::getline(rest, part, '|');) parts.push_back(kmTextFromUtf8(part));
    return parts;
}

// What a filter names and no system profile or group has. What an inverted one leaves out is not known.
std::vector<kmString> UnmatchedParts(const ListArguments& arguments, const std::vector<ListedGroup>& groups) {
    const bool isByID = !arguments.idFilter.empty();
    const std::string& filter = isByID ? arguments.idFilter : arguments.groupFilter;
    if (filter.empty() || filter.front() == '~') return {};
    std::vector<kmString> parts = PartsOf(filter);
    for (const ListedGroup& group : groups) {
        if (!group.isSystem) continue;
        const auto isNamed = [&](const kmString& part) {
            if (!isByID) return kmSameName(part, kmTextFromUtf8(group.name));
            return std::any_of(group.profiles.begin(), group.profiles.end(),
                               [&part](const auto* info) { return kmSameName(info->GetID(), part); });
        };
        std::erase_if(parts, isNamed);
    }
    return parts;
}

// Whether there was anything to tell.
bool TellFaults(const ListArguments& arguments, const std::vector<ListedGroup>& groups,
                const kmLoadReport& report) {
    bool isAny = false;
    for (const kmLoadFinding& finding : report.findings) {
        if (IsExpected(finding)) continue;
        PrintError(Describe(finding));
        isAny = true;
    }
    for (const kmString& part : UnmatchedParts(arguments, groups)) {
        PrintError("no system profile matches the filter " + Quoted(kmUtf8FromText(part)));
        isAny = true;
    }
    return isAny;
}

void List(const ListArguments& arguments, bool oneGroup, const kmString& folder) {
    kmManager& catalogue = kmManager::GetInstance();
    const kmLoadReport report = Load(arguments, catalogue, folder);
    std::vector<ListedGroup> groups = AllGroups(catalogue);
    const bool hasFaults = TellFaults(arguments, groups, report);
    if (oneGroup) KeepOnly(groups, arguments.group);
    if (arguments.asJson) {
        PrintAsJson(groups, catalogue, report);
    } else if (arguments.idsOnly) {
        PrintIDs(groups);
    } else {
        PrintGroups(groups, catalogue);
    }
    if (hasFaults) throw Failure("");
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
    CLI::Option* ids = command->add_flag("--ids", arguments->idsOnly, "Print the IDs alone, one a line");
    AddJsonFlag(*command, arguments->asJson)->excludes(ids);
    command->footer(
        R"(The user's profiles stand in the last group, "User Defined". Of two filters the one for IDs counts; letter
case is free in both. What was left out, or used in part, is told on standard error, a line for each file.

Exit status: 1 when anything was, or when no system profile matches a part of the filter.

Examples:
  kmprofile list
  kmprofile list --group "User Defined"
  kmprofile list --group-filter "~PSP|Zune" --ids)");
    command->callback([arguments, group, &global] {
        List(*arguments, group->count() != 0, FindProfilesFolder(global.folder).path);
    });
}
