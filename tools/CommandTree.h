// SPDX-License-Identifier: MIT
// What the commands and their options are called, as the argument parser knows them: one source for the help,
// the manual page and the shells' completion.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

struct OptionText {
    std::vector<std::string> names;  // with "-" or "--"; that of a positional argument as it is
    std::string valueName;           // empty for a flag
    std::string description;
    bool isPositional = false;
    bool isRequired = false;
    bool isRepeatable = false;
};

// The options of the command itself, those in groups included, in the order of the help.
std::vector<OptionText> OptionsOf(const CLI::App& command);

// The commands that the help shows, in its order.
std::vector<const CLI::App*> CommandsOf(const CLI::App& app);

// Whether the command takes a profile.
bool TakesProfile(const CLI::App& command);

// "kmprofile show ID [--json]".
std::string UsageOf(const CLI::App& command);
