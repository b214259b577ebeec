#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
#include "ProfileLoading.h"
#include "Settings.h"
#include "kmArgOption.h"
#include "kmFolders.h"
#include "kmHeldBack.h"
#include "kmText.h"

namespace {

struct ArgsArguments {
    std::string id;
    std::vector<std::string> settings;
    bool noAudio = false;
    bool heldBack = false;
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
void RequireOneLineEach(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        if (line.find_first_of("\r\n") != std::string::npos) throw Failure("a setting holds a line break");
    }
}

void PrintArgs(const ArgsArguments& arguments, const kmString& folder) {
    kmProfile profile = LoadProfile(folder, kmPathFromUtf8(arguments.id));
    for (const std::string& setting : arguments.settings) ApplySetting(profile, setting, "--set");
    std::vector<std::string> lines = {kmUtf8FromText(profile.GetAvcString(!arguments.noAudio))};
    if (arguments.heldBack) AppendHeldBack(lines, profile);
    RequireOneLineEach(lines);
    for (const std::string& line : lines) PrintExactly(line);
}

}  // namespace

void AddArgsCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ArgsArguments>();
    CLI::App* command = app.add_subcommand("args", "Print the encoder options of a profile on one line");
    command->add_option("ID", arguments->id, "The profile")->required();
    command->add_flag("--no-audio", arguments->noAudio, "Leave the audio options out");
    command
        ->add_option("--set", arguments->settings,
                     "Change a setting first, for this call alone; may be given several times")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    command->add_flag("--held-back", arguments->heldBack,
                      "Also print the settings that the options leave out, one name=value a line");
    command->footer(
        R"(Start (ss), duration (t, pt), frame size (s), frame rate (r), picture interval (pi) and zoom are no
part of the options: whoever starts the encoder applies them. --held-back prints those that the profile has.

Examples:
  kmprofile args "Holiday Clips"
  kmprofile args "Holiday Clips" --set ab=192 --set s=640x480 --held-back)");
    command->callback([arguments, &global] { PrintArgs(*arguments, ProfilesFolder(global.folder)); });
}
