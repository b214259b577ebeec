// SPDX-License-Identifier: MIT
// The commands. Each Add... registers one subcommand, whose work is done while the arguments are parsed, and
// keeps `global` by reference.
#pragma once

#include <string>

namespace CLI {
class App;
}

// What stands before every command.
struct GlobalOptions {
    std::string folder;  // the profiles folder in the system's own form; empty: the default one
};

void AddLintCommand(CLI::App& app, const GlobalOptions& global);
void AddWhereCommand(CLI::App& app, const GlobalOptions& global);
void AddInitCommand(CLI::App& app, const GlobalOptions& global);
void AddListCommand(CLI::App& app, const GlobalOptions& global);
void AddShowCommand(CLI::App& app, const GlobalOptions& global);
void AddDiffCommand(CLI::App& app, const GlobalOptions& global);
void AddArgsCommand(CLI::App& app, const GlobalOptions& global);
void AddAvailableCommand(CLI::App& app, const GlobalOptions& global);
void AddExplainCommand(CLI::App& app, const GlobalOptions& global);
void AddConvertCommand(CLI::App& app, const GlobalOptions& global);
void AddEstimateCommand(CLI::App& app, const GlobalOptions& global);
void AddSetCommand(CLI::App& app, const GlobalOptions& global);
void AddEditCommand(CLI::App& app, const GlobalOptions& global);
void AddRenameCommand(CLI::App& app, const GlobalOptions& global);
void AddDeleteCommand(CLI::App& app, const GlobalOptions& global);
void AddIconCommand(CLI::App& app, const GlobalOptions& global);
void AddCheckCommand(CLI::App& app);
void AddOptionsCommand(CLI::App& app);
void AddCompletionCommand(CLI::App& app);
void AddManualCommand(CLI::App& app);
void AddHelpCommand(CLI::App& app);
