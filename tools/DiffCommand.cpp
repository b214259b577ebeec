// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <exception>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Failure.h"
#include "Folders.h"
#include "Json.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Table.h"
#include "kmCompare.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

struct DiffArguments {
    std::string first;
    std::string second;
    bool asJson = false;
};

struct Comparison {
    kmString first;  // the profiles' IDs
    kmString second;
    kmDifferences differences;
};

// In quotation marks where a space at an end would not be seen.
std::string ValueText(const kmString& value) {
    const std::string text = kmUtf8FromText(value);
    return text.starts_with(' ') || text.ends_with(' ') ? Quoted(text) : text;
}

std::string FieldName(const kmDifference& difference) {
    switch (difference.kind) {
        case DIFFERENCE_ONLY_IN_FIRST:
            return "only in the first";
        case DIFFERENCE_ONLY_IN_SECOND:
            return "only in the second";
        case DIFFERENCE_ITEM_ORDER:
            return "order of settings";
        case DIFFERENCE_HEADER_FIELD:
        case DIFFERENCE_ITEM_FIELD:
            break;
    }
    return kmUtf8FromText(difference.field);
}

// Of several settings of one name, which one.
std::string SettingName(const kmDifference& difference) {
    const std::string name = kmUtf8FromText(difference.id);
    return difference.occurrence == 0 ? name : name + " (" + std::to_string(difference.occurrence + 1) + ')';
}

void PrintRows(const Comparison& comparison) {
    std::vector<TableRow> rows;
    for (const kmDifference& difference : comparison.differences)
        rows.push_back({{SettingName(difference), FieldName(difference), ValueText(difference.first),
                         ValueText(difference.second)}});
    PrintTable(rows, 0,
               {{"Setting", "Field", kmUtf8FromPath(comparison.first), kmUtf8FromPath(comparison.second)}});
}

// In the order of their enumeration.
constexpr const char* kKinds[] = {"header", "field", "only-in-first", "only-in-second", "order"};
static_assert(std::size(kKinds) == DIFFERENCE_ITEM_ORDER + 1);

void PrintAsJson(const Comparison& comparison) {
    Json differences = Json::array();
    for (const kmDifference& difference : comparison.differences)
        differences.push_back({{"kind", kKinds[difference.kind]},
                               {"setting", JsonText(difference.id)},
                               {"occurrence", difference.occurrence},
                               {"field", JsonText(difference.field)},
                               {"first", JsonText(difference.first)},
                               {"second", JsonText(difference.second)}});
    PrintJson({{"first", JsonPath(comparison.first)},
               {"second", JsonPath(comparison.second)},
               {"differences", std::move(differences)}});
}

// Whatever goes wrong in front of the answer must not look like "they differ".
Comparison CompareOrGiveUp(const DiffArguments& arguments, const kmString& folder) {
    try {
        const kmProfile first = LoadNamedProfile(folder, arguments.first);
        const kmProfile second = LoadNamedProfile(folder, arguments.second);
        return {first.GetID(), second.GetID(), kmCompareProfiles(first, second)};
    } catch (const std::exception& error) {
        throw Failure(error.what(), kExitUsage);
    }
}

void Diff(const DiffArguments& arguments, const kmString& folder) {
    const Comparison comparison = CompareOrGiveUp(arguments, folder);
    if (arguments.asJson) {
        PrintAsJson(comparison);
    } else {
        PrintRows(comparison);
    }
    if (!comparison.differences.empty()) throw Failure("");
}

}  // namespace

void AddDiffCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<DiffArguments>();
    CLI::App* command = app.add_subcommand("diff", "Print what differs between two profiles");
    command->add_option("ID", arguments->first, "The first profile")->required();
    command->add_option("OTHER", arguments->second, "The second profile")->required();
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(A line for each difference: the setting (none for the header), the field as files call it, what the first
profile has and what the second has. Nothing when they are equal.

Exit status, as that of diff: 0 equal; 1 different; 2 wrong arguments, or a profile cannot be read.

Example:
  kmprofile diff "Phone 240p" "Holiday Clips")");
    command->callback([arguments, &global] { Diff(*arguments, FindProfilesFolder(global.folder).path); });
}
