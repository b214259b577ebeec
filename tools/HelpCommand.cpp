// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "CommandTree.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Printable.h"
#include "Suggestion.h"

namespace {

std::string HelpFor(const CLI::App& app, const std::string& name) {
    std::vector<std::string> known;
    for (const CLI::App* command : CommandsOf(app)) {
        if (command->get_name() == name) return command->help(app.get_name());
        known.push_back(command->get_name());
    }
    throw UsageFailure("no command " + Quoted(name) + DidYouMean(name, known));
}

// All of them at once: the parser shows that of the command that it is in, which is this one.
std::string WholeHelp(const CLI::App& app) {
    return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
}

}  // namespace

void AddHelpCommand(CLI::App& app) {
    auto name = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("help", "Explain a command, or list them all");
    command->add_option("COMMAND", *name, "The command");
    command->footer("");
    command->callback([name, &app] { Print(name->empty() ? WholeHelp(app) : HelpFor(app, *name)); });
}
