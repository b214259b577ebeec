// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Printable.h"
#include "Table.h"
#include "kmArgOption.h"
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

void ListOptions() {
    std::vector<TableRow> rows = {{{"Name", "Default", "Meaning"}}};
    for (int index = 0; const _ArgOption* option = kmArgOption::GetArgOption(index); ++index) {
        rows.push_back(
            {{kmUtf8FromText(option->name), TextOrNothing(option->defVal), TextOrNothing(option->comments)}});
    }
    PrintTable(rows, 0);
}

void ShowOption(const std::string& name) {
    const _ArgOption* option = kmArgOption::GetArgOption(kmTextFromUtf8(name).c_str());
    if (option == nullptr) throw Failure("no option " + Quoted(name));
    const std::vector<TableRow> all = {
        {{"Name"}, {kmUtf8FromText(option->name)}},     {{"Kind"}, FlagsOf(*option)},
        {{"Default"}, {TextOrNothing(option->defVal)}}, {{"Meaning"}, {TextOrNothing(option->comments)}},
        {{"Values"}, SuggestedValues(*option)},
    };
    std::vector<TableRow> rows;
    std::copy_if(all.begin(), all.end(), std::back_inserter(rows),
                 [](const TableRow& row) { return !row.list.empty() && !row.list.front().empty(); });
    PrintTable(rows, 0);
}

}  // namespace

void AddOptionsCommand(CLI::App& app) {
    auto name = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("options", "List the encoder's options, or explain one");
    CLI::Option* wanted =
        command->add_option("NAME", *name, "The option, without its \"-\"; letter case is free");
    command->footer(R"(Examples:
  kmprofile options
  kmprofile options vcodec)");
    command->callback([name, wanted] { wanted->count() == 0 ? ListOptions() : ShowOption(*name); });
}
