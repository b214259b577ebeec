// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "CommandTree.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Findings.h"
#include "Printable.h"
#include "Suggestion.h"

namespace {

constexpr const char* kDescription =
    "Lists, shows and changes encoding profiles, turns them into encoder options, and converts with them.";

constexpr const char* kFooter = R"(Examples:
  kmprofile list --group "User Defined"
  kmprofile show "Holiday Clips"
  kmprofile set "Holiday Clips" b=1500 s=720x576 --as "Holiday Clips Large"
  kmprofile edit "Holiday Clips" "Holiday Clips Large" ab=192
  kmprofile rename "Holiday Clips Large" "Grandma"
  kmprofile delete "Grandma"
  kmprofile diff "Holiday Clips" "Phone 240p"
  kmprofile args "Holiday Clips" --set ab=192 --held-back
  kmprofile convert "Holiday Clips" tape.avi clip.mp4
  kmprofile estimate "Holiday Clips" --duration 01:30:00
  kmprofile check s 640x480
  kmprofile options vcodec

A profile is given by its ID, which is its file name without ".pf", or by the name that it shows; letter case
(A to Z) is free. It is looked for in the profiles folder ("kmprofile where" says which) and then in that folder's "user"
subfolder, which takes the copies of system profiles. Those of the system are never changed.

Data goes to standard output, messages and warnings go to standard error. --json prints data for programs.
"kmprofile COMMAND --help" explains one command.

Exit status: 0 done; 1 refused or failed; 2 wrong arguments; 3 the output could not be written. "diff", "lint"
and "convert" say more.)";

void AddCommands(CLI::App& app, GlobalOptions& global) {
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.add_option("--folder", global.folder, "The profiles folder (default: see kmprofile where)")
        ->type_name("DIR")
        ->check(CLI::Validator(
            [](const std::string& text) {
                return std::string(text.empty() ? "the folder's name is empty" : "");
            },
            ""));
    app.set_version_flag("--version", "kmprofile " KM_VERSION, "Print the version and exit");
    app.require_subcommand(1);
    app.fallthrough();  // subcommands inherit it: --folder may also follow the command
    app.allow_windows_style_options(false);
    app.footer(kFooter);
    AddListCommand(app, global);
    AddShowCommand(app, global);
    AddLintCommand(app, global);
    AddDiffCommand(app, global);
    AddArgsCommand(app, global);
    AddExplainCommand(app, global);
    AddAvailableCommand(app, global);
    AddConvertCommand(app, global);
    AddEstimateCommand(app, global);
    AddSetCommand(app, global);
    AddEditCommand(app, global);
    AddRenameCommand(app, global);
    AddDeleteCommand(app, global);
    AddIconCommand(app, global);
    AddCheckCommand(app);
    AddOptionsCommand(app);
    AddWhereCommand(app, global);
    AddInitCommand(app, global);
    AddCompletionCommand(app);
    AddManualCommand(app);
    AddHelpCommand(app);
}

std::vector<std::string> OptionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const OptionText& option : OptionsOf(command))
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

std::string ExplainUnknown(const CLI::App& app, const std::string& word) {
    std::vector<std::string> known = OptionNames(app);
    for (const CLI::App* command : CommandsOf(app)) known.push_back(command->get_name());
    return "unknown command or option " + Quoted(word) + DidYouMean(word, known);
}

std::string ExplainUnknownIn(const CLI::App& command, const std::string& word) {
    if (!word.starts_with('-')) return command.get_name() + ": unexpected argument " + Quoted(word);
    std::vector<std::string> known = OptionNames(command);
    known.emplace_back("--folder");
    return command.get_name() + ": unknown option " + Quoted(word) + DidYouMean(word, known);
}

// The parser's own words would call an unknown command a missing one.
std::string Explain(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining(/*recurse=*/true);
    const std::vector<CLI::App*> commands = app.get_subcommands();
    if (commands.empty()) {
        if (!unknown.empty()) return ExplainUnknown(app, unknown.front());
        return dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ? "no command" : error.what();
    }
    const bool isExtra = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    if (isExtra && !unknown.empty()) return ExplainUnknownIn(*commands.front(), unknown.front());
    return commands.front()->get_name() + ": " + error.what();
}

int ReportParseResult(const CLI::App& app, const CLI::ParseError& result) {
    if (result.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        const bool isVersion = dynamic_cast<const CLI::CallForVersion*>(&result) != nullptr;
        Print(isVersion ? std::string(result.what()) + '\n' : app.help());
        return kExitDone;
    }
    PrintError(Explain(app, result) + " (see kmprofile --help)");
    return kExitUsage;
}

int Run(std::vector<std::string> arguments) {
    GlobalOptions global;
    CLI::App app(kDescription, "kmprofile");
    AddCommands(app, global);
    SilenceLibrary();
    std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the back
    try {
        app.parse(std::move(arguments));
        return kExitDone;
    } catch (const CLI::ParseError& result) {
        return ReportParseResult(app, result);
    } catch (const Failure& failure) {
        if (*failure.what() != '\0') PrintError(failure.what());
        return failure.ExitCode();
    }
}

}  // namespace

int main(int argc, char** argv) {
    KeepStandardStreams();
    int exitCode = kExitFailure;
    try {
        exitCode = Run(ProgramArguments(argc, argv));
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    if (FinishOutput()) return exitCode;
    PrintError("cannot write to standard output");
    return kExitNoOutput;
}
