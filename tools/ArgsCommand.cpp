// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Arguments.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Folders.h"
#include "Json.h"
#include "kmArgOption.h"
#include "kmHeldBack.h"
#include "kmText.h"

namespace {

struct ArgsArguments {
    ArgumentChoices choices;
    bool heldBack = false;
    bool container = false;
    bool asList = false;
    bool nullTerminated = false;
    bool forShell = false;
    bool asJson = false;
};

void AppendHeldBack(std::vector<std::string>& lines, const kmProfile& profile) {
    for (const kmProfileItem& item : profile.GetProfileItems()) {
        const kmString id = item.GetID();
        if (!kmIsHeldBack(id.c_str())) continue;
        const kmChar* name = kmArgOption::GetOptionTitle(id.c_str());  // item IDs may be in any letter case
        const kmString value = item.GetValue();
        const bool isBlank = value.find_first_not_of(KM_TEXT(' ')) == kmString::npos;
        if (!isBlank) lines.push_back(kmUtf8FromText(name) + '=' + kmUtf8FromText(value));
    }
}

// Scripts read the output line by line, so that a value with a line break could pass for other settings.
void PrintLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        if (line.find_first_of("\r\n") != std::string::npos)
            throw Failure("a setting holds a line break (--null and --shell can print it)");
    }
    for (const std::string& line : lines) PrintExactly(line);
}

void PrintString(const ArgsArguments& arguments, kmProfile& profile) {
    std::vector<std::string> lines = {kmUtf8FromText(profile.GetAvcString(!arguments.choices.noAudio))};
    if (arguments.heldBack) AppendHeldBack(lines, profile);
    PrintLines(lines);
}

void PrintList(const ArgsArguments& arguments, const kmProfile& profile) {
    kmArgumentRequest request = RequestFor(arguments.choices);
    request.withHeldBack = arguments.heldBack;
    request.withContainer = arguments.container;
    const kmArgumentList list = kmBuildArguments(profile, request);
    if (arguments.asJson) return PrintJson({{"arguments", JsonTexts(list.arguments)}});
    if (!arguments.asList && !arguments.nullTerminated) return PrintExactly(ShellLine(list.arguments));
    std::vector<std::string> lines;
    for (const kmString& argument : list.arguments) lines.push_back(kmUtf8FromText(argument));
    if (arguments.asList) return PrintLines(lines);
    for (const std::string& line : lines) Print(line + '\0');
}

void PrintArgs(const ArgsArguments& arguments, const kmString& folder) {
    const bool isString = !arguments.asList && !arguments.nullTerminated && !arguments.forShell &&
                          !arguments.asJson && !arguments.container && arguments.choices.dialect.empty();
    RequestFor(arguments.choices);  // refuses a dialect before it looks for the profile
    kmProfile profile = LoadChosenProfile(arguments.choices, folder);
    isString ? PrintString(arguments, profile) : PrintList(arguments, profile);
}

constexpr const char* kFooter =
    R"help(Start (ss), duration (t, pt), frame size (s), frame rate (r), picture interval (pi) and zoom are no
part of the options: whoever starts the encoder applies them. --held-back adds those that the profile has.

Without --list, --null, --shell, --json, --for and --container the options are one text in which nothing is escaped: a
value with a quotation mark adds options of its own, and a shell runs what stands in $(...). Give that text to
no shell. --shell prints arguments that any POSIX shell reads as they are; --null is for xargs -0.

Examples:
  kmprofile args "Holiday Clips"
  kmprofile args "Holiday Clips" --set ab=192 --set s=640x480 --held-back
  eval "set -- $(kmprofile args 'Holiday Clips' --for ffmpeg --held-back --container --shell)"
  ffmpeg -i film.mkv "$@" clip.avi)help";

}  // namespace

void AddArgsCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ArgsArguments>();
    CLI::App* command = app.add_subcommand("args", "Print the encoder options of a profile");
    AddArgumentChoices(*command, arguments->choices);
    AddDialectOption(*command, arguments->choices);
    command->add_flag("--held-back", arguments->heldBack,
                      "Also print the settings that the options leave out: as options, or, after the text "
                      "in which nothing is escaped, one name=value a line");
    command->add_flag("--container", arguments->container, "Also print the output format (-f)");
    CLI::Option_group* forms = command->add_option_group("Form");
    forms->add_flag("--list", arguments->asList, "One argument a line");
    forms->add_flag("--null", arguments->nullTerminated, "Each argument ended by a null byte");
    forms->add_flag("--shell", arguments->forShell,
                    "One line for a POSIX shell (without another form, --for and --container do so too)");
    forms->add_flag("--json", arguments->asJson, "JSON, for programs");
    forms->require_option(0, 1);
    command->footer(kFooter);
    command->callback(
        [arguments, &global] { PrintArgs(*arguments, FindProfilesFolder(global.folder).path); });
}
