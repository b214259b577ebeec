// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Arguments.h"
#include "Commands.h"
#include "Console.h"
#include "Folders.h"
#include "Json.h"
#include "Table.h"
#include "kmText.h"

namespace {

struct ExplainArguments {
    ArgumentChoices choices;
    bool leaveHeldBack = false;
    bool asJson = false;
};

TableRow RowOf(const kmArgument& setting) {
    return {{kmUtf8FromText(setting.id), kmUtf8FromText(setting.value), kmFateName(setting.fate),
             ShellLine(setting.arguments)},
            {kmUtf8FromText(setting.sentence)}};
}

Json JsonOf(const kmArgument& setting) {
    return {{"id", JsonText(setting.id)},
            {"value", JsonText(setting.value)},
            {"corrected", JsonText(setting.corrected)},
            {"fate", kmFateName(setting.fate)},
            {"arguments", JsonTexts(setting.arguments)},
            {"sentence", JsonText(setting.sentence)}};
}

void PrintAsJson(const kmArgumentList& list) {
    Json settings = Json::array();
    for (const kmArgument& setting : list.settings) settings.push_back(JsonOf(setting));
    PrintJson({{"arguments", JsonTexts(list.arguments)},
               {"settings", std::move(settings)},
               {"format", JsonOf(list.format)},
               {"streams", JsonTexts(list.streams)}});
}

void Explain(const ExplainArguments& arguments, const kmString& folder) {
    kmArgumentRequest request = RequestFor(arguments.choices);
    request.withHeldBack = !arguments.leaveHeldBack;
    request.withContainer = true;
    const kmProfile profile = LoadChosenProfile(arguments.choices, folder);
    const kmArgumentList list = kmBuildArguments(profile, request);
    if (arguments.asJson) return PrintAsJson(list);
    std::vector<TableRow> rows;
    for (const kmArgument& setting : list.settings) rows.push_back(RowOf(setting));
    rows.push_back(RowOf(list.format));
    rows.back().cells.front() = "(format)";
    PrintTable(rows, 0, {{"Setting", "Value", "Fate", "Arguments"}, {"Why"}});
    if (!list.streams.empty()) Print("\nAfter the settings: " + ShellLine(list.streams) + '\n');
}

}  // namespace

void AddExplainCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ExplainArguments>();
    CLI::App* command =
        app.add_subcommand("explain", "Print what becomes of each setting, and why one is left out");
    AddArgumentChoices(*command, arguments->choices);
    AddDialectOption(*command, arguments->choices);
    command->add_flag("--without-held-back", arguments->leaveHeldBack,
                      "As for the option text, which holds neither times nor sizes");
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(A line for each setting, in the profile's order: its name and value, what became of it, its arguments,
quoted for a POSIX shell, and why.

Examples:
  kmprofile explain "Holiday Clips"
  kmprofile explain "Holiday Clips" --for ffmpeg)");
    command->callback([arguments, &global] { Explain(*arguments, FindProfilesFolder(global.folder).path); });
}
