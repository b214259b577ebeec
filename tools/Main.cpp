// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "LibraryMessages.h"
#include "Printable.h"

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

A profile's ID is its file name without ".pf". It is looked for in the profiles folder and then in that
folder's "user" subfolder, which takes the copies of system profiles. Those of the system are never changed.
"kmprofile COMMAND --help" explains one command.

Exit status: 0 done; 1 refused or failed; 2 wrong arguments. "diff" and "convert" have others too.)";

void AddCommands(CLI::App& app, GlobalOptions& global) {
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.add_option("--folder", global.folder,
                   "The profiles folder (default: \"Profiles\" beside the program)")
        ->type_name("DIR");
    app.require_subcommand(1);
    app.fallthrough();  // subcommands inherit it: --folder may also follow the command
    app.allow_windows_style_options(false);
    app.footer(kFooter);
    AddListCommand(app, global);
    AddShowCommand(app, global);
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
}

// The parser's own words would call an unknown command a missing one.
std::string Explain(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) return error.what();
    const std::vector<std::string> unknown = app.remaining();
    if (!unknown.empty()) return "unknown command or option " + Quoted(unknown.front());
    return dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ? "no command" : error.what();
}

int ReportParseResult(const CLI::App& app, const CLI::ParseError& result) {
    if (result.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        Print(app.help());
        return kExitDone;
    }
    PrintError(Explain(app, result) + " (see kmprofile --help)");
    return kExitUsage;
}

int Run(std::vector<std::string> arguments) {
    GlobalOptions global;
    CLI::App app(kDescription, "kmprofile");
    AddCommands(app, global);
    CollectLibraryMessages();
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
    int exitCode = kExitFailure;
    try {
        exitCode = Run(ProgramArguments(argc, argv));
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    if (FinishOutput()) return exitCode;
    PrintError("cannot write to standard output");
    return kExitFailure;
}
