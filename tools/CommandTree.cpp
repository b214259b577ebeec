// SPDX-License-Identifier: MIT
#include "CommandTree.h"

#include <algorithm>

namespace {

OptionText TextOf(const CLI::Option& option) {
    OptionText text;
    text.isPositional = option.get_positional();
    if (text.isPositional) text.names.push_back(option.get_name(/*positional=*/true));
    for (const std::string& name : option.get_snames()) text.names.push_back('-' + name);
    for (const std::string& name : option.get_lnames()) text.names.push_back("--" + name);
    const bool isFlag = option.get_items_expected_max() == 0;
    if (!isFlag && !text.isPositional) text.valueName = option.get_type_name();
    text.description = option.get_description();
    text.isRequired = option.get_required();
    text.isRepeatable = text.isPositional && option.get_expected_max() > 1;
    return text;
}

std::string Bracketed(const OptionText& option) {
    std::string text = option.names.back();
    if (!option.valueName.empty()) text += ' ' + option.valueName;
    if (option.isRepeatable) text += "...";
    return option.isRequired ? text : '[' + text + ']';
}

}  // namespace

std::vector<OptionText> OptionsOf(const CLI::App& command) {
    std::vector<OptionText> texts;
    for (const CLI::Option* option : command.get_options()) texts.push_back(TextOf(*option));
    for (const CLI::App* group : command.get_subcommands([](const CLI::App*) { return true; })) {
        if (!group->get_name().empty()) continue;
        for (const CLI::Option* option : group->get_options()) texts.push_back(TextOf(*option));
    }
    return texts;
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) {
        return !command->get_name().empty() && !command->get_group().empty();
    });
}

bool TakesProfile(const CLI::App& command) {
    const std::vector<OptionText> options = OptionsOf(command);
    return std::any_of(options.begin(), options.end(), [](const OptionText& option) {
        const std::string& name = option.names.front();
        return option.isPositional && (name.starts_with("ID") || name.starts_with("PROFILE"));
    });
}

std::string UsageOf(const CLI::App& command) {
    std::string usage = "kmprofile " + command.get_name();
    const std::vector<OptionText> options = OptionsOf(command);
    for (const bool positional : {true, false}) {
        for (const OptionText& option : options) {
            if (option.isPositional == positional && option.names.back() != "--help")
                usage += ' ' + Bracketed(option);
        }
    }
    return usage;
}
