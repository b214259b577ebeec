// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Commands.h"
#include "Failure.h"
#include "Json.h"
#include "Printable.h"
#include "Suggestion.h"
#include "Table.h"
#include "kmArgOption.h"
#include "kmHeldBack.h"
#include "kmText.h"

namespace {

struct FlagWords {
    std::uint32_t flag;
    const char* words;
};

// Two further flags have a meaning for the application alone.
constexpr FlagWords kFlagWords[] = {
    {ARG_SWITCH, "switch"},
    {ARG_SWITCH_ONE, "written with 1"},
    {ARG_INTEGER, "integer"},
    {ARG_TEXT, "text"},
    {ARG_VIDEO, "video"},
    {ARG_AUDIO, "audio"},
    {ARG_GENERAL, "general"},
    {ARG_TAG, "tag"},
    {ARG_EXPERT, "expert"},
    {ARG_LOWER_TEXT, "lower case"},
    {ARG_NOT_PASSED, "never passed to the encoder"},
};

std::string TextOrNothing(const kmChar* text) {
    return text == nullptr ? std::string() : kmUtf8FromText(text);
}

std::vector<std::string> FlagsOf(const _ArgOption& option) {
    std::vector<std::string> flags;
    for (const FlagWords& row : kFlagWords) {
        if ((option.flags & row.flag) != 0) flags.emplace_back(row.words);
    }
    return flags;
}

std::vector<std::string> SuggestedValues(const _ArgOption& option) {
    std::vector<std::string> values;
    for (const kmChar* const* value = kmArgOption::GetListVal(option.name); *value != nullptr; ++value) {
        values.push_back(kmUtf8FromText(*value));
    }
    return values;
}

using Options = std::vector<const _ArgOption*>;

Options AllOptions() {
    Options all;
    for (int index = 0; const _ArgOption* option = kmArgOption::GetArgOption(index); ++index)
        all.push_back(option);
    return all;
}

void PrintRows(const Options& options) {
    std::vector<TableRow> rows;
    for (const _ArgOption* option : options)
        rows.push_back(
            {{kmUtf8FromText(option->name), TextOrNothing(option->defVal), TextOrNothing(option->comments)}});
    PrintTable(rows, 0, {{"Name", "Default", "Meaning"}});
}

void PrintAsJson(const Options& options) {
    Json all = Json::array();
    for (const _ArgOption* option : options)
        all.push_back({{"name", kmUtf8FromText(option->name)},
                       {"kind", FlagsOf(*option)},
                       {"default", TextOrNothing(option->defVal)},
                       {"meaning", TextOrNothing(option->comments)},
                       {"values", SuggestedValues(*option)},
                       {"heldBack", kmIsHeldBack(option->name)}});
    PrintJson({{"options", std::move(all)}});
}

const _ArgOption* FindOption(const std::string& name) {
    if (const _ArgOption* option = kmArgOption::GetArgOption(kmTextFromUtf8(name).c_str())) return option;
    std::vector<std::string> known;
    for (const _ArgOption* option : AllOptions()) known.push_back(kmUtf8FromText(option->name));
    throw Failure("no option " + Quoted(name) + DidYouMean(name, known));
}

void PrintOne(const _ArgOption& option) {
    const std::vector<TableRow> all = {
        {{"Name"}, {kmUtf8FromText(option.name)}},     {{"Kind"}, FlagsOf(option)},
        {{"Default"}, {TextOrNothing(option.defVal)}}, {{"Meaning"}, {TextOrNothing(option.comments)}},
        {{"Values"}, SuggestedValues(option)},
    };
    std::vector<TableRow> rows;
    std::copy_if(all.begin(), all.end(), std::back_inserter(rows),
                 [](const TableRow& row) { return !row.list.empty() && !row.list.front().empty(); });
    PrintTable(rows, 0);
}

struct OptionsArguments {
    std::optional<std::string> name;
    bool asJson = false;
};

void ShowOptions(const OptionsArguments& arguments) {
    if (!arguments.name) return (arguments.asJson ? PrintAsJson : PrintRows)(AllOptions());
    const _ArgOption* option = FindOption(*arguments.name);
    arguments.asJson ? PrintAsJson({option}) : PrintOne(*option);
}

}  // namespace

void AddOptionsCommand(CLI::App& app) {
    auto arguments = std::make_shared<OptionsArguments>();
    CLI::App* command = app.add_subcommand("options", "List the encoder's options, or explain one");
    command->add_option("NAME", arguments->name, "The option, without its \"-\"; letter case is free");
    AddJsonFlag(*command, arguments->asJson);
    command->footer(R"(Examples:
  kmprofile options
  kmprofile options vcodec)");
    command->callback([arguments] { ShowOptions(*arguments); });
}
